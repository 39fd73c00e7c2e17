#include "Platform/Foundation/Dates/DateResolver.h"

#include "Platform/Foundation/Dates/CivilDays.h"
#include "Platform/Foundation/Dates/ClockReader.h"

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr int kNoon = 12;
constexpr hours kHalfDay { 12 };

hours hourOfPart(DayPart part)
{
    switch (part) {
    case DayPart::Morning:
        return hours { 9 };
    case DayPart::Afternoon:
        return hours { 15 };
    case DayPart::Evening:
    case DayPart::Night:
        return hours { 20 };
    }
    return hours { kNoon };
}

seconds sinceHour(const WrittenTime &clock)
{
    return minutes { clock.minute } + seconds { clock.second };
}

/// Since the day's midnight, on the clock.
seconds readingOf(const DateMoment &moment)
{
    if (!moment.clock)
        return moment.part ? hourOfPart(*moment.part) : hours { kNoon };
    if (moment.clock->isMidnight)
        return hours { 24 } + sinceHour(*moment.clock);
    return hours { hourOfDay(*moment.clock, moment.part) } + sinceHour(*moment.clock);
}

bool isOpen(const DateMoment &moment)
{
    return moment.clock && moment.clock->isOpen;
}

/// The start of a range of times whose half of the day only the end tells.
seconds startReading(const DateMoment &start, const WrittenTime &end, bool isSameDay)
{
    const seconds usual = readingOf(start);
    if (!isOpen(start) || start.part || !isSameDay)
        return usual;
    const seconds literal = hours { start.clock->hour % kNoon } + sinceHour(*start.clock);
    if (end.part) {
        const seconds last = hours { hourOfDay(end, {}) } + sinceHour(end);
        const seconds same = *end.part == DayPart::Morning ? literal : literal + kHalfDay;
        if (same < last)
            return same;
        return same == literal ? literal + kHalfDay : literal;
    }
    // Whoever writes the end as on a clock of 24 hours writes the start so.
    return end.is24Hour ? hours { start.clock->hour } + sinceHour(*start.clock) : usual;
}

/// The end: the first such reading behind the start.
seconds endReading(const DateMoment &end, const DateMoment &start, seconds startsAt, bool isSameDay)
{
    if (!isOpen(end) || !isSameDay || !start.clock)
        return readingOf(end);
    const seconds literal = hours { end.clock->hour % kNoon } + sinceHour(*end.clock);
    if (start.clock->is24Hour && start.clock->hour != kNoon)
        return hours { end.clock->hour } + sinceHour(*end.clock);
    for (const seconds reading : { literal, literal + kHalfDay, literal + 2 * kHalfDay })
        if (reading > startsAt)
            return reading;
    return literal;
}

Date endOf(const DateLength &length, Date start, const Calendar &calendar)
{
    if (length.isExact())
        return start + length.exact;
    const LocalTime reading = calendar.local(start);
    const local_days day = floor<days>(reading);
    const local_days moved = monthsLater(day, length.months) + length.days;
    return calendar.timeZone().toInstant(moved + (reading - day)) + length.exact;
}

} // namespace

ResolvedDate resolved(const DatePhrase &phrase, const DateOrigin &origin)
{
    const TimeZone &zone = origin.calendar.timeZone();
    const DateMoment &start = phrase.start;
    const local_days day = start.day.value_or(origin.today);
    const bool isSameDay = !phrase.end || !phrase.end->day || phrase.end->day == day;
    const seconds startsAt
        = phrase.end && phrase.end->clock ? startReading(start, *phrase.end->clock, isSameDay) : readingOf(start);
    const Date first = (start.instant ? *start.instant : zone.toInstant(day + startsAt)) + phrase.shift;
    if (phrase.length)
        return { first, floor<seconds>(endOf(*phrase.length, first, origin.calendar) - first) };
    if (!phrase.end)
        return { first };
    const local_seconds reading = phrase.end->day.value_or(day) + endReading(*phrase.end, start, startsAt, isSameDay);
    Date last = phrase.end->instant ? *phrase.end->instant : zone.toInstant(reading);
    if (last <= first)
        last = zone.toInstant(reading + days { 1 });
    // A last day before the first is no range.
    if (last <= first)
        return { first };
    return { first, floor<seconds>(last - first) };
}

} // namespace mintaro
