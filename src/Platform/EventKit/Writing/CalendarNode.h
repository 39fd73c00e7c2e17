#pragma once

#include "Platform/EventKit/EventTime.h"
#include "Platform/EventKit/Writing/ICalNode.h"

namespace mintaro {

/// A VCALENDAR (RFC 5545 3.4) of ours without anything in it.
[[nodiscard]] ICalNode newCalendar();
/// A VCALENDAR for components that stood in `source`, with the zones that they name.
[[nodiscard]] ICalNode newCalendar(std::vector<ICalNode> components, const ICalNode &source);
/// Sees to it that the calendar explains the zone of a time in it.
void addZone(ICalNode &calendar, const EventTime &time);
/// How many events, tasks and the like are in it.
[[nodiscard]] std::size_t countItems(const ICalNode &node);

} // namespace mintaro
