#include "Views/Search/SearchViewController.h"

namespace mintaro {

void SearchViewController::setAppState(AppState *appState)
{
    EventListController::setAppState(appState);
    const Locale &locale = appState->environment().locale();
    m_dayFormat = DateFormatter::withTemplate(QStringLiteral("EEEEMMMd"), locale);
    m_dayOfOtherYearFormat = DateFormatter::withTemplate(QStringLiteral("yEEEEMMMd"), locale);
    const SearchViewModel *search = appState->searchVM();
    connect(search, &SearchViewModel::resultsChanged, this, [this](bool isRepeated) {
        if (isRepeated)
            Q_EMIT aboutToRepeat();
        update();
        if (isRepeated)
            Q_EMIT repeated();
        else
            Q_EMIT found();
    });
    connect(appState, &AppState::significantTimeChange, this, &SearchViewController::update);
    connect(search, &SearchViewModel::isSearchingChanged, this, &SearchViewController::stateChanged);
    connect(search, &SearchViewModel::searchTextChanged, this, &SearchViewController::stateChanged);
    update();
}

SearchViewController::State SearchViewController::state() const
{
    if (!appState())
        return Results;
    const SearchViewModel &search = *appState()->searchVM();
    if (search.isSearching())
        return Searching;
    return search.results().empty() && !search.searchText().isEmpty() ? NoResults : Results;
}

void SearchViewController::update()
{
    beginResetModel();
    m_lastRow.reset();
    m_entries.clear();
    m_entries.reserve(appState()->searchVM()->results().size());
    const Calendar calendar = appState()->environment().calendar();
    DateInterval day {};
    const auto &results = appState()->searchVM()->results();
    for (std::size_t i = 0; i < results.size(); ++i) {
        const Date start = results[i].startDate;
        if (i == 0 || start < day.start || start >= day.end) {
            day.start = calendar.startOfDay(start);
            day.end = calendar.dateByAdding(Calendar::Component::Day, 1, day.start).value_or(day.start);
            m_entries.push_back({ DaySection, i });
        }
        m_entries.push_back({ Event, i });
    }
    endResetModel();
    Q_EMIT stateChanged();
}

const CalendarEvent &SearchViewController::result(const Entry &entry) const
{
    return appState()->searchVM()->results()[entry.result];
}

EventListController::Row SearchViewController::rowAt(int row) const
{
    if (!m_lastRow || m_lastRow->first != row)
        m_lastRow.emplace(row, makeRow(m_entries[static_cast<std::size_t>(row)]));
    return m_lastRow->second;
}

EventListController::Row SearchViewController::makeRow(const Entry &entry) const
{
    const CalendarEvent &event = result(entry);
    const Calendar calendar = appState()->environment().calendar();
    if (entry.kind != DaySection) {
        Row found = itemRow(event, event.startDate, calendar);
        found.isPast = false;
        return found;
    }
    const int year = calendar.components(event.startDate).year;
    const bool isThisYear = year == calendar.components(appState()->environment().now()).year;
    return headerRow(event.startDate, calendar, isThisYear ? *m_dayFormat : *m_dayOfOtherYearFormat);
}

std::optional<CalendarEvent> SearchViewController::eventAt(int row) const
{
    const Entry &entry = m_entries[static_cast<std::size_t>(row)];
    return entry.kind == DaySection ? std::nullopt : std::optional(result(entry));
}

void SearchViewController::search()
{
    appState()->searchVM()->search();
}

void SearchViewController::clear()
{
    appState()->searchVM()->clear();
}

int SearchViewController::nearestDay() const
{
    const Date now = appState()->environment().now();
    int heading = 0;
    for (int row = 0; row < rowCount(); ++row) {
        if (kindAt(row) == DaySection)
            heading = row;
        else if (result(m_entries[static_cast<std::size_t>(row)]).endDate > now)
            break;
    }
    return heading;
}

int SearchViewController::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

} // namespace mintaro
