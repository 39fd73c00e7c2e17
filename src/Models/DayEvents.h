#pragma once

#include "Extensions/DateHelpers.h"
#include "Models/CalendarEvent.h"

#include <vector>

namespace mintaro {

/// One day of a list.
struct DayEvents
{
    /// The start of the day.
    Date date {};
    /// In display order.
    std::vector<CalendarEvent> events;

    [[nodiscard]] QString id(const Calendar &calendar) const { return dateKey(date, calendar); }
};

/// Ascending, each day with at least one event, each event under the day it starts on and under no other; a day's
/// events in ascending order of their starts.
[[nodiscard]] std::vector<DayEvents> groupedByDay(std::vector<CalendarEvent> events, const Calendar &calendar);

} // namespace mintaro
