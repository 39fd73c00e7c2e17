#pragma once

#include "Platform/Foundation/Date.h"
#include "Platform/Foundation/TimeZone.h"

#include <QString>

#include <optional>

namespace mintaro {

/// The moment of an ISO 8601 text: with an offset or Z as it says, otherwise as a reading in `timeZone`; the basic form
/// 20270131T230000Z and a bare date are taken too. Empty for any other text.
[[nodiscard]] std::optional<Date> dateFromIso8601(const QString &text, const TimeZone &timeZone);

} // namespace mintaro
