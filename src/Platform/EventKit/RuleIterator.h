#pragma once

#include "Platform/EventKit/DayFilter.h"
#include "Platform/EventKit/RecurrenceRule.h"

#include <cstddef>
#include <cstdint>

namespace mintaro {

/// How much work rules may still cost: a step is a day or a clock reading that is looked at. Counting steps rather than
/// time keeps the result the same on every machine.
struct ExpansionBudget
{
    std::int64_t steps;

    [[nodiscard]] bool isSpent() const { return steps < 0; }
    bool spend() { return --steps >= 0; }
};

/// The readings of one rule in ascending order, on clock readings without a zone: zones and their gaps are the
/// caller's. It works through the rule's periods: the days that the filter takes, times the clock readings of a day.
/// (libical's own iterator, checked against other engines, ignores BYSETPOS in weekly rules, keeps lists such as
/// BYHOUR=16,3 unsorted, takes a yearly BYMONTHDAY in one month only, and does not come back from some rules.)
class RuleIterator
{
public:
    /// Readings from `start` up to `limit`, both inclusive. A start that the rule does not match is left out and does
    /// not count: RFC 5545 3.8.5.3 leaves it open, and other calendars do so. `rule` and `budget` must outlive the
    /// iterator.
    RuleIterator(const RecurrenceRule &rule, LocalTime start, LocalTime limit, ExpansionBudget &budget);

    /// Leaves out what is before `from`, at no cost. Does nothing for a rule with COUNT: its occurrences must be
    /// counted.
    void skipTo(LocalTime from);
    /// Empty at the end, and when the budget is spent.
    [[nodiscard]] std::optional<LocalTime> next();

private:
    struct Span
    {
        std::chrono::local_days begin;
        std::chrono::local_days end;
    };

    [[nodiscard]] bool isSubDaily() const { return m_rule.frequency < RecurrenceRule::Frequency::Daily; }
    [[nodiscard]] std::vector<std::chrono::seconds> makeOffsets() const;
    [[nodiscard]] std::vector<std::size_t> selectPositions(std::size_t count) const;
    [[nodiscard]] Span span(std::int64_t period) const;
    [[nodiscard]] std::int64_t periodOf(std::chrono::local_days day) const;
    [[nodiscard]] bool advance();
    void addDay(std::chrono::local_days day);
    void addUnits(std::chrono::local_days day);
    [[nodiscard]] std::chrono::seconds refusingUnit(std::chrono::seconds timeOfDay) const;
    [[nodiscard]] LocalTime element(std::size_t index) const;

    const RecurrenceRule &m_rule;
    ExpansionBudget &m_budget;
    const DayFilter m_filter;
    const LocalTime m_start;
    const std::chrono::local_days m_startDay;
    const LocalTime m_limit;
    /// Readings within a day, or within the hour or minute that a sub-daily rule steps by.
    std::vector<std::chrono::seconds> m_offsets;
    std::vector<LocalTime> m_bases;
    std::vector<std::size_t> m_positions;
    std::size_t m_index = 0;
    std::size_t m_size = 0;
    std::int64_t m_period = 0;
    int m_returned = 0;
};

} // namespace mintaro
