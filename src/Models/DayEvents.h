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

} // namespace mintaro
