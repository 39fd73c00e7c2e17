#pragma once

#include "Platform/Foundation/Date.h"

#include <QByteArray>

namespace mintaro {

/// Changes in the text of an RRULE (RFC 5545 3.3.10) that leave its other parts as they stand. A rule of vCalendar 1.0
/// becomes one of RFC 5545.

/// Ends the rule at `until`, whatever ended it before.
[[nodiscard]] QByteArray ruleEndingAt(const QByteArray &rule, const QByteArray &until);
/// Ends the rule after `count` occurrences, whatever ended it before.
[[nodiscard]] QByteArray ruleEndingAfter(const QByteArray &rule, int count);
/// The rule of a series whose occurrence at `from` moves to `to` and all others with it, as far as a rule can say so:
/// days of the week turn, a day of the month or a clock reading that is the one of `from` becomes that of `to`.
[[nodiscard]] QByteArray ruleMoved(const QByteArray &rule, LocalTime from, LocalTime to);

} // namespace mintaro
