#include "Views/Agenda/AgendaListViewController.h"

#include "Views/Components/ListDiff.h"

#include <QCoreApplication>

namespace mintaro {

namespace {

/// What tells one row from another over refreshes.
QString itemKey(const CalendarEvent &event, Date day, const Calendar &calendar)
{
    return dateKey(day, calendar) + u'/' + event.id + u'/'
        + QString::number(event.startDate.time_since_epoch().count());
}

} // namespace

void AgendaListViewController::setAppState(AppState *appState)
{
    m_appState = appState;
    m_dayFormat = DateFormatter::withTemplate(QStringLiteral("EEEEMMMd"), appState->environment().locale());
    connect(appState, &AppState::selectedDateChanged, this, &AgendaListViewController::update);
    connect(appState, &AppState::hasCalendarAccessChanged, this, &AgendaListViewController::update);
    connect(appState, &AppState::significantTimeChange, this, &AgendaListViewController::update);
    // The label's tick: what has ended since the last one dims.
    connect(appState, &AppState::nextEventChanged, this, &AgendaListViewController::update);
    connect(&appState->eventsVM(), &EventsViewModel::dayEventsChanged, this, &AgendaListViewController::update);
    connect(&appState->remindersVM(), &RemindersViewModel::remindersChanged, this, &AgendaListViewController::update);
    update();
}

void AgendaListViewController::update()
{
    const auto days = m_appState->agendaEvents();
    replaceRows(rows(days));
    setState(!m_appState->hasCalendarAccess() ? NoAccess : days.empty() ? Empty : List);
}

void AgendaListViewController::setState(State state)
{
    if (std::exchange(m_state, state) != state)
        Q_EMIT stateChanged();
}

std::vector<AgendaListViewController::Row> AgendaListViewController::rows(const std::vector<DayEvents> &days) const
{
    const Calendar calendar = m_appState->environment().calendar();
    std::vector<Row> rows;
    for (const DayEvents &day : days) {
        rows.push_back(headerRow(day.date, calendar));
        for (const CalendarEvent &event : day.events)
            rows.push_back(itemRow(event, day.date, calendar));
    }
    return rows;
}

AgendaListViewController::Row AgendaListViewController::headerRow(Date day, const Calendar &calendar) const
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
        row.title = m_dayFormat->string(day, environment.timeZone());
    return row;
}

AgendaListViewController::Row AgendaListViewController::itemRow(
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
        return row;
    }
    row.timeRange = event.timeRange(environment.timeZone());
    row.location = event.location.value_or(QString());
    row.meetingInfo = event.meetingInfo;
    row.isPast = event.endDate < environment.now();
    return row;
}

QStringList AgendaListViewController::keys(const std::vector<Row> &rows)
{
    QStringList keys;
    for (const Row &row : rows)
        keys.append(row.key);
    return keys;
}

void AgendaListViewController::replaceRows(std::vector<Row> rows)
{
    const ListDiff diff = listDiff(keys(m_rows), keys(rows));
    for (const auto &[first, count] : diff.removals) {
        beginRemoveRows({}, first, first + count - 1);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + first + count);
        endRemoveRows();
    }
    for (const auto &[first, count] : diff.insertions) {
        beginInsertRows({}, first, first + count - 1);
        m_rows.insert(m_rows.begin() + first, rows.begin() + first, rows.begin() + first + count);
        endInsertRows();
    }
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (m_rows[i] == rows[i])
            continue;
        m_rows[i] = std::move(rows[i]);
        const QModelIndex changed = index(static_cast<int>(i));
        Q_EMIT dataChanged(changed, changed);
    }
}

void AgendaListViewController::joinMeeting(int row)
{
    const QModelIndex at = index(row);
    if (!at.isValid())
        return;
    if (const auto &meeting = m_rows[static_cast<std::size_t>(row)].meetingInfo)
        m_appState->openMeeting(*meeting);
}

std::optional<CalendarEvent> AgendaListViewController::eventAt(int row) const
{
    if (!index(row).isValid())
        return std::nullopt;
    const QString &key = m_rows[static_cast<std::size_t>(row)].key;
    const Calendar calendar = m_appState->environment().calendar();
    for (const DayEvents &day : m_appState->agendaEvents()) {
        for (const CalendarEvent &event : day.events) {
            if (itemKey(event, day.date, calendar) == key)
                return event;
        }
    }
    return std::nullopt;
}

bool AgendaListViewController::prepareMenu(int row)
{
    const auto event = eventAt(row);
    auto items = event ? menuItems(*event) : std::vector<MenuItem>();
    const bool isFilled = !items.empty();
    m_menu.setItems(std::move(items));
    return isFilled;
}

std::vector<MenuItem> AgendaListViewController::menuItems(const CalendarEvent &event) const
{
    std::vector<MenuItem> items;
    const EKCalendarRef &calendar = event.ekEvent.calendar();
    const bool isWritable = !event.isReminder && calendar && calendar->allowsContentModifications;
    if (isWritable) {
        items.push_back({ .title = qtTrId("Edit Event"), .symbol = QStringLiteral("pencil"), .action = [this, event] {
                             m_appState->openEditEvent(event);
                         } });
        items.push_back(MenuItem::separator());
        items.push_back({ .title = qtTrId("Delete Event"),
            .symbol = QStringLiteral("trash"),
            .isDestructive = true,
            .action = [this, event] { m_appState->requestDeleteEvent(event); } });
    }
    return items;
}

int AgendaListViewController::nextItem(int row, int by) const
{
    const int count = rowCount();
    for (int i = std::max(0, row) + by; i >= 0 && i < count; i += by == 0 ? 1 : by) {
        if (m_rows[static_cast<std::size_t>(i)].kind != DaySection)
            return i;
    }
    return -1;
}

void AgendaListViewController::openPrivacySettings()
{
    m_appState->openPrivacySettings();
}

int AgendaListViewController::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant AgendaListViewController::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row &row = m_rows[static_cast<std::size_t>(index.row())];
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

QHash<int, QByteArray> AgendaListViewController::roleNames() const
{
    return { { KindRole, "kind" }, { TitleRole, "title" }, { IsTodayRole, "isToday" }, { TimeRangeRole, "timeRange" },
        { LocationRole, "location" }, { ColorRole, "calendarColor" }, { ServiceRole, "service" },
        { ServiceSymbolRole, "serviceSymbol" }, { IsPastRole, "isPast" }, { IsCompletedRole, "isCompleted" },
        { AccessibleNameRole, "accessibleName" } };
}

QString AgendaListViewController::accessibleName(const Row &row) const
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
