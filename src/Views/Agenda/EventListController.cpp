#include "Views/Agenda/EventListController.h"

#include "Views/Agenda/RowMenus.h"

#include <QCoreApplication>

namespace mintaro {

void EventListController::setAppState(AppState *appState)
{
    m_appState = appState;
}

QString EventListController::itemKey(const CalendarEvent &event, Date day, const Calendar &calendar)
{
    return dateKey(day, calendar) + u'/' + event.id + u'/'
        + QString::number(event.startDate.time_since_epoch().count());
}

EventListController::Row EventListController::headerRow(
    Date day, const Calendar &calendar, const DateFormatter &format) const
{
    const Environment &environment = m_appState->environment();
    const Date now = environment.now();
    const auto tomorrow = calendar.dateByAdding(Calendar::Component::Day, 1, now);
    Row row;
    row.key = dateKey(day, calendar);
    row.isToday = calendar.isDateInSameDay(day, now);
    if (row.isToday)
        row.title = qtTrId("Today");
    else if (tomorrow && calendar.isDateInSameDay(day, *tomorrow))
        row.title = qtTrId("Tomorrow");
    else
        row.title = format.string(day, environment.timeZone());
    return row;
}

EventListController::Row EventListController::itemRow(
    const CalendarEvent &event, Date day, const Calendar &calendar) const
{
    const Environment &environment = m_appState->environment();
    Row row;
    row.key = itemKey(event, day, calendar);
    row.kind = event.isReminder ? Reminder : Event;
    row.title = event.title;
    row.color = event.calendarColor;
    if (event.isReminder) {
        row.isCompleted = event.isCompleted;
        row.link = event.reminderURL ? event.reminderURL->absoluteString() : QString();
        return row;
    }
    row.timeRange = event.timeRange(environment.timeZone());
    row.location = event.location.value_or(QString());
    row.meetingInfo = event.meetingInfo;
    row.endDate = event.endDate;
    row.isPast = event.endDate < environment.now();
    return row;
}

std::optional<CalendarEvent> EventListController::existingEventAt(int row) const
{
    return index(row).isValid() ? eventAt(row) : std::nullopt;
}

void EventListController::joinMeeting(int row)
{
    if (const auto event = existingEventAt(row); event && event->meetingInfo)
        m_appState->openMeeting(*event->meetingInfo);
}

void EventListController::toggleReminder(int row)
{
    if (const auto event = existingEventAt(row); event && event->reminderIdentifier)
        m_appState->toggleReminder(*event->reminderIdentifier);
}

void EventListController::openLink(int row)
{
    if (const auto event = existingEventAt(row); event && event->reminderURL)
        m_appState->openURL(*event->reminderURL);
}

bool EventListController::prepareMenu(int row)
{
    const auto event = existingEventAt(row);
    m_menu.setItems(event ? rowMenu(*m_appState, *event) : std::vector<MenuItem>());
    return event.has_value();
}

int EventListController::nextItem(int row, int by) const
{
    const int count = rowCount({});
    for (int i = std::max(0, row) + by; i >= 0 && i < count; i += by == 0 ? 1 : by) {
        if (kindAt(i) != DaySection)
            return i;
    }
    return -1;
}

QVariant EventListController::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row row = rowAt(index.row());
    switch (role) {
    case KindRole:
        return row.kind;
    case TitleRole:
        return row.title;
    case IsTodayRole:
        return row.isToday;
    case TimeRangeRole:
        return row.timeRange;
    case LocationRole:
        return row.location;
    case ColorRole:
        return row.color.hex();
    case ServiceRole:
        return row.meetingInfo ? row.meetingInfo->service : QString();
    case ServiceSymbolRole:
        return row.meetingInfo ? row.meetingInfo->systemImage : QString();
    case LinkRole:
        return row.link;
    case IsPastRole:
        return row.isPast;
    case IsCompletedRole:
        return row.isCompleted;
    case AccessibleNameRole:
        return accessibleName(row);
    default:
        return {};
    }
}

QHash<int, QByteArray> EventListController::roleNames() const
{
    return { { KindRole, "kind" }, { TitleRole, "title" }, { IsTodayRole, "isToday" }, { TimeRangeRole, "timeRange" },
        { LocationRole, "location" }, { ColorRole, "calendarColor" }, { ServiceRole, "service" },
        { ServiceSymbolRole, "serviceSymbol" }, { LinkRole, "link" }, { IsPastRole, "isPast" },
        { IsCompletedRole, "isCompleted" }, { AccessibleNameRole, "accessibleName" } };
}

QString EventListController::accessibleName(const Row &row)
{
    QStringList parts { row.title };
    if (row.kind == Reminder)
        parts.append(row.isCompleted ? qtTrId("accessibility.completed") : qtTrId("accessibility.notCompleted"));
    for (const QString &text : { row.timeRange, row.location }) {
        if (!text.isEmpty())
            parts.append(text);
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace mintaro
