#pragma once

#include "Platform/EventKit/EKRecurrenceRule.h"
#include "Platform/Foundation/Date.h"

#include <QString>

#include <optional>

namespace mintaro {

/// An event as its editor has it: all that saving sets.
struct EventDraft
{
    QString title;
    Date startDate {};
    /// Of an all-day event any moment of its last day.
    Date endDate {};
    bool isAllDay = false;
    /// An empty text stands for none, here and in the notes.
    QString location {};
    QString notes {};
    /// Absent: the default calendar.
    std::optional<QString> calendarID {};
    /// The only rule that the event has then, or none.
    std::optional<EKRecurrenceRule> recurrenceRule {};
    /// The only alarm that the event has then, from its start on (negative: before it), or none.
    std::optional<std::chrono::seconds> alertOffset {};
};

} // namespace mintaro
