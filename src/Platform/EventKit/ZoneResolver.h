#pragma once

#include "Platform/Foundation/TimeZone.h"

#include <QString>

#include <optional>

namespace mintaro {

/// The system's zone that a TZID means: an IANA name, one behind a prefix ("/vendor/20050126_1/Europe/Rome"), one in
/// another case or with spaces, a Windows name, or a known alias. Empty where nobody knows the name. Answers are
/// remembered; usable from any thread.
[[nodiscard]] std::optional<TimeZone> resolveZone(const QString &tzid);

/// The zone of a TZID that is a mere offset ("GMT+0100", "UTC-05:30", "+02"). Empty for all else.
[[nodiscard]] std::optional<TimeZone> zoneOfOffset(const QString &tzid);

} // namespace mintaro
