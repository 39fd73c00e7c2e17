#pragma once

#include "Platform/Foundation/TimeZone.h"

namespace mintaro {

/// DATE, and DATE-TIME without and with a zone (RFC 5545 3.3.4, 3.3.5). A UTC value is zoned.
enum class TimeForm : unsigned char { Day, Floating, Zoned };

/// A DATE or DATE-TIME as an object holds it. A DATE reads as its midnight.
struct EventTime
{
    LocalTime reading {};
    TimeForm form = TimeForm::Floating;
    /// Of meaning where the form is Zoned.
    TimeZone zone;

    [[nodiscard]] bool isZoned() const { return form == TimeForm::Zoned; }
    /// Readings without a zone are the viewer's.
    [[nodiscard]] std::chrono::sys_seconds instant(const TimeZone &viewer) const
    {
        return (isZoned() ? zone : viewer).toInstant(reading);
    }

    friend bool operator==(const EventTime &, const EventTime &) = default;
};

/// How long an occurrence lasts (RFC 5545 3.8.5.3): days as the calendar counts them, then seconds that pass.
struct EventLength
{
    std::chrono::days nominal { 0 };
    std::chrono::seconds exact { 0 };

    [[nodiscard]] std::chrono::seconds total() const { return nominal + exact; }
    friend bool operator==(const EventLength &, const EventLength &) = default;
};

} // namespace mintaro
