#include "Platform/Foundation/Dates/CivilDays.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr int kLastYear = 9999;

int isoWeekday(local_days day)
{
    return static_cast<int>(weekday { day }.iso_encoding());
}

} // namespace

local_days weekdayFrom(local_days day, int weekday)
{
    return day + days { (weekday - isoWeekday(day) + 7) % 7 };
}

local_days weekdayBefore(local_days day, int weekday)
{
    return weekdayFrom(day - days { 7 }, weekday);
}

local_days weekdayOfWeek(local_days day, int weekday, int weeks)
{
    return day + days { weekday - isoWeekday(day) + 7 * weeks };
}

std::optional<local_days> dayOf(int year, int month, int number)
{
    const year_month_day day { std::chrono::year { year }, std::chrono::month { static_cast<unsigned>(month) },
        std::chrono::day { static_cast<unsigned>(number) } };
    if (!day.ok() || year < 1 || year > kLastYear)
        return std::nullopt;
    return local_days { day };
}

std::optional<local_days> monthDayFrom(local_days day, int month, int number)
{
    // Around a year like 2100 there are eight years without a leap day.
    constexpr int kMostYears = 8;
    const int year = int { year_month_day { day }.year() };
    for (int i = 0; i <= kMostYears; ++i)
        if (const auto found = dayOf(year + i, month, number); found && *found >= day)
            return found;
    return std::nullopt;
}

std::optional<local_days> dayNumberFrom(local_days day, int number)
{
    if (number < 1 || number > 31)
        return std::nullopt;
    for (year_month month = monthOf(day);; month += months { 1 }) {
        const auto found = dayOf(int { month.year() }, static_cast<int>(unsigned { month.month() }), number);
        if (found && *found >= day)
            return found;
        if (int { month.year() } > kLastYear)
            return std::nullopt;
    }
}

std::optional<local_days> weekdayNumberFrom(local_days day, int weekday, int number)
{
    // Each pair of weekday and number comes at least once in so many months, but for the 29th to the 31st.
    constexpr int kMostMonths = 24;
    auto found = dayNumberFrom(day, number);
    for (int i = 0; found && i < kMostMonths; ++i) {
        if (isoWeekday(*found) == weekday)
            return found;
        found = dayNumberFrom(*found + days { 1 }, number);
    }
    return std::nullopt;
}

std::optional<local_days> nthWeekday(year_month month, int weekday, int number)
{
    if (number < 0)
        return weekdayBefore(local_days { (month + months { 1 }) / 1 }, weekday);
    const local_days found = weekdayFrom(local_days { month / 1 }, weekday) + weeks { number - 1 };
    return monthOf(found) == month ? std::optional(found) : std::nullopt;
}

std::optional<local_days> firstOfMonth(local_days today, int month, std::optional<int> year)
{
    return year ? dayOf(*year, month, 1) : monthDayFrom(local_days { monthOf(today) / 1 }, month, 1);
}

bool isWrittenYear(int number)
{
    return number >= 1900 && number <= 2199;
}

local_days monthsLater(local_days day, months count)
{
    const year_month_day civil { day };
    const year_month month = year_month { civil.year(), civil.month() } + count;
    return local_days { month / std::min(civil.day(), (month / last).day()) };
}

year_month monthOf(local_days day)
{
    const year_month_day civil { day };
    return { civil.year(), civil.month() };
}

} // namespace mintaro
