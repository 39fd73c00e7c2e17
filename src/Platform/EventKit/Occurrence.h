#pragma once

#include "Platform/EventKit/EventItem.h"

#include <cstdint>
#include <memory>

namespace mintaro {

/// One occurrence as it is kept: seconds since 1970, of UTC for a zoned item, of the civil clock for an all-day or
/// floating one, which the query's zone turns into moments.
struct Occurrence
{
    std::int64_t start = 0;
    /// Exclusive; that of a whole day is the next midnight.
    std::int64_t end = 0;
    /// The start that the series gives.
    std::int64_t original = 0;
    /// The series may be of another kind than its exception.
    bool originalIsZoned = false;
    /// Place of the item in its calendar: the order among those of equal starts.
    std::uint32_t order = 0;
    std::shared_ptr<const EventItem> item;
};

} // namespace mintaro
