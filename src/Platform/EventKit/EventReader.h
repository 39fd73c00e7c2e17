#pragma once

#include "Platform/EventKit/EventItem.h"
#include "Platform/EventKit/EventSeries.h"
#include "Platform/EventKit/PropertyReader.h"
#include "Platform/EventKit/ReminderRecord.h"

#include <memory>
#include <optional>

namespace mintaro {

/// A VEVENT as it stands, before it is put together with others of its UID.
struct EventComponent
{
    std::shared_ptr<EventItem> item;
    EventTiming timing;
    /// Null for an event that happens once.
    std::unique_ptr<Recurrence> recurrence;
    /// Set for a component with a RECURRENCE-ID; it holds the same timing.
    std::optional<SeriesException> exception;
};

/// Empty, with a complaint, where the component has no start.
[[nodiscard]] std::optional<EventComponent> readEvent(
    const ICalComponent &component, PropertyReader &reader, const QStringList &userAddresses);

/// Null for a task that was called off.
[[nodiscard]] std::shared_ptr<ReminderRecord> readReminder(const ICalComponent &component, PropertyReader &reader);

} // namespace mintaro
