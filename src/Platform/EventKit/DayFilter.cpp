#include "Platform/EventKit/DayFilter.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;
using Frequency = RecurrenceRule::Frequency;

namespace {

bool contains(const std::vector<int> &list, int value)
{
    return std::find(list.begin(), list.end(), value) != list.end();
}

/// Whether `list` names place `position` of `count` places, counted from either end.
bool containsPlace(const std::vector<int> &list, int position, int count)
{
    return list.empty() || contains(list, position) || contains(list, position - count - 1);
}

int daysBetween(local_days from, local_days to)
{
    return static_cast<int>((to - from).count());
}

local_days newYear(year y)
{
    return local_days { y / January / 1 };
}

} // namespace

DayFilter::DayFilter(const RecurrenceRule &rule, local_days start)
    : m_months(rule.byMonth)
    , m_monthDays(rule.byMonthDay)
    , m_yearDays(rule.byYearDay)
    , m_weekdays(rule.byDay)
    , m_weekStart(rule.weekStart)
    , m_frequency(rule.frequency)
{
    if (m_frequency == Frequency::Yearly) {
        m_weekNumbers = rule.byWeekNumber;
        m_ordinals = !m_weekNumbers.empty() ? Ordinals::None : m_months.empty() ? Ordinals::OfYear : Ordinals::OfMonth;
    } else if (m_frequency == Frequency::Monthly) {
        m_ordinals = Ordinals::OfMonth;
    }
    deriveFrom(year_month_day { start });
}

void DayFilter::deriveFrom(year_month_day start)
{
    if (!m_weekdays.empty() || !m_monthDays.empty() || !m_yearDays.empty() || m_frequency < Frequency::Weekly)
        return;
    if (m_frequency == Frequency::Weekly || !m_weekNumbers.empty()) {
        m_weekdays.push_back({ weekday { local_days { start } }, 0 });
        return;
    }
    m_monthDays.push_back(static_cast<int>(static_cast<unsigned>(start.day())));
    if (m_frequency == Frequency::Yearly && m_months.empty())
        m_months.push_back(static_cast<int>(static_cast<unsigned>(start.month())));
}

bool DayFilter::matches(local_days day, year_month_day civil) const
{
    if (!takesMonth(civil.month()))
        return false;
    if (!m_monthDays.empty()) {
        const year_month_day_last end { civil.year(), month_day_last { civil.month() } };
        const auto position = static_cast<int>(static_cast<unsigned>(civil.day()));
        if (!containsPlace(m_monthDays, position, static_cast<int>(static_cast<unsigned>(end.day()))))
            return false;
    }
    if (!m_yearDays.empty()) {
        const local_days first = newYear(civil.year());
        const int count = daysBetween(first, newYear(civil.year() + years { 1 }));
        if (!containsPlace(m_yearDays, daysBetween(first, day) + 1, count))
            return false;
    }
    return matchesWeekday(day, civil) && (m_weekNumbers.empty() || matchesWeekNumber(day));
}

bool DayFilter::takesMonth(month month) const
{
    return m_months.empty() || contains(m_months, static_cast<int>(static_cast<unsigned>(month)));
}

bool DayFilter::matchesWeekday(local_days day, year_month_day civil) const
{
    if (m_weekdays.empty())
        return true;
    const weekday own { day };
    if (m_ordinals == Ordinals::None)
        return std::any_of(m_weekdays.begin(), m_weekdays.end(), [own](const auto &each) { return each.day == own; });
    const bool inYear = m_ordinals == Ordinals::OfYear;
    const local_days first = inYear ? newYear(civil.year()) : local_days { civil.year() / civil.month() / 1 };
    const local_days last = inYear ? newYear(civil.year() + years { 1 }) - days { 1 }
                                   : local_days { civil.year() / civil.month() / std::chrono::last };
    const int fromStart = daysBetween(first, day) / 7 + 1;
    const int fromEnd = -(daysBetween(day, last) / 7 + 1);
    return std::any_of(m_weekdays.begin(), m_weekdays.end(), [&](const auto &each) {
        return each.day == own && (each.ordinal == 0 || each.ordinal == fromStart || each.ordinal == fromEnd);
    });
}

bool DayFilter::matchesWeekNumber(local_days day) const
{
    // A week belongs to the year that has its fourth day; 28 December is always in the last week of its year.
    const auto fourthDay = [this](local_days any) { return any - (weekday { any } - m_weekStart) + days { 3 }; };
    const auto number
        = [](local_days fourth) { return daysBetween(newYear(year_month_day { fourth }.year()), fourth) / 7 + 1; };
    const local_days own = fourthDay(day);
    const local_days lastWeek = fourthDay(local_days { year_month_day { own }.year() / December / 28 });
    return containsPlace(m_weekNumbers, number(own), number(lastWeek));
}

} // namespace mintaro
