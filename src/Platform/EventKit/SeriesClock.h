#pragma once

#include "Platform/EventKit/EventTime.h"
#include "Platform/EventKit/RecurrenceRule.h"

#include <cstdint>

namespace mintaro {

/// What a series counts its times by: moments where it is zoned, else readings, both in seconds.
class SeriesClock
{
public:
    explicit SeriesClock(EventTime start)
        : m_start(std::move(start))
    {
    }

    /// Tells one time from another: the moment of a zoned time, the reading of any other.
    [[nodiscard]] static std::int64_t keyOf(const EventTime &time);
    [[nodiscard]] std::int64_t keyOf(LocalTime reading) const;
    /// The reading that `time` has on the series' own clock. Between a zoned value and a series without a zone there is
    /// no bridge; the reading is taken as it is written.
    [[nodiscard]] LocalTime reading(const EventTime &time) const;
    /// Whether a start with this reading lies behind the end of its rule (RFC 5545 3.3.10).
    [[nodiscard]] bool isPast(const RecurrenceRule::Until &until, LocalTime reading) const;

private:
    EventTime m_start;
};

} // namespace mintaro
