#pragma once

#include <QByteArray>

#include <optional>

namespace mintaro {

/// A recurrence rule of vCalendar 1.0 ("W1 MO WE #10") as RFC 5545 3.3.10 writes it. Empty for what is none, and for
/// the clock readings that the old form could have besides.
[[nodiscard]] std::optional<QByteArray> modernRule(const QByteArray &rule);

} // namespace mintaro
