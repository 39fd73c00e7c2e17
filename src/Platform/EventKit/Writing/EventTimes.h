#pragma once

#include "Platform/EventKit/EventChanges.h"
#include "Platform/EventKit/EventSeries.h"
#include "Platform/EventKit/Writing/ValueWriter.h"

namespace mintaro {

/// When an occurrence is, as EKEvent tells it: a whole day ends at 23:59:59 of the viewer's clock.
struct ShownTimes
{
    Date start;
    Date end;

    friend bool operator==(const ShownTimes &, const ShownTimes &) = default;
};

[[nodiscard]] ShownTimes shownTimes(const EventTime &start, const EventLength &length, const TimeZone &viewer);

/// When it is, as it is to be written.
struct WrittenTimes
{
    EventTime start;
    EventLength length;
    TimeStyle style;
    bool isChanged = true;
};

/// Cuts to seconds, or to days where `style` is one of days. With `isAlone`, what happens once and cannot be said in
/// the zone of `style` (the hour that a clock reads twice) is said in UTC. Throws EKError for an end before the start.
[[nodiscard]] WrittenTimes writtenTimes(
    const ShownTimes &shown, const TimeStyle &style, const TimeZone &viewer, bool isAlone);

/// The times that `changes` sets, and what there is now for those that it does not. `seen` is what the user saw: an
/// event that another program moved meanwhile stays as long as that.
[[nodiscard]] WrittenTimes changedTimes(const EventChanges &changes, const ShownTimes &seen,
    const WrittenTimes &present, const TimeZone &viewer, bool isAlone);

} // namespace mintaro
