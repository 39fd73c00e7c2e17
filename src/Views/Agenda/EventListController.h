#pragma once

#include "App/AppState.h"
#include "Platform/Foundation/DateFormatter.h"
#include "Views/Components/ContextMenuModel.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// A flat list of days: a heading for each, under it a row for each event or reminder, with what can be done to them.
class EventListController : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Each list has its own")
    Q_PROPERTY(mintaro::AppState *appState READ appState WRITE setAppState REQUIRED)
    Q_PROPERTY(mintaro::ContextMenuModel *menu READ menu CONSTANT)

public:
    enum Kind { DaySection, Event, Reminder };
    Q_ENUM(Kind)
    enum Role {
        KindRole = Qt::UserRole + 1,
        TitleRole,
        IsTodayRole,
        TimeRangeRole,
        LocationRole,
        ColorRole,
        ServiceRole, ///< the meeting service's name, empty without a meeting
        ServiceSymbolRole,
        LinkRole, ///< of a reminder, as text; empty without one
        IsPastRole,
        IsCompletedRole,
        AccessibleNameRole,
    };
    Q_ENUM(Role)

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] AppState *appState() const { return m_appState; }
    virtual void setAppState(AppState *appState);

    /// Opens the meeting of the event in that row.
    Q_INVOKABLE void joinMeeting(int row);
    /// Completes the reminder in that row, or takes that back.
    Q_INVOKABLE void toggleReminder(int row);
    /// Opens the link of the reminder in that row.
    Q_INVOKABLE void openLink(int row);
    [[nodiscard]] ContextMenuModel *menu() { return &m_menu; }
    /// Fills the menu with what can be done to that row; false where there is nothing.
    Q_INVOKABLE bool prepareMenu(int row);
    /// The nearest row after `row` (by 1) or before it (by -1) that is no heading; by 0 the row itself where it is
    /// none, else the next. -1 where there is none.
    Q_INVOKABLE [[nodiscard]] int nextItem(int row, int by) const;

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

protected:
    struct Row
    {
        /// What tells one row from another over refreshes.
        QString key;
        Kind kind = DaySection;
        QString title;
        bool isToday = false;
        QString timeRange;
        QString location;
        Color color;
        std::optional<MeetingInfo> meetingInfo;
        QString link;
        Date endDate {};
        bool isPast = false;
        bool isCompleted = false;
        friend bool operator==(const Row &, const Row &) = default;
    };

    /// "Today", "Tomorrow", or the day as `format` writes it.
    [[nodiscard]] Row headerRow(Date day, const Calendar &calendar, const DateFormatter &format) const;
    [[nodiscard]] Row itemRow(const CalendarEvent &event, Date day, const Calendar &calendar) const;
    [[nodiscard]] static QString itemKey(const CalendarEvent &event, Date day, const Calendar &calendar);

    /// Of a row that exists.
    [[nodiscard]] virtual Kind kindAt(int row) const = 0;
    [[nodiscard]] virtual Row rowAt(int row) const = 0;
    /// Absent for a heading, and for what is gone by now.
    [[nodiscard]] virtual std::optional<CalendarEvent> eventAt(int row) const = 0;

private:
    [[nodiscard]] std::optional<CalendarEvent> existingEventAt(int row) const;
    [[nodiscard]] static QString accessibleName(const Row &row);

    AppState *m_appState = nullptr;
    ContextMenuModel m_menu;
};

} // namespace mintaro
