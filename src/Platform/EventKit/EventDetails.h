#pragma once

#include "Platform/EventKit/EventItem.h"
#include "Platform/EventKit/EventTime.h"
#include "Platform/EventKit/PropertyReader.h"

#include <QStringList>

namespace mintaro {

/// Reads what an event says besides its times: texts, link, people, alarms. `length` is the event's.
void readDetails(const ICalComponent &component, PropertyReader &reader, const QStringList &userAddresses,
    const EventLength &length, EventItem &item);

} // namespace mintaro
