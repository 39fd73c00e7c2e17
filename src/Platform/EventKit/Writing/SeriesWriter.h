#pragma once

#include "Platform/EventKit/EventReader.h"
#include "Platform/EventKit/RecurrenceExpander.h"
#include "Platform/EventKit/Writing/ICalNode.h"
#include "Platform/EventKit/Writing/ValueWriter.h"

namespace mintaro {

/// Changes in the VEVENT that a series stands in: `master`, which reads as `read` (without exceptions). `zones` holds
/// the VTIMEZONEs of its object.

/// The window round a start, as SeriesClock counts it, or from one to another.
[[nodiscard]] ExpansionWindow windowAround(std::int64_t from, std::int64_t to);
/// The starts of the series in that window. Throws EKError where its rules are too much to follow.
[[nodiscard]] std::vector<SeriesStart> startsOf(const EventComponent &read, const ExpansionWindow &window);
/// The one of this key, if the series has it.
[[nodiscard]] std::optional<SeriesStart> startAt(const EventComponent &read, std::int64_t key);
[[nodiscard]] bool hasAnyStart(const EventComponent &read);
[[nodiscard]] bool hasStart(const EventComponent &read, LocalTime start);

/// Takes an occurrence out (EXDATE, RFC 5545 3.8.5.1).
void excludeStart(ICalNode &master, const EventComponent &read, LocalTime start);
/// Ends the series before `at`, which is one of its starts.
void endSeries(ICalNode &master, const EventComponent &read, LocalTime at, const ICalComponent &zones);
/// A master for what follows from `at` on, which is one of its starts. Throws EKError where rules cannot say it.
[[nodiscard]] ICalNode continuedSeries(
    const ICalNode &master, const EventComponent &read, LocalTime at, const ICalComponent &zones);

/// How the starts of a series move.
struct SeriesShift
{
    /// One of its starts, and what becomes of it.
    LocalTime from;
    EventTime to;
    TimeStyle style;

    [[nodiscard]] LocalTime apply(LocalTime reading, TimeForm form) const;
};

/// Moves DTSTART, RRULE, RDATE and EXDATE. `length` is the new one.
void moveSeries(ICalNode &master, const EventComponent &read, const SeriesShift &shift, const EventLength &length,
    const ICalComponent &zones);

/// Replaces all rules. Their ends get the form that `start` asks for (RFC 5545 3.3.10).
void writeRules(
    ICalNode &event, const std::vector<EKRecurrenceRule> &rules, const EventTime &start, const TimeZone &viewer);
/// Leaves nothing that makes an event repeat.
void removeRecurrence(ICalNode &event);
/// An event happens when it says that it begins, also where its rule does not say so.
void keepFirstStart(ICalNode &event, const ICalComponent &zones);

/// What the component says by now.
[[nodiscard]] EventComponent readAgain(const ICalNode &event, const ICalComponent &zones);

} // namespace mintaro
