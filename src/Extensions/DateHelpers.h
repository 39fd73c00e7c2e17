#pragma once

#include "Platform/Foundation/Calendar.h"

#include <QString>

namespace mintaro {

// Each of the first three gives the date it was asked of where the calendar has no answer.

[[nodiscard]] Date startOfMonth(Date date, const Calendar &calendar);
/// 23:59:59 of the month's last day.
[[nodiscard]] Date endOfMonth(Date date, const Calendar &calendar);
/// 23:59:59 of the same day.
[[nodiscard]] Date endOfDay(Date date, const Calendar &calendar);

/// The day key: year, month and day as plain decimal numbers without leading zeros, as in 2026-3-7. It identifies a day
/// and is neither sortable nor ISO 8601.
[[nodiscard]] QString dateKey(Date date, const Calendar &calendar);

/// The clock's reading in a zone, always with two digits each and 24 hours, as in 09:05.
[[nodiscard]] QString clockReading(Date date, const TimeZone &timeZone);

} // namespace mintaro
