#include "Platform/Foundation/Calendar.h"

#include <unicode/calendar.h>

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr int kFirstYear = 1;
constexpr int kLastYear = 9999;

bool inRange(year_month_day day)
{
    return day.ok() && int { day.year() } >= kFirstYear && int { day.year() } <= kLastYear;
}

sys_seconds wholeSeconds(Date date)
{
    return floor<seconds>(date);
}

year_month_day clamped(year_month month, day wanted)
{
    const day last = (month / std::chrono::last).day();
    return month / std::min(wanted, last);
}

year_month_day dayOf(const DateComponents &parts)
{
    return { year { parts.year }, month { static_cast<unsigned>(parts.month) },
        day { static_cast<unsigned>(parts.day) } };
}

} // namespace

DateComponents componentsOf(LocalTime reading)
{
    const local_days day = floor<days>(reading);
    const year_month_day civil { day };
    const hh_mm_ss time { reading - day };
    return { int { civil.year() }, static_cast<int>(unsigned { civil.month() }),
        static_cast<int>(unsigned { civil.day() }), static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()),
        static_cast<int>(weekday { day }.c_encoding()) + 1 };
}

LocalTime readingOf(const DateComponents &parts)
{
    return local_days { dayOf(parts) } + hours { parts.hour } + minutes { parts.minute } + seconds { parts.second };
}

Calendar::Calendar(const Locale &locale, TimeZone timeZone)
    : m_timeZone(std::move(timeZone))
    , m_firstWeekday(1)
    , m_minimumDaysInFirstWeek(1)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Calendar> rules(
        icu::Calendar::createInstance(icu::Locale(locale.identifier().toLatin1().constData()), status));
    if (U_FAILURE(status))
        return;
    const auto first = rules->getFirstDayOfWeek(status);
    if (U_FAILURE(status))
        return;
    m_firstWeekday = first;
    m_minimumDaysInFirstWeek = rules->getMinimalDaysInFirstWeek();
}

LocalTime Calendar::local(Date date) const
{
    return m_timeZone.toLocal(wholeSeconds(date));
}

year_month_day Calendar::civilDay(Date date) const
{
    return year_month_day { floor<days>(local(date)) };
}

DateComponents Calendar::components(Date date) const
{
    return componentsOf(local(date));
}

std::optional<Date> Calendar::date(const DateComponents &parts) const
{
    if (!inRange(dayOf(parts)))
        return std::nullopt;
    return m_timeZone.toInstant(readingOf(parts));
}

Date Calendar::startOfDay(year_month_day day) const
{
    return m_timeZone.toInstant(local_days { day });
}

Date Calendar::startOfDay(Date date) const
{
    return startOfDay(civilDay(date));
}

std::optional<Date> Calendar::dateByAdding(Component component, int value, Date date) const
{
    const LocalTime reading = local(date);
    const local_days today = floor<days>(reading);
    const year_month_day civil { today };
    const year_month_day moved = component == Component::Day
        ? year_month_day { today + days { value } }
        : clamped(year_month { civil.year(), civil.month() } + months { value }, civil.day());
    if (!inRange(moved))
        return std::nullopt;
    // A move by nothing must give the same moment, also in the second of two equal readings.
    if (moved == civil)
        return date;
    return m_timeZone.toInstant(local_days { moved } + (reading - today)) + (date - wholeSeconds(date));
}

std::optional<DateInterval> Calendar::monthInterval(Date date) const
{
    const year_month_day civil = civilDay(date);
    if (!inRange(civil))
        return std::nullopt;
    const year_month month { civil.year(), civil.month() };
    return DateInterval { startOfDay(month / 1), startOfDay((month + months { 1 }) / 1) };
}

std::optional<int> Calendar::daysInMonth(Date date) const
{
    const year_month_day civil = civilDay(date);
    if (!inRange(civil))
        return std::nullopt;
    return static_cast<int>(unsigned { (civil.year() / civil.month() / last).day() });
}

int Calendar::weekOfYear(Date date) const
{
    const local_days day = floor<days>(local(date));
    const auto firstWeekStart = [this](year y) {
        const local_days newYear { y / January / 1 };
        const weekday first { static_cast<unsigned>(m_firstWeekday - 1) };
        const days daysBefore = weekday { newYear } - first;
        const local_days weekStart = newYear - daysBefore;
        return (days { 7 } - daysBefore).count() >= m_minimumDaysInFirstWeek ? weekStart : weekStart + days { 7 };
    };
    const year y = year_month_day { day }.year();
    local_days start = firstWeekStart(y + years { 1 });
    if (day < start)
        start = firstWeekStart(y);
    if (day < start)
        start = firstWeekStart(y - years { 1 });
    return static_cast<int>((day - start).count() / 7) + 1;
}

bool Calendar::isDateInSameDay(Date a, Date b) const
{
    return civilDay(a) == civilDay(b);
}

} // namespace mintaro
