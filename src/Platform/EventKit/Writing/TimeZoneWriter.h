#pragma once

#include "Platform/Foundation/TimeZone.h"

#include <QByteArray>

namespace mintaro {

/// The VTIMEZONE (RFC 5545 3.6.5) of a named zone for events from `from` on, from the system's rules, with the zone's
/// own identifier: content lines without folds, parted and ended by "\r\n". Empty for UTC and for a zone that is not
/// named. What goes on by a yearly rule is said without an end; changes that follow none are listed for 20 years, and
/// up to 2040 at least. A `from` before 1900 or after 2100 is taken as that year.
[[nodiscard]] QByteArray timeZoneComponent(const TimeZone &zone, std::chrono::sys_seconds from);

} // namespace mintaro
