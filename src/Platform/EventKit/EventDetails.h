#pragma once

#include "Platform/EventKit/EventItem.h"
#include "Platform/EventKit/PropertyReader.h"

#include <QStringList>

namespace mintaro {

/// Reads what an event says besides its times: texts, link, people, alarms, status. `item` has its length already.
void readDetails(icalcomponent *component, PropertyReader &reader, const QStringList &userAddresses, EventItem &item);

} // namespace mintaro
