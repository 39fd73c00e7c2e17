#pragma once

#include "Platform/Foundation/Calendar.h"
#include "Platform/Foundation/Dates/DateLexicon.h"

#include <optional>

namespace mintaro {

/// The reading of a clock as it was written.
struct WrittenTime
{
    int hour = 12; ///< 0 to 24
    /// Before the hour where negative: of "ten to eight" it is the eight that tells the half of the day.
    int minute = 0;
    int second = 0;
    /// Neither a part of the day nor the writing tells which half is meant.
    bool isOpen = false;
    /// Written as on a clock of 24 hours.
    bool is24Hour = false;
    /// The night that comes, whatever the day.
    bool isMidnight = false;
    /// What was said with the time itself, as "pm".
    std::optional<DayPart> part {};
};

/// How long something lasts or how far away it is.
struct DateLength
{
    std::chrono::seconds exact { 0 };
    std::chrono::days days { 0 };
    std::chrono::months months { 0 };

    [[nodiscard]] bool isExact() const { return days.count() == 0 && months.count() == 0; }
};

/// One end of a phrase. Absent parts were not said.
struct DateMoment
{
    std::optional<std::chrono::local_days> day {};
    std::optional<WrittenTime> clock {};
    std::optional<DayPart> part {};
    /// Said as an absolute moment: nothing else counts then.
    std::optional<Date> instant {};
    /// The day is a day and a month, in the next year that has one.
    bool isYearOpen = false;
};

/// What a date in a text says, before it becomes a moment.
struct DatePhrase
{
    DateMoment start {};
    std::optional<DateMoment> end {};
    std::optional<DateLength> length {};
    /// From the start that was named to the one that was meant: "2 hours before noon".
    std::chrono::seconds shift { 0 };
    /// A part of a title rather than a date.
    bool isTitle = false;
    int next = 0; ///< the token behind it
};

/// What relative dates count from.
struct DateOrigin
{
    Date now;
    /// Of the calendar that the readings belong to.
    std::chrono::local_days today;
    const Calendar &calendar;
    /// 3/12 is in March.
    bool isMonthFirst;
};

} // namespace mintaro
