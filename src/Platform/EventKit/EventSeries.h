#pragma once

#include "Platform/EventKit/EventItem.h"
#include "Platform/EventKit/RecurrenceRule.h"

#include <memory>
#include <optional>
#include <vector>

namespace mintaro {

/// An RDATE; one of the form PERIOD brings its own length (RFC 5545 3.8.5.2).
struct AddedDate
{
    EventTime start;
    std::optional<EventLength> length;
};

/// A component with a RECURRENCE-ID (RFC 5545 3.8.4.4).
struct SeriesException
{
    EventTime recurrenceId;
    /// RANGE=THISANDFUTURE (3.2.13): it speaks for the later occurrences too.
    bool thisAndFuture = false;
    int sequence = 0;
    std::shared_ptr<EventItem> item;
};

/// What makes an event repeat.
struct Recurrence
{
    std::vector<RecurrenceRule> rules;
    std::vector<RecurrenceRule> excludingRules;
    std::vector<AddedDate> addedDates;
    std::vector<EventTime> excludedDates;
    std::vector<SeriesException> exceptions;
};

/// An event with all that belongs to its UID in one object.
struct EventSeries
{
    /// Null where the object holds exceptions of a series that is not there.
    std::shared_ptr<EventItem> master;
    /// Null for an event that happens once.
    std::unique_ptr<Recurrence> recurrence;
};

} // namespace mintaro
