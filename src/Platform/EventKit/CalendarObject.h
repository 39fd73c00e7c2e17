#pragma once

#include "Platform/EventKit/EventItem.h"
#include "Platform/EventKit/EventSeries.h"
#include "Platform/EventKit/ReminderRecord.h"

#include <memory>
#include <vector>

namespace mintaro {

[[nodiscard]] UidKey uidKey(QStringView uid);

/// When the events of an iCalendar object happen: all that finding occurrences needs. Small, and kept in memory.
struct ObjectSchedule
{
    std::vector<EventSeries> events;
    /// The UIDs of its reminders.
    std::vector<UidKey> reminders;
    /// What could not be read or was read with a guess, for the log. The rest was read.
    QString complaint;
};

/// What the events and reminders of an object say.
struct ObjectDetails
{
    std::vector<std::shared_ptr<const EventItem>> items;
    /// As many as the schedule names.
    std::vector<std::shared_ptr<const ReminderRecord>> reminders;
};

/// What an iCalendar object (RFC 5545 3.4) holds for us.
struct CalendarObject
{
    ObjectSchedule schedule;
    ObjectDetails details;

    /// Not so for an object that holds nothing and is well-formed.
    [[nodiscard]] bool isUnreadable() const
    {
        return schedule.events.empty() && schedule.reminders.empty() && !schedule.complaint.isEmpty();
    }
};

} // namespace mintaro
