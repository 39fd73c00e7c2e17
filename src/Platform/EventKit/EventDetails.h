#pragma once

#include "Platform/EventKit/EventItem.h"
#include "Platform/EventKit/EventTime.h"
#include "Platform/EventKit/PropertyReader.h"

#include <QStringList>

namespace mintaro {

/// Reads what an event says besides its times: texts, link, people, alarms. `length` is the event's.
void readDetails(const ICalComponent &component, PropertyReader &reader, const QStringList &userAddresses,
    const EventLength &length, EventItem &item);

/// Empty for an alarm without a trigger that makes sense, and for one that stands for none.
[[nodiscard]] std::optional<EKAlarm> readAlarm(
    const ICalComponent &alarm, const EventLength &length, PropertyReader &reader);

/// Whether the calendar user address of an ATTENDEE or ORGANIZER is one of these, which are in lower case.
[[nodiscard]] bool isOneOf(const ICalProperty &person, const QStringList &addresses);

} // namespace mintaro
