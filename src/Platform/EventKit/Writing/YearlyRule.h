#pragma once

#include <QByteArray>

#include <chrono>
#include <optional>
#include <vector>

namespace mintaro {

/// The parts of a yearly RRULE (RFC 5545 3.3.10) that choose these days and no others of their years: a weekday's place
/// in a month, a weekday on or after a date, or a date ("BYMONTH=3;BYDAY=-1SU"). The days, in any order, are of
/// different years. Empty where they follow no such rule, or are none.
[[nodiscard]] std::optional<QByteArray> yearlyRule(const std::vector<std::chrono::local_days> &days);

} // namespace mintaro
