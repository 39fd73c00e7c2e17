#pragma once

#include "Platform/EventKit/EventSeries.h"
#include "Platform/EventKit/Occurrence.h"
#include "Platform/EventKit/RuleIterator.h"

#include <vector>

namespace mintaro {

/// Which occurrences to make: those that may overlap [begin, end), seen from any zone.
struct ExpansionWindow
{
    std::chrono::sys_seconds begin;
    std::chrono::sys_seconds end;
};

enum class ExpansionResult {
    Complete,
    /// A rule has more occurrences than make sense, or finding them costs too much; it was left out.
    RuleRefused,
};

/// The occurrence of an event that happens once, cancelled or not.
[[nodiscard]] Occurrence singleOccurrence(const EventTiming &timing);

/// One start that a series gives, whether an exception takes its place or not.
struct SeriesStart
{
    /// Tells it from the others, as SeriesClock counts.
    std::int64_t key;
    /// On the series' own clock.
    LocalTime reading;
    /// Set where an RDATE brings its own.
    std::optional<EventLength> length;
};

/// The starts in and round the window, ascending: RRULE and RDATE without EXRULE and EXDATE. Empty where a rule was
/// refused.
[[nodiscard]] std::optional<std::vector<SeriesStart>> seriesStarts(
    const EventTiming &master, const Recurrence &recurrence, const ExpansionWindow &window, ExpansionBudget &budget);

/// Appends the occurrences of a series to `result`, in no order: RRULE and RDATE without EXRULE and EXDATE, exceptions
/// in place of what they except, without the cancelled ones (RFC 5545 3.8.5). Occurrences outside the window may be
/// among them.
ExpansionResult expandSeries(
    const EventSeries &series, const ExpansionWindow &window, ExpansionBudget &budget, std::vector<Occurrence> &result);

} // namespace mintaro
