#include "Extensions/DateHelpers.h"

namespace mintaro {

namespace {

Date dayOfMonth(Date date, int day, const Calendar &calendar)
{
    DateComponents parts = calendar.components(date);
    return calendar.date({ .year = parts.year, .month = parts.month, .day = day }).value_or(date);
}

} // namespace

Date startOfMonth(Date date, const Calendar &calendar)
{
    return dayOfMonth(date, 1, calendar);
}

Date endOfMonth(Date date, const Calendar &calendar)
{
    const std::optional<int> length = calendar.daysInMonth(date);
    return length ? endOfDay(dayOfMonth(date, *length, calendar), calendar) : date;
}

Date endOfDay(Date date, const Calendar &calendar)
{
    DateComponents parts = calendar.components(date);
    parts.hour = 23;
    parts.minute = 59;
    parts.second = 59;
    return calendar.date(parts).value_or(date);
}

QString dateKey(Date date, const Calendar &calendar)
{
    const DateComponents parts = calendar.components(date);
    return QStringLiteral("%1-%2-%3").arg(parts.year).arg(parts.month).arg(parts.day);
}

QString clockReading(Date date, const TimeZone &timeZone)
{
    const LocalTime local = timeZone.toLocal(std::chrono::floor<std::chrono::seconds>(date));
    const std::chrono::hh_mm_ss time { local - std::chrono::floor<std::chrono::days>(local) };
    return QStringLiteral("%1:%2")
        .arg(time.hours().count(), 2, 10, QLatin1Char('0'))
        .arg(time.minutes().count(), 2, 10, QLatin1Char('0'));
}

} // namespace mintaro
