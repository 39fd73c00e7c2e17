#pragma once

#include "Platform/Foundation/Date.h"

#include <optional>

namespace mintaro {

/// A VALARM with a trigger (RFC 5545 3.8.6.3): either absolute or relative to the event's start.
struct EKAlarm
{
    std::optional<Date> absoluteDate;
    /// Negative before the start; without meaning where absoluteDate is set.
    std::chrono::seconds relativeOffset { 0 };

    friend bool operator==(const EKAlarm &, const EKAlarm &) = default;
};

} // namespace mintaro
