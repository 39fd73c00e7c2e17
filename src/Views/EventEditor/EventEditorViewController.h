#pragma once

#include "App/AppState.h"
#include "Models/ParsedEvent.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// What the event editor holds, from its opening until it closes. It has no say in what makes sense: the store refuses
/// what does not.
class EventEditorViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The panel has one")
    Q_PROPERTY(mintaro::AppState *appState READ appState CONSTANT)
    Q_PROPERTY(QString heading READ heading CONSTANT)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    Q_PROPERTY(mintaro::Date startDate READ startDate WRITE setStartDate NOTIFY datesChanged)
    Q_PROPERTY(mintaro::Date endDate READ endDate WRITE setEndDate NOTIFY datesChanged)
    Q_PROPERTY(bool isAllDay READ isAllDay WRITE setAllDay NOTIFY isAllDayChanged)
    Q_PROPERTY(QString location READ location WRITE setLocation NOTIFY locationChanged)
    Q_PROPERTY(QString notes READ notes WRITE setNotes NOTIFY notesChanged)
    Q_PROPERTY(std::optional<QString> selectedCalendarID READ selectedCalendarID WRITE setSelectedCalendarID NOTIFY
            selectedCalendarIDChanged)
    Q_PROPERTY(std::optional<mintaro::EKRecurrenceRule> recurrenceRule READ recurrenceRule WRITE setRecurrenceRule
            NOTIFY recurrenceRuleChanged)
    Q_PROPERTY(
        std::optional<std::chrono::seconds> alertOffset READ alertOffset WRITE setAlertOffset NOTIFY alertOffsetChanged)
    Q_PROPERTY(std::vector<mintaro::EKCalendarRef> calendars READ calendars NOTIFY calendarsChanged)
    Q_PROPERTY(bool hasCalendars READ hasCalendars NOTIFY calendarsChanged)
    Q_PROPERTY(bool canSave READ canSave NOTIFY canSaveChanged)
    Q_PROPERTY(bool showSpanPicker READ showSpanPicker WRITE setShowSpanPicker NOTIFY showSpanPickerChanged)
    Q_PROPERTY(bool isRestored READ isRestored NOTIFY isRestoredChanged)

public:
    /// `existingEvent`: absent for a new one. What the store refused to save the last time is taken up again.
    EventEditorViewController(AppState &appState, std::optional<EKEvent> existingEvent);

    [[nodiscard]] AppState *appState() const { return &m_appState; }
    [[nodiscard]] QString heading() const;
    [[nodiscard]] const QString &title() const { return m_draft.title; }
    void setTitle(const QString &title);
    [[nodiscard]] Date startDate() const { return m_draft.startDate; }
    /// The end moves along: what the clocks show between them stays.
    void setStartDate(Date start);
    [[nodiscard]] Date endDate() const { return m_draft.endDate; }
    void setEndDate(Date end);
    [[nodiscard]] bool isAllDay() const { return m_draft.isAllDay; }
    /// Changes no dates.
    void setAllDay(bool isAllDay);
    [[nodiscard]] const QString &location() const { return m_draft.location; }
    void setLocation(const QString &location);
    [[nodiscard]] const QString &notes() const { return m_draft.notes; }
    void setNotes(const QString &notes);
    [[nodiscard]] const std::optional<QString> &selectedCalendarID() const { return m_draft.calendarID; }
    void setSelectedCalendarID(const std::optional<QString> &identifier);
    [[nodiscard]] const std::optional<EKRecurrenceRule> &recurrenceRule() const { return m_draft.recurrenceRule; }
    void setRecurrenceRule(const std::optional<EKRecurrenceRule> &rule);
    /// From the start on, also for an alarm that stands at a moment of its own.
    [[nodiscard]] std::optional<std::chrono::seconds> alertOffset() const;
    void setAlertOffset(const std::optional<std::chrono::seconds> &offset);
    /// Those that can be changed; empty until they are loaded.
    [[nodiscard]] const std::vector<EKCalendarRef> &calendars() const { return m_calendars; }
    [[nodiscard]] bool hasCalendars() const { return !m_calendars.empty(); }
    [[nodiscard]] bool canSave() const { return !m_draft.title.isEmpty() && !m_isSaving; }
    [[nodiscard]] bool showSpanPicker() const { return m_showSpanPicker; }
    void setShowSpanPicker(bool shows);
    /// What is shown was refused by the store the last time.
    [[nodiscard]] bool isRestored() const { return m_isRestored; }

    /// Fetches what the calendar picker needs.
    QCoro::Task<> loadData();
    /// What a typed sentence says takes the place of what is here; what it leaves out stays.
    Q_INVOKABLE void applyParsed(const mintaro::ParsedEvent &parsed);
    /// Puts back what the event says, or what a new one begins with.
    Q_INVOKABLE void dropRestored();
    /// Offers restored input again the next time, since it was neither saved nor dropped. To be called when the editor
    /// closes.
    void keepRestored();
    /// Saves, or asks first how far the change of a repeating event reaches.
    Q_INVOKABLE void handleSave();
    /// `span`: a value of EKSpan.
    Q_INVOKABLE void chooseSpan(int span);
    /// Saves and closes, also where the store refuses; then the model tells of it and keeps the input. Goes on when the
    /// object is gone.
    QCoro::Task<> performSave(EKSpan span);
    Q_INVOKABLE void closeEditor();

Q_SIGNALS:
    void titleChanged();
    void datesChanged();
    void isAllDayChanged();
    void locationChanged();
    void notesChanged();
    void selectedCalendarIDChanged();
    void recurrenceRuleChanged();
    void alertOffsetChanged();
    void calendarsChanged();
    void canSaveChanged();
    void showSpanPickerChanged();
    void isRestoredChanged();
    void closeRequested();

private:
    template <typename Value>
    void change(Value EventDraft::*field, const Value &value, void (EventEditorViewController::*changed)());
    void setDates(Date start, Date end);
    void setSaving(bool isSaving);
    void replaceDraft(const EventDraft &draft);
    [[nodiscard]] EventDraft initialDraft() const;
    [[nodiscard]] Date initialStart() const;

    AppState &m_appState;
    const std::optional<EKEvent> m_existingEvent;
    /// For a new event; absent where there is none, and until it is known.
    std::optional<QString> m_defaultCalendarID;
    EventDraft m_draft;
    std::vector<EKCalendarRef> m_calendars;
    bool m_isSaving = false;
    bool m_showSpanPicker = false;
    bool m_isRestored = false;
};

} // namespace mintaro
