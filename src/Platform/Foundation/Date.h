#pragma once

#include <chrono>

namespace mintaro {

/// An absolute moment, in milliseconds since 1970-01-01T00:00Z. Civil days and clock readings are other types: a
/// TimeZone or a Calendar is the only bridge between them.
using Date = std::chrono::sys_time<std::chrono::milliseconds>;

/// A reading of a calendar and a clock without a zone, to the second.
using LocalTime = std::chrono::local_seconds;

} // namespace mintaro
