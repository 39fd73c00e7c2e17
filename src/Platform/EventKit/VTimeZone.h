#pragma once

#include "Platform/EventKit/PropertyReader.h"
#include "Platform/Foundation/TimeZone.h"

#include <QString>

#include <optional>

namespace mintaro {

/// The zone that the object's own VTIMEZONE of that name describes (RFC 5545 3.6.5): the system's where it names one
/// (X-LIC-LOCATION), else one of its yearly rules and RDATEs up to the year 2100. Empty where there is no such
/// VTIMEZONE. Rules that no zone has are left out, with a complaint to `reader`.
[[nodiscard]] std::optional<TimeZone> readTimeZone(
    const ICalComponent &root, const QString &tzid, PropertyReader &reader);

} // namespace mintaro
