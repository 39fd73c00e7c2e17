#pragma once

#include "Platform/EventKit/EventChanges.h"
#include "Platform/EventKit/EventSeries.h"
#include "Platform/EventKit/Writing/ValueWriter.h"

namespace mintaro {

/// Writes into one VEVENT or VTODO. A value that stands there already is left as it is written.

/// Sets a TEXT; an empty one takes the property away.
void writeText(ICalNode &component, QByteArrayView name, const QString &text);

void writeUid(ICalNode &component, const QString &uid);

/// Sets DTSTART, and DTEND or DURATION, whichever it has. `present` is what stands there.
/// `zones` holds the VTIMEZONEs of its object.
void writeTimes(ICalNode &event, const EventTiming &present, const EventTime &start, const EventLength &length,
    const TimeStyle &style, const ICalComponent &zones);

/// Leaves the alarms that are in the list as they stand, takes all others away, and adds the missing ones.
void writeAlarms(
    ICalNode &event, const std::vector<EKAlarm> &alarms, const EventLength &length, const ICalComponent &zones);

/// Says that the component was changed now. A revision that people should be told of (a time, a rule, a status)
/// raises SEQUENCE (RFC 5545 3.8.7.4), which is its organizer's to do.
void writeChangeTime(ICalNode &component, std::chrono::sys_seconds now);
void raiseSequence(ICalNode &component, const QStringList &userAddresses);

} // namespace mintaro
