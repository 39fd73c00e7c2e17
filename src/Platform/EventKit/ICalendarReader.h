#pragma once

#include "Platform/EventKit/EventSeries.h"
#include "Platform/EventKit/ReminderRecord.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace mintaro {

/// What an iCalendar object holds for us.
struct CalendarObject
{
    std::vector<EventSeries> events;
    std::vector<std::shared_ptr<ReminderRecord>> reminders;
    /// What could not be read or was read with a guess, for the log. The rest was read.
    QStringList complaints;

    /// Not so for an object that holds nothing and is well-formed.
    [[nodiscard]] bool isUnreadable() const { return events.empty() && reminders.empty() && !complaints.isEmpty(); }
};

/// Parses an object (RFC 5545 3.4), also one of many events or a bare component. `userAddresses`: the user's own e-mail
/// addresses in lower case. Any text gives a result; a text that holds nothing, an empty one with a complaint.
[[nodiscard]] CalendarObject readCalendarObject(const QByteArray &text, const QStringList &userAddresses);

} // namespace mintaro
