#pragma once

#include "App/EventEditorOpener.h"
#include "App/SettingsOpener.h"
#include "Models/CountdownFormat.h"
#include "Models/EventDraft.h"
#include "Platform/Foundation/Logger.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Services/EventStoreService.h"
#include "Services/MeetingOpener.h"
#include "Services/NotificationService.h"
#include "Services/ReminderService.h"
#include "ViewModels/CalendarViewModel.h"
#include "ViewModels/EventsViewModel.h"
#include "ViewModels/RemindersViewModel.h"
#include "ViewModels/SearchViewModel.h"

#include <QObject>
#include <QSet>

#include <map>

namespace mintaro {

class CalendarApplication;
class CalendarDatabase;
class Pasteboard;

/// The one central model: it owns services and view models, holds what the label and the popover show, and runs the
/// refresh cycle. Lives as long as the process; every member belongs to the main thread. A write of an equal value
/// tells nobody.
class AppState : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool hasCalendarAccess READ hasCalendarAccess NOTIFY hasCalendarAccessChanged)
    Q_PROPERTY(bool isShowingSearch READ isShowingSearch WRITE setShowingSearch NOTIFY isShowingSearchChanged)
    Q_PROPERTY(bool isShowingDeleteConfirmation READ isShowingDeleteConfirmation WRITE setShowingDeleteConfirmation
            NOTIFY isShowingDeleteConfirmationChanged)
    Q_PROPERTY(
        bool isShowingSpanPicker READ isShowingSpanPicker WRITE setShowingSpanPicker NOTIFY isShowingSpanPickerChanged)
    Q_PROPERTY(QString errorMessage READ errorMessage WRITE setErrorMessage NOTIFY errorMessageChanged)
    Q_PROPERTY(mintaro::CalendarViewModel *calendarVM READ calendarVM CONSTANT)
    Q_PROPERTY(mintaro::SearchViewModel *searchVM READ searchVM CONSTANT)

public:
    /// What it is built upon; all of it must outlive the object.
    struct Dependencies
    {
        std::shared_ptr<CalendarDatabase> database;
        NotificationCenter &notifications;
        UserDefaults &defaults;
        Environment &environment;
        Workspace &workspace;
        // Null where there is none, as in a program without windows.
        EventEditorOpener *eventEditor = nullptr;
        SettingsOpener *settings = nullptr;
        Pasteboard *pasteboard = nullptr;
        CalendarApplication *calendarApplication = nullptr;
        UNUserNotificationCenter *userNotifications = nullptr;
        LogSink log = writeToSystemLog;
    };

    /// Only builds: touches no store, asks for nothing, starts no task.
    explicit AppState(const Dependencies &dependencies);
    ~AppState() override;

    // State

    [[nodiscard]] Date selectedDate() const { return m_selectedDate; }
    void setSelectedDate(Date date);
    /// Any moment of the month that is shown. While the popover shows, another one is fetched at once.
    [[nodiscard]] Date monthDate() const { return m_monthDate; }
    void setMonthDate(Date date);
    [[nodiscard]] const std::optional<CalendarEvent> &nextEvent() const { return m_nextEvent; }
    /// Empty when there is no next event.
    [[nodiscard]] const QString &countdownText() const { return m_countdownText; }
    [[nodiscard]] bool hasCalendarAccess() const { return m_hasCalendarAccess; }
    /// Why the store could not be asked, in its words; empty where it could, whatever it said.
    [[nodiscard]] const QString &accessFailure() const { return m_accessFailure; }
    [[nodiscard]] bool isShowingSearch() const { return m_isShowingSearch; }
    void setShowingSearch(bool isShowing);
    /// The event that the user is asked about, by the confirmation or, where it repeats, by the span picker.
    [[nodiscard]] const std::optional<CalendarEvent> &pendingDeleteEvent() const { return m_pendingDeleteEvent; }
    void setPendingDeleteEvent(const std::optional<CalendarEvent> &event);
    [[nodiscard]] bool isShowingDeleteConfirmation() const { return m_isShowingDeleteConfirmation; }
    void setShowingDeleteConfirmation(bool isShowing);
    [[nodiscard]] bool isShowingSpanPicker() const { return m_isShowingSpanPicker; }
    void setShowingSpanPicker(bool isShowing);
    /// What the editor was last opened on; absent for a new event.
    [[nodiscard]] const std::optional<EKEvent> &editingEvent() const { return m_editingEvent; }
    /// Why an action of the user's failed, in words for them; empty when there is nothing to tell.
    [[nodiscard]] const QString &errorMessage() const { return m_errorMessage; }
    void setErrorMessage(const QString &message);
    /// Logs why an action of the user's failed, and makes it the error message.
    void tellOfFailure(const QString &message);
    /// The 14 days from the selected one as far as they were fetched, each with its events and dated reminders;
    /// computed at each call.
    [[nodiscard]] std::vector<DayEvents> agendaEvents() const;

    [[nodiscard]] CalendarViewModel *calendarVM() { return &m_calendarVM; }
    [[nodiscard]] EventStoreService &eventStore() { return m_eventStore; }
    [[nodiscard]] ReminderService &reminderService() { return m_reminderService; }
    [[nodiscard]] EventsViewModel &eventsVM() { return m_eventsVM; }
    [[nodiscard]] RemindersViewModel &remindersVM() { return m_remindersVM; }
    [[nodiscard]] SearchViewModel *searchVM() { return &m_searchVM; }
    [[nodiscard]] Environment &environment() { return m_environment; }
    [[nodiscard]] UserDefaults &defaults() { return m_defaults; }

    // Refresh cycle

    /// Asks for access and fetches everything; runs at launch and at each opening of the popover.
    QCoro::Task<> requestAccessAndLoad();
    /// Fetches the shown month with 7 days on each side, and whatever the label needs besides. Overlapping runs each
    /// publish whole results; the later finisher wins.
    QCoro::Task<> refreshAll();
    /// Refreshes once for each change of the store, for as long as the object lives. A second call ends at once.
    QCoro::Task<> watchStoreChanges();
    /// Moves monthDate by months, negative for back.
    void navigateMonth(int delta);
    /// Selects a day and marks it in the grid, without a fetch.
    void selectDay(Date date);
    /// Shows and selects today.
    void showToday();

    /// Chooses the next event and its countdown anew, and schedules the reminders of meetings.
    void updateNextEvent();
    /// Chooses the next event and its countdown anew; an hour after the reminders were scheduled they are again, since
    /// they reach a day ahead.
    void updateCountdown();
    /// The fetched timed events that are not over, in ascending order of their starts. They reach a week ahead at
    /// least.
    [[nodiscard]] std::vector<CalendarEvent> upcomingEvents() const;

    /// While the popover shows, a new day leaves the selection alone; while it does not, what showed the old today
    /// moves on to the new one. What it asks or tells the user goes with it.
    void setPopoverVisible(bool isVisible);

    // Actions

    void openMeeting(const MeetingInfo &meeting);
    /// Opens what grants access to the calendars.
    void openPrivacySettings();
    void openURL(const URL &url);
    void openSettings();

    /// Completes the reminder of that calendarItemIdentifier, or takes that back, and fetches the reminders anew. What
    /// the store refuses is only logged: the reminder then shows as it was.
    QCoro::Task<> toggleReminder(QString id);
    /// Deletes it at once, without a question; otherwise as toggleReminder.
    QCoro::Task<> deleteReminder(QString id);

    /// Has the user asked, by confirmation or span picker.
    void requestDeleteEvent(const CalendarEvent &event);
    /// Deletes the occurrence that `event` shows, and with EKSpan::FutureEvents those after it. One that is gone is
    /// passed over; what the store refuses becomes the error message. pendingDeleteEvent is empty afterwards.
    QCoro::Task<> deleteEvent(CalendarEvent event, EKSpan span);
    /// Opens the editor on a new event, also if another is being edited.
    void openNewEvent();
    /// Opens the editor on the occurrence that `event` shows, as it is now. One that is gone is passed over.
    QCoro::Task<> openEditEvent(CalendarEvent event);
    /// Saves what the editor has: over `ekEvent`, or where that is absent as a new event. Throws EKError, and it is the
    /// editor that tells of it.
    QCoro::Task<> saveEvent(std::optional<EKEvent> ekEvent, EventDraft draft, EKSpan span);
    /// Keeps what the store refused to save over `ekEvent`, or where that is absent as a new event, until it is taken.
    void keepRejectedDraft(const std::optional<EKEvent> &ekEvent, const EventDraft &draft);
    /// What was kept for that occurrence, or for a new event, and is kept no longer.
    [[nodiscard]] std::optional<EventDraft> takeRejectedDraft(const std::optional<EKEvent> &ekEvent);

    /// Shows the day on which `event` starts in the desktop's own calendar program.
    void openInCalendarApp(const CalendarEvent &event);
    /// Opens what the desktop has for tasks.
    void openInReminders();
    /// Copies title, time range and location, a line each.
    void copyEventDetails(const CalendarEvent &event);
    /// Copies the title and, below it, when the reminder is due.
    void copyReminderDetails(const QString &title, std::optional<Date> dueDate);
    /// Copies the web link, which opens everywhere.
    void copyMeetingLink(const MeetingInfo &meeting);

    // Preferences: read at each call, nothing is kept here.

    [[nodiscard]] bool weekStartsOnMonday() const;
    [[nodiscard]] bool showWeekNumbers() const;
    [[nodiscard]] bool showDateInMenuBar() const;
    [[nodiscard]] QString menuBarDateFormat() const; ///< one line of at most 100 characters
    [[nodiscard]] bool showNextEventInMenuBar() const;
    [[nodiscard]] bool showMeetingIconInMenuBar() const;
    void setShowMeetingIconInMenuBar(bool shows);
    [[nodiscard]] bool meetingNotificationsEnabled() const;
    void setMeetingNotificationsEnabled(bool isEnabled);
    /// Above 0.
    [[nodiscard]] int meetingNotificationMinutes() const;
    void setMeetingNotificationMinutes(int minutes);
    /// In user-perceived characters, above 0.
    [[nodiscard]] int menuBarMaxTitleLength() const;
    void setMenuBarMaxTitleLength(int length);
    [[nodiscard]] CountdownFormat countdownFormat() const;
    void setCountdownFormat(CountdownFormat format);
    /// A language code, or "system".
    [[nodiscard]] QString appLanguage() const;
    /// Holds from the next launch on.
    void setAppLanguage(const QString &language);

Q_SIGNALS:
    void selectedDateChanged();
    void monthDateChanged();
    /// After monthDateChanged, where the user went to another month step by step: negative for back.
    void monthNavigated(int delta);
    void nextEventChanged();
    void countdownTextChanged();
    void hasCalendarAccessChanged();
    void accessFailureChanged();
    void pendingDeleteEventChanged();
    void isShowingSearchChanged();
    void isShowingDeleteConfirmationChanged();
    void isShowingSpanPickerChanged();
    void errorMessageChanged();
    /// The store changed, and what is shown of it has been fetched anew.
    void storeChanged();
    /// A day began, the clock jumped or the zone changed.
    void significantTimeChange();

private:
    struct RejectedDraft
    {
        std::optional<EKEvent> ekEvent;
        EventDraft draft;
    };

    [[nodiscard]] QSet<QString> selection(const QString &key) const;
    QCoro::Task<> loadEventsOnceGranted();
    QCoro::Task<> askForReminders();
    /// What upcomingEvents gives; it stands until the next fetch.
    [[nodiscard]] std::vector<const CalendarEvent *> upcoming() const;
    QCoro::Task<> fetchUpcoming(Date fetchedFrom, Date fetchedTo);
    void generateMonth();
    QCoro::Task<> fetchReminders();
    [[nodiscard]] QString countdown(const CalendarEvent &event) const;
    void scheduleNotifications();
    void onPreferenceChanged(const QString &key);
    /// False where it is still the day that it was.
    bool followToday();
    void followTodayAndRefresh();
    void dismissQuestions();
    QCoro::Task<> showInCalendarApp(const DateComponents &day);
    QCoro::Task<bool> runScript(QString source);
    void copy(const QString &text);

    Environment &m_environment;
    UserDefaults &m_defaults;
    Workspace &m_workspace;
    EventEditorOpener *const m_eventEditor;
    SettingsOpener *const m_settings;
    Pasteboard *const m_pasteboard;
    CalendarApplication *const m_calendarApplication;
    Date m_selectedDate;
    Date m_monthDate;
    /// The day that counted as today when the selection was last looked at.
    Date m_today;
    std::optional<CalendarEvent> m_nextEvent;
    QString m_countdownText;
    bool m_hasCalendarAccess = false;
    QString m_accessFailure;
    bool m_hasReminderAccess = false;
    std::optional<CalendarEvent> m_pendingDeleteEvent;
    bool m_isShowingSearch = false;
    bool m_isShowingDeleteConfirmation = false;
    bool m_isShowingSpanPicker = false;
    std::optional<EKEvent> m_editingEvent;
    std::map<std::pair<QString, Date>, RejectedDraft> m_rejectedDrafts;
    QString m_errorMessage;
    bool m_isWatchingStoreChanges = false;
    /// How many refreshes are under way: until the last one has ended, what was fetched may lack the coming week.
    int m_refreshes = 0;
    Date m_notificationsScheduledAt {};
    bool m_isPopoverVisible = false;
    Logger m_logger;
    MeetingOpener m_meetingOpener;
    EventStoreService m_eventStore;
    ReminderService m_reminderService;
    std::optional<NotificationService> m_notificationService;
    CalendarViewModel m_calendarVM;
    EventsViewModel m_eventsVM;
    /// The coming week, where the month that is browsed does not hold it; otherwise empty.
    EventsViewModel m_upcomingVM;
    RemindersViewModel m_remindersVM;
    SearchViewModel m_searchVM;
};

} // namespace mintaro
