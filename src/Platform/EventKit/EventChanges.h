#pragma once

#include "Platform/EventKit/EKAlarm.h"
#include "Platform/EventKit/EKCalendar.h"
#include "Platform/EventKit/EKRecurrenceRule.h"
#include "Platform/Foundation/Date.h"

#include <QString>

#include <optional>
#include <vector>

namespace mintaro {

/// What was set on a handle and differs from what its item says. An empty text stands for an absent one.
struct EventChanges
{
    std::optional<QString> title;
    std::optional<QString> location;
    std::optional<QString> notes;
    /// As EKEvent tells them.
    std::optional<Date> start;
    std::optional<Date> end;
    std::optional<bool> isAllDay;
    std::optional<std::vector<EKRecurrenceRule>> recurrenceRules;
    std::optional<std::vector<EKAlarm>> alarms;
    /// Null where it stays.
    EKCalendarRef calendar;

    [[nodiscard]] bool changesTime() const { return start || end || isAllDay; }
    [[nodiscard]] bool isEmpty() const
    {
        return !changesTime() && !title && !location && !notes && !recurrenceRules && !alarms && !calendar;
    }
};

} // namespace mintaro
