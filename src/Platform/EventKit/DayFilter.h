#pragma once

#include "Platform/EventKit/RecurrenceRule.h"

namespace mintaro {

/// Which days a rule takes. Within its period a day is taken when every BYxxx part about days matches it, whether the
/// RFC's table (RFC 5545 3.3.10) calls the part expanding or limiting; parts that are missing come from DTSTART.
class DayFilter
{
public:
    DayFilter(const RecurrenceRule &rule, std::chrono::local_days start);

    /// `civil` is the same day.
    [[nodiscard]] bool matches(std::chrono::local_days day, std::chrono::year_month_day civil) const;
    /// False where no day of such a month matches.
    [[nodiscard]] bool takesMonth(std::chrono::month month) const;

private:
    void deriveFrom(std::chrono::year_month_day start);
    [[nodiscard]] bool matchesWeekday(std::chrono::local_days day, std::chrono::year_month_day civil) const;
    [[nodiscard]] bool matchesWeekNumber(std::chrono::local_days day) const;

    enum class Ordinals : unsigned char { None, OfMonth, OfYear };

    std::vector<int> m_months;
    std::vector<int> m_monthDays;
    std::vector<int> m_yearDays;
    std::vector<int> m_weekNumbers;
    std::vector<RecurrenceRule::WeekdayNumber> m_weekdays;
    std::chrono::weekday m_weekStart;
    RecurrenceRule::Frequency m_frequency;
    Ordinals m_ordinals = Ordinals::None;
};

} // namespace mintaro
