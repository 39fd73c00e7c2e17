#pragma once

#include "Platform/Foundation/Date.h"
#include "Platform/Foundation/Locale.h"
#include "Platform/Foundation/TimeZone.h"

#include <optional>

namespace mintaro {

/// A day and a clock reading, in parts. `weekday` is 1 for Sunday up to 7 for Saturday.
struct DateComponents
{
    int year = 0;
    int month = 0; ///< 1 to 12
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekday = 0;

    friend bool operator==(const DateComponents &, const DateComponents &) = default;
};

[[nodiscard]] DateComponents componentsOf(LocalTime reading);
/// The weekday is not looked at. Year, month and day must be a day of the calendar.
[[nodiscard]] LocalTime readingOf(const DateComponents &components);

/// A half-open interval of moments.
struct DateInterval
{
    Date start;
    Date end;
};

/// The Gregorian calendar in a zone, with the week rules of a locale. An immutable value, usable from any thread.
/// Operations that Foundation's calendar may refuse give an empty value outside the years 1 to 9999.
class Calendar
{
public:
    enum class Component { Day, Month };

    Calendar(const Locale &locale, TimeZone timeZone);

    [[nodiscard]] const TimeZone &timeZone() const { return m_timeZone; }
    /// 1 for Sunday up to 7 for Saturday.
    [[nodiscard]] int firstWeekday() const { return m_firstWeekday; }

    [[nodiscard]] DateComponents components(Date date) const;
    /// The moment of year, month, day and clock reading; the weekday is not looked at.
    [[nodiscard]] std::optional<Date> date(const DateComponents &components) const;
    [[nodiscard]] LocalTime local(Date date) const;
    [[nodiscard]] std::chrono::year_month_day civilDay(Date date) const;
    [[nodiscard]] Date startOfDay(std::chrono::year_month_day day) const;
    [[nodiscard]] Date startOfDay(Date date) const;

    /// Moves by days or months, keeping the clock reading; a month that is too short clamps the day.
    [[nodiscard]] std::optional<Date> dateByAdding(Component component, int value, Date date) const;
    [[nodiscard]] std::optional<DateInterval> monthInterval(Date date) const;
    /// How many days the month of that date has.
    [[nodiscard]] std::optional<int> daysInMonth(Date date) const;
    /// Week of the year by the locale's first weekday and minimal days.
    [[nodiscard]] int weekOfYear(Date date) const;
    [[nodiscard]] bool isDateInSameDay(Date a, Date b) const;

private:
    TimeZone m_timeZone;
    int m_firstWeekday;
    int m_minimumDaysInFirstWeek;
};

} // namespace mintaro
