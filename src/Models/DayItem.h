#pragma once

#include "Extensions/DateHelpers.h"
#include "Platform/Foundation/Color.h"

#include <vector>

namespace mintaro {

/// One cell of the month grid.
struct DayItem
{
    Date date {};
    /// The day of the month in plain digits.
    QString number;
    bool isCurrentMonth = false;
    /// Never true outside the shown month.
    bool isToday = false;
    /// Never true outside the shown month.
    bool isSelected = false;
    std::vector<Color> eventColors;
    bool hasReminders = false;

    [[nodiscard]] QString id(const Calendar &calendar) const { return dateKey(date, calendar); }

    friend bool operator==(const DayItem &, const DayItem &) = default;
};

} // namespace mintaro
