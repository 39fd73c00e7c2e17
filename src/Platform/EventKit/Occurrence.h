#pragma once

#include "Platform/EventKit/EventTime.h"

#include <cstdint>

namespace mintaro {

/// One occurrence as it is kept: seconds since 1970, of UTC for a zoned event, of the civil clock for an all-day or
/// floating one, which the query's zone turns into moments.
struct Occurrence
{
    std::int64_t start = 0;
    /// Exclusive; that of a whole day is the next midnight.
    std::int64_t end = 0;
    /// The start that the series gives.
    std::int64_t original = 0;
    /// Which item says what: counted in its object, and in what a collection holds, through all its objects in the
    /// order of their names.
    std::uint32_t item = 0;
    TimeForm form = TimeForm::Floating;
    /// The series may be of another kind than its exception.
    bool originalIsZoned = false;

    [[nodiscard]] bool isZoned() const { return form == TimeForm::Zoned; }
};

} // namespace mintaro
