#pragma once

#include "Models/MeetingInfo.h"
#include "Models/ReminderItem.h"
#include "Platform/EventKit/EKEvent.h"
#include "Platform/Foundation/Calendar.h"
#include "Platform/Foundation/URL.h"

namespace mintaro {

/// What the lists show: a snapshot of one occurrence of an event, or of a reminder dressed up as one, so that an agenda
/// can hold both. It is never written back.
struct CalendarEvent
{
    /// The store's eventIdentifier, shared by all occurrences of a series; for a reminder "reminder-" and its id.
    QString id;
    QString title;
    Date startDate {};
    Date endDate {};
    bool isAllDay = false;
    Color calendarColor;
    /// Empty for a reminder.
    QString calendarTitle;
    std::optional<QString> location;
    std::optional<QString> notes;
    std::optional<MeetingInfo> meetingInfo;
    /// The store object behind the snapshot; detached for a reminder.
    EKEvent ekEvent;
    bool isReminder = false;
    bool isCompleted = false;
    /// The reminder's own id, without the prefix of `id`.
    std::optional<QString> reminderIdentifier;
    std::optional<URL> reminderURL;

    [[nodiscard]] static CalendarEvent fromEvent(const EKEvent &event, std::optional<MeetingInfo> meetingInfo);
    /// `now` stands in for the due date of a reminder without one.
    [[nodiscard]] static CalendarEvent fromReminder(const ReminderItem &reminder, Date now);

    /// "All Day", or start and end on a 24-hour clock, as in "09:00 - 10:30".
    [[nodiscard]] QString timeRange(const TimeZone &timeZone) const;
};

} // namespace mintaro
