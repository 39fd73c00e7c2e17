#pragma once

#include "Platform/Foundation/Dates/DatePhrase.h"
#include "Platform/Foundation/Dates/DateText.h"

namespace mintaro {

/// A time of the day, or a range of times.
struct TimeRead
{
    WrittenTime start;
    std::optional<WrittenTime> end;
    int next;
};

/// The time that begins at that token, its connectors included. `isBesideDay`: a day stands next to it, so that less
/// evidence is enough.
[[nodiscard]] std::optional<TimeRead> readTime(const DateText &text, int at, bool isBesideDay);

/// The hour of the day, 0 to 29: from 24 on in the night that follows. `part` is what the day says, as in "tonight".
[[nodiscard]] int hourOfDay(const WrittenTime &clock, std::optional<DayPart> part);

} // namespace mintaro
