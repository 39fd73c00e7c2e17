#pragma once

#include "Models/CalendarEvent.h"
#include "Platform/Foundation/Environment.h"
#include "Services/EventStoreService.h"

#include <QObject>

namespace mintaro {

/// The search for events by their texts: what was typed, and what the last search found. Nothing is searched while the
/// user types. For the main thread.
class SearchViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY isSearchingChanged)

public:
    /// Both must outlive the object.
    SearchViewModel(EventStoreService &eventStore, const Environment &environment);

    [[nodiscard]] const QString &searchText() const { return m_searchText; }
    void setSearchText(const QString &text);
    /// In the store's order, each occurrence by itself.
    [[nodiscard]] const std::vector<CalendarEvent> &results() const { return m_results; }
    [[nodiscard]] bool isSearching() const { return m_isSearching; }

    /// Replaces the results by the events of every calendar in range() that contain query() of the search text; by none
    /// where that is empty. Of searches that overlap the last to finish decides the results, and the first ends
    /// isSearching.
    QCoro::Task<> search();
    /// Repeats the last search, whatever has been typed since, for a store that changed. Without one nothing happens.
    QCoro::Task<> searchAgain();
    /// Empties search text and results. A search under way goes on.
    void clear();

    /// What a typed text asks for: itself without the spaces and tabs around it; line breaks stay.
    [[nodiscard]] static QString query(const QString &searchText);
    /// From a year before now to a year after it.
    [[nodiscard]] static DateInterval range(const Environment &environment);

Q_SIGNALS:
    void searchTextChanged();
    /// After a new search, and after one that was repeated.
    void resultsChanged(bool isRepeated);
    void isSearchingChanged();

private:
    enum class Search { New, Repeated };

    void setResults(std::vector<CalendarEvent> results, Search search);
    void setIsSearching(bool isSearching);

    EventStoreService &m_eventStore;
    const Environment &m_environment;
    QString m_searchText;
    /// Of the last search; empty where the results are nobody's.
    QString m_query;
    std::vector<CalendarEvent> m_results;
    bool m_isSearching = false;
};

} // namespace mintaro
