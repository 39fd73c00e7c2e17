#pragma once

#include "Platform/EventKit/EventTime.h"
#include "Platform/EventKit/ICalComponent.h"

#include <QString>

#include <optional>

namespace mintaro {

/// Values of properties as RFC 5545 3.3 wants them, and as programs write them all the same.

/// UTF-8 (3.1.4), with bytes that are none read as Windows-1252, the usual culprit, and without control characters.
[[nodiscard]] QString decodeText(QByteArrayView bytes);
/// A TEXT (3.3.11), unescaped; also one in the quoted-printable encoding of vCalendar 1.0.
[[nodiscard]] QString readText(const ICalProperty &property);
/// A parameter's value (RFC 6868); null where there is none of this name.
[[nodiscard]] QString readParameter(const ICalProperty &property, QByteArrayView name);

/// A DATE or DATE-TIME (3.3.4, 3.3.5).
struct ICalTime
{
    LocalTime reading {};
    bool isDate = false;
    bool isUtc = false;
};

/// Also the forms of ISO 8601 with dashes and colons, without seconds, with fractions of them, and with an offset,
/// which is taken off: the result is in UTC then. Years 1 to 9999. Empty for what is no time.
[[nodiscard]] std::optional<ICalTime> parseTime(QByteArrayView value);

struct ICalDuration
{
    EventLength length;
    bool isNegative = false;
};

/// A DURATION (3.3.6) of at most a thousand years. Empty for what is none.
[[nodiscard]] std::optional<ICalDuration> parseDuration(QByteArrayView value);

/// A UTC-OFFSET (3.3.14) of less than a day. Empty for what is none.
[[nodiscard]] std::optional<std::chrono::seconds> parseUtcOffset(QByteArrayView value);

} // namespace mintaro
