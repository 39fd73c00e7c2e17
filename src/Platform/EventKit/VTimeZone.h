#pragma once

#include "Platform/EventKit/PropertyReader.h"
#include "Platform/Foundation/TimeZone.h"

#include <QString>

#include <optional>

namespace mintaro {

/// The zone that a VTIMEZONE describes (RFC 5545 3.6.5): the system's where it names one (X-LIC-LOCATION), else one of
/// its yearly rules and RDATEs up to the year 2100. Empty where it describes none. Rules that no zone has are left out,
/// with a complaint to `reader`.
[[nodiscard]] std::optional<TimeZone> readTimeZone(const ICalComponent &timeZone, PropertyReader &reader);

} // namespace mintaro
