#pragma once

#include "Platform/EventKit/EventTime.h"
#include "Platform/EventKit/RecurrenceRule.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace mintaro {

/// When one VEVENT happens, without what it says.
struct EventTiming
{
    EventTime start;
    EventLength length;
    bool isCancelled = false;
    /// Which of its object's items says what.
    std::uint32_t item = 0;
};

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
    EventTiming timing;
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

/// Stands for a UID where only equality counts: its 64-bit FNV-1a hash. The same at each run.
using UidKey = std::uint64_t;

/// When an event happens, with all that belongs to its UID in one object.
struct EventSeries
{
    UidKey uid = 0;
    /// Absent where the object holds exceptions of a series that is not in it.
    std::optional<EventTiming> master;
    /// Null for an event that happens once.
    std::unique_ptr<Recurrence> recurrence;
};

/// Adds exceptions to those of a series: of two for the same occurrence the one of the higher SEQUENCE holds, else the
/// later one.
void mergeExceptions(std::vector<SeriesException> &into, std::vector<SeriesException> exceptions);

} // namespace mintaro
