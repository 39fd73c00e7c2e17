#include "ViewModels/SearchViewModel.h"

#include <QPointer>

namespace mintaro {

namespace {

constexpr int kMonthsEachWay = 12;

bool isSpace(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

} // namespace

SearchViewModel::SearchViewModel(EventStoreService &eventStore, const Environment &environment)
    : m_eventStore(eventStore)
    , m_environment(environment)
{
}

QString SearchViewModel::query(const QString &searchText)
{
    const auto first = std::find_if_not(searchText.begin(), searchText.end(), isSpace);
    const auto last = std::find_if_not(searchText.rbegin(), std::make_reverse_iterator(first), isSpace).base();
    return QString(first, last - first);
}

DateInterval SearchViewModel::range(const Environment &environment)
{
    const Calendar calendar = environment.calendar();
    const Date now = environment.now();
    const auto shifted
        = [&](int months) { return calendar.dateByAdding(Calendar::Component::Month, months, now).value_or(now); };
    return { shifted(-kMonthsEachWay), shifted(kMonthsEachWay) };
}

void SearchViewModel::setSearchText(const QString &text)
{
    if (std::exchange(m_searchText, text) != text)
        Q_EMIT searchTextChanged();
}

QCoro::Task<> SearchViewModel::search()
{
    const QPointer<SearchViewModel> self(this);
    const QString text = query(m_searchText);
    m_query = text;
    if (text.isEmpty()) {
        setResults({}, Search::New);
        co_return;
    }
    setIsSearching(true);
    const DateInterval dates = range(m_environment);
    auto results = co_await m_eventStore.searchEvents(text, dates.start, dates.end);
    if (!self)
        co_return;
    setResults(std::move(results), Search::New);
    setIsSearching(false);
}

QCoro::Task<> SearchViewModel::searchAgain()
{
    const QPointer<SearchViewModel> self(this);
    const QString text = m_query;
    if (text.isEmpty() || m_isSearching)
        co_return;
    const DateInterval dates = range(m_environment);
    auto results = co_await m_eventStore.searchEvents(text, dates.start, dates.end);
    // A new search that began meanwhile has the last word.
    if (self && m_query == text && !m_isSearching)
        setResults(std::move(results), Search::Repeated);
}

void SearchViewModel::clear()
{
    setSearchText({});
    m_query.clear();
    setResults({}, Search::New);
}

void SearchViewModel::setResults(std::vector<CalendarEvent> results, Search search)
{
    const bool wasEmpty = m_results.empty();
    m_results = std::move(results);
    if (!wasEmpty || !m_results.empty())
        Q_EMIT resultsChanged(search == Search::Repeated);
}

void SearchViewModel::setIsSearching(bool isSearching)
{
    if (std::exchange(m_isSearching, isSearching) != isSearching)
        Q_EMIT isSearchingChanged();
}

} // namespace mintaro
