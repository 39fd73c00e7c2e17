#include "Views/Agenda/AgendaListViewController.h"

#include "Views/Components/ListDiff.h"

namespace mintaro {

void AgendaListViewController::setAppState(AppState *appState)
{
    EventListController::setAppState(appState);
    m_dayFormat = DateFormatter::withTemplate(QStringLiteral("EEEEMMMd"), appState->environment().locale());
    connect(appState, &AppState::selectedDateChanged, this, [this] {
        update();
        Q_EMIT dayShown();
    });
    connect(appState, &AppState::hasCalendarAccessChanged, this, &AgendaListViewController::update);
    connect(appState, &AppState::significantTimeChange, this, &AgendaListViewController::update);
    connect(appState, &AppState::nextEventChanged, this, &AgendaListViewController::dimPast);
    connect(&appState->eventsVM(), &EventsViewModel::dayEventsChanged, this, &AgendaListViewController::update);
    connect(&appState->remindersVM(), &RemindersViewModel::remindersChanged, this, &AgendaListViewController::update);
    update();
}

void AgendaListViewController::update()
{
    const auto days = appState()->agendaEvents();
    replaceRows(rows(days));
    setState(!appState()->hasCalendarAccess() ? NoAccess : days.empty() ? Empty : List);
}

void AgendaListViewController::dimPast()
{
    const Date now = appState()->environment().now();
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        Row &row = m_rows[i];
        if (row.kind != Event || row.isPast || row.endDate >= now)
            continue;
        row.isPast = true;
        const QModelIndex changed = index(static_cast<int>(i));
        Q_EMIT dataChanged(changed, changed, { IsPastRole });
    }
}

void AgendaListViewController::setState(State state)
{
    if (std::exchange(m_state, state) != state)
        Q_EMIT stateChanged();
}

std::vector<AgendaListViewController::Row> AgendaListViewController::rows(const std::vector<DayEvents> &days) const
{
    const Calendar calendar = appState()->environment().calendar();
    std::vector<Row> rows;
    for (const DayEvents &day : days) {
        rows.push_back(headerRow(day.date, calendar, *m_dayFormat));
        for (const CalendarEvent &event : day.events)
            rows.push_back(itemRow(event, day.date, calendar));
    }
    return rows;
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

std::optional<CalendarEvent> AgendaListViewController::eventAt(int row) const
{
    const QString &key = m_rows[static_cast<std::size_t>(row)].key;
    const Calendar calendar = appState()->environment().calendar();
    for (const DayEvents &day : appState()->agendaEvents()) {
        for (const CalendarEvent &event : day.events) {
            if (itemKey(event, day.date, calendar) == key)
                return event;
        }
    }
    return std::nullopt;
}

void AgendaListViewController::openPrivacySettings()
{
    appState()->openPrivacySettings();
}

int AgendaListViewController::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

} // namespace mintaro
