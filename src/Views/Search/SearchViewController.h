#pragma once

#include "Views/Agenda/EventListController.h"

namespace mintaro {

/// What the last search found, under the days on which it is.
class SearchViewController : public mintaro::EventListController
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(State state READ state NOTIFY stateChanged)

public:
    enum State { Searching, NoResults, Results };
    Q_ENUM(State)

    using EventListController::EventListController;

    void setAppState(AppState *appState) override;
    /// Results also where nothing has been asked for.
    [[nodiscard]] State state() const;

    /// Starts the search for what is typed.
    Q_INVOKABLE void search();
    Q_INVOKABLE void clear();
    /// The heading over the first result that is not over, or where all are, over the last; 0 without results.
    Q_INVOKABLE [[nodiscard]] int nearestDay() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;

Q_SIGNALS:
    void stateChanged();
    /// The search is repeated: the rows are to be much the same.
    void aboutToRepeat();
    void repeated();
    /// The rows are those of another search than before.
    void found();

protected:
    [[nodiscard]] Kind kindAt(int row) const override { return m_entries[static_cast<std::size_t>(row)].kind; }
    [[nodiscard]] Row rowAt(int row) const override;
    [[nodiscard]] std::optional<CalendarEvent> eventAt(int row) const override;

private:
    /// A row is made when it is looked at: there may be tens of thousands.
    struct Entry
    {
        Kind kind;
        /// Of the result; under a heading, of the first one.
        std::size_t result;
    };

    void update();
    [[nodiscard]] Row makeRow(const Entry &entry) const;
    [[nodiscard]] const CalendarEvent &result(const Entry &entry) const;

    std::optional<DateFormatter> m_dayFormat;
    std::optional<DateFormatter> m_dayOfOtherYearFormat;
    std::vector<Entry> m_entries;
    /// The row that was made last: a view asks for its roles one after the other.
    mutable std::optional<std::pair<int, Row>> m_lastRow;
};

} // namespace mintaro
