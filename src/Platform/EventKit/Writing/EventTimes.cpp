#include "Platform/EventKit/Writing/EventTimes.h"

#include "Platform/EventKit/StoreBackend.h"

namespace mintaro {

using namespace std::chrono;

namespace {

/// What can be written as a DATE (RFC 5545 3.3.4), and read in any zone.
void requireYears(const ShownTimes &shown)
{
    constexpr sys_days first { year { 1 } / 1 / 3 };
    constexpr sys_days last { year { 9999 } / 12 / 29 };
    if (shown.start < first || shown.end > last)
        throw EKError("The event is too far in the past or the future.");
}

bool canSay(const TimeStyle &style, Date moment, const TimeZone &viewer)
{
    const sys_seconds instant = floor<seconds>(moment);
    return style.form() != TimeForm::Zoned || style.time(instant, viewer).instant(viewer) == instant;
}

} // namespace

ShownTimes shownTimes(const EventTime &start, const EventLength &length, const TimeZone &viewer)
{
    EventTime nominalEnd = start;
    nominalEnd.reading += length.nominal;
    const seconds cut { start.form == TimeForm::Day ? 1 : 0 };
    return { start.instant(viewer), nominalEnd.instant(viewer) + length.exact - cut };
}

WrittenTimes writtenTimes(const ShownTimes &shown, const TimeStyle &style, const TimeZone &viewer, bool isAlone)
{
    if (shown.end < shown.start)
        throw EKError("The event ends before it starts.");
    requireYears(shown);
    if (isAlone && !(canSay(style, shown.start, viewer) && canSay(style, shown.end, viewer)))
        return writtenTimes(shown, TimeStyle::inZone(TimeZone()), viewer, false);
    const sys_seconds start = floor<seconds>(shown.start);
    const sys_seconds end = floor<seconds>(shown.end);
    if (style.form() == TimeForm::Day) {
        const auto dayOf = [&viewer](sys_seconds instant) { return floor<days>(viewer.toLocal(instant)); };
        return { style.time(start, viewer), { dayOf(end) - dayOf(start) + days { 1 }, seconds { 0 } }, style };
    }
    const seconds length = style.form() == TimeForm::Zoned ? end - start : viewer.toLocal(end) - viewer.toLocal(start);
    return { style.time(start, viewer), { days { 0 }, length }, style };
}

WrittenTimes changedTimes(const EventChanges &changes, const ShownTimes &seen, const WrittenTimes &present,
    const TimeZone &viewer, bool isAlone)
{
    WrittenTimes same = present;
    same.isChanged = false;
    if (!changes.changesTime())
        return same;
    const ShownTimes now = shownTimes(present.start, present.length, viewer);
    ShownTimes shown { changes.start.value_or(now.start), changes.end.value_or(now.end) };
    const bool wasMoved = !(now == seen);
    if (wasMoved && shown.end < shown.start && changes.start)
        shown.end = shown.start + (seen.end - seen.start);
    else if (wasMoved && shown.end < shown.start)
        shown.start = shown.end - (seen.end - seen.start);
    TimeStyle style = present.style;
    const bool isDay = style.form() == TimeForm::Day;
    if (changes.isAllDay.value_or(isDay) != isDay)
        style = isDay ? TimeStyle::inZone(viewer) : TimeStyle::day();
    WrittenTimes written = writtenTimes(shown, style, viewer, isAlone);
    const bool isAsLong = shown.end - shown.start == now.end - now.start
        && (written.start.form == TimeForm::Day) == (present.start.form == TimeForm::Day);
    if (isAsLong)
        written.length = present.length;
    written.isChanged = !(written.start == present.start) || !(written.length == present.length);
    return written;
}

} // namespace mintaro
