#pragma once

#include "Platform/EventKit/EKEvent.h"

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
    /// The only alarm that the event has then, or none.
    std::optional<EKAlarm> alarm {};

    /// What the event says, with the first of its rules and of its alarms. Saved as it is, it changes no more of the
    /// event than that the others go.
    [[nodiscard]] static EventDraft fromEvent(const EKEvent &event);
    /// This draft with what differs between the two others taken from `edited`.
    [[nodiscard]] EventDraft withEdits(const EventDraft &base, const EventDraft &edited) const;
};

} // namespace mintaro
