#include "Platform/EventKit/Writing/SeriesWriter.h"

#include "Platform/EventKit/ICalValue.h"
#include "Platform/EventKit/SeriesClock.h"
#include "Platform/EventKit/StoreBackend.h"
#include "Platform/EventKit/Writing/EventWriter.h"
#include "Platform/EventKit/Writing/RuleText.h"

#include <QByteArrayList>

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr std::int64_t kMaximumSteps = 5'000'000;
/// How far ahead a divided series is compared with the whole one.
constexpr days kCompared { 4 * 366 };
/// Beyond which nobody looks for an occurrence.
constexpr days kFar { 100 * 366 };

[[noreturn]] void failTooMuch()
{
    throw EKError("The repetition rule of this event is too complicated to change here.");
}

/// Calls `visit` with each property of the name, which may change it or clear it.
template <typename Visit>
void forEachProperty(ICalNode &component, QByteArrayView name, Visit &&visit)
{
    for (ICalNode &child : component.children()) {
        if (child.isProperty(name))
            visit(child);
    }
}

TimeStyle styleOf(const ICalNode &master, const EventComponent &read)
{
    return { *master.find("DTSTART"), read.timing.start };
}

/// What a rule gives before a start, and next.
struct RuleProgress
{
    int before = 0;
    std::optional<LocalTime> next;
};

RuleProgress progressOf(const RecurrenceRule &rule, const EventTime &start, LocalTime at)
{
    const SeriesClock clock(start);
    ExpansionBudget budget { kMaximumSteps };
    RuleIterator readings(rule, start.reading, at + kFar, budget);
    RuleProgress progress;
    while (const auto reading = readings.next()) {
        if (rule.until && clock.isPast(*rule.until, *reading))
            break;
        if (*reading >= at) {
            progress.next = *reading;
            break;
        }
        ++progress.before;
    }
    if (budget.isSpent())
        failTooMuch();
    return progress;
}

/// The value of an UNTIL that is the last moment before `at`, or `at` itself.
QByteArray untilValue(const EventTime &start, const LocalTime &at, bool isBefore)
{
    const SeriesClock clock(start);
    if (start.form == TimeForm::Day)
        return writeDay(isBefore ? at - days { 1 } : at);
    const seconds step { isBefore ? 1 : 0 };
    if (start.isZoned())
        return writeUtc(sys_seconds { seconds { clock.keyOf(at) } } - step);
    return writeReading(at - step);
}

/// Keeps the values of a list of times that `keeps` answers true for.
template <typename Keeps>
void filterTimes(ICalNode &event, QByteArrayView name, const ICalComponent &zones, const Keeps &keeps)
{
    PropertyReader reader(zones);
    forEachProperty(event, name, [&](ICalNode &node) {
        const ICalProperty &property = node.property();
        const std::vector<QByteArrayView> all = listOf(property);
        QByteArrayList kept;
        for (const QByteArrayView value : all) {
            const qsizetype slash = value.indexOf('/');
            const auto time = reader.time(property, slash < 0 ? value : value.first(slash));
            if (!time || keeps(*time))
                kept.append(value.toByteArray());
        }
        if (kept.isEmpty())
            node.clear();
        else if (kept.size() < static_cast<qsizetype>(all.size()))
            node = ICalNode::makeProperty(name, property.parameters.toByteArray(), kept.join(','));
    });
}

/// Whether a time of a list is `at` or later.
bool isFrom(const EventTime &time, const EventTime &start, LocalTime at)
{
    if (time.form == TimeForm::Day && start.form != TimeForm::Day)
        return floor<days>(time.reading) >= floor<days>(at);
    const SeriesClock clock(start);
    return clock.reading(time) >= at;
}

ICalNode addedDate(const AddedDate &added, LocalTime reading, const TimeStyle &style)
{
    const QByteArray value = style.value(reading);
    if (!added.length || style.form() == TimeForm::Day)
        return ICalNode::makeProperty("RDATE", style.parameters(), value);
    return ICalNode::makeProperty(
        "RDATE", style.parameters() + ";VALUE=PERIOD", value + '/' + writeDuration(*added.length));
}

void moveLists(ICalNode &master, const Recurrence &recurrence, const EventTime &start, const SeriesShift &shift)
{
    const SeriesClock clock(start);
    master.removeProperties("RDATE");
    for (const AddedDate &added : recurrence.addedDates)
        master.add(addedDate(added, shift.apply(clock.reading(added.start), start.form), shift.style));
    master.removeProperties("EXDATE");
    for (const EventTime &excluded : recurrence.excludedDates) {
        // A day that stands for any time of it stays one.
        const bool isDay = excluded.form == TimeForm::Day;
        const LocalTime reading
            = isDay ? shift.apply(excluded.reading, TimeForm::Day) : shift.apply(clock.reading(excluded), start.form);
        const TimeStyle style = isDay && start.form != TimeForm::Day ? TimeStyle::day() : shift.style;
        master.add(style.property("EXDATE", reading));
    }
}

} // namespace

ExpansionWindow windowAround(std::int64_t from, std::int64_t to)
{
    return { sys_seconds { seconds { from } } - days { 1 }, sys_seconds { seconds { to } } + days { 1 } };
}

std::vector<SeriesStart> startsOf(const EventComponent &read, const ExpansionWindow &window)
{
    static const Recurrence none;
    ExpansionBudget budget { kMaximumSteps };
    auto starts = seriesStarts(read.timing, read.recurrence ? *read.recurrence : none, window, budget);
    if (!starts)
        failTooMuch();
    return std::move(*starts);
}

std::optional<SeriesStart> startAt(const EventComponent &read, std::int64_t key)
{
    const std::vector<SeriesStart> starts = startsOf(read, windowAround(key, key));
    const auto found
        = std::find_if(starts.begin(), starts.end(), [key](const SeriesStart &each) { return each.key == key; });
    return found == starts.end() ? std::nullopt : std::optional(*found);
}

bool hasAnyStart(const EventComponent &read)
{
    const auto isEndless = [](const RecurrenceRule &rule) { return !rule.count && !rule.until; };
    if (read.recurrence && std::any_of(read.recurrence->rules.begin(), read.recurrence->rules.end(), isEndless))
        return true;
    const std::int64_t first = SeriesClock::keyOf(read.timing.start);
    const std::int64_t far = seconds { kFar }.count();
    return !startsOf(read, windowAround(first - far, first + far)).empty();
}

bool hasStart(const EventComponent &read, LocalTime start)
{
    return startAt(read, SeriesClock(read.timing.start).keyOf(start)).has_value();
}

void excludeStart(ICalNode &master, const EventComponent &read, LocalTime start)
{
    master.add(styleOf(master, read).property("EXDATE", start));
}

void endSeries(ICalNode &master, const EventComponent &read, LocalTime at, const ICalComponent &zones)
{
    const EventTime &start = read.timing.start;
    forEachProperty(master, "RRULE", [&](ICalNode &node) {
        const QByteArray text = node.property().value.toByteArray();
        const auto rule = RecurrenceRule::parse(text);
        if (!rule)
            return;
        const RuleProgress progress = progressOf(*rule, start, at);
        if (progress.before == 0)
            return node.clear();
        if (!progress.next)
            return;
        const QByteArray ended
            = rule->count ? ruleEndingAfter(text, progress.before) : ruleEndingAt(text, untilValue(start, at, true));
        node = ICalNode::makeProperty("RRULE", node.property().parameters.toByteArray(), ended);
    });
    const auto isEarlier = [&](const EventTime &time) { return !isFrom(time, start, at); };
    filterTimes(master, "RDATE", zones, isEarlier);
    filterTimes(master, "EXDATE", zones, isEarlier);
    // Without a rule an event happens when it begins, whether its rule gave this start or not.
    if (!master.find("RRULE") && (start.reading >= at || !hasStart(read, start.reading)))
        excludeStart(master, read, start.reading);
}

ICalNode continuedSeries(const ICalNode &master, const EventComponent &read, LocalTime at, const ICalComponent &zones)
{
    const EventTime &start = read.timing.start;
    ICalNode continued = master;
    // The rules count from a start of their own: the first that any of them gives from there on.
    std::optional<LocalTime> first;
    forEachProperty(continued, "RRULE", [&](ICalNode &node) {
        const QByteArray text = node.property().value.toByteArray();
        const auto rule = RecurrenceRule::parse(text);
        if (!rule)
            return;
        const RuleProgress progress = progressOf(*rule, start, at);
        if (!progress.next)
            return node.clear();
        first = std::min(first.value_or(*progress.next), *progress.next);
        if (rule->count)
            node = ICalNode::makeProperty("RRULE", node.property().parameters.toByteArray(),
                ruleEndingAfter(text, *rule->count - progress.before));
    });
    const auto isLater = [&](const EventTime &time) { return isFrom(time, start, at); };
    filterTimes(continued, "RDATE", zones, isLater);
    filterTimes(continued, "EXDATE", zones, isLater);
    EventTime newStart = start;
    newStart.reading = first.value_or(at);
    writeTimes(continued, read.timing, newStart, read.timing.length, styleOf(master, read), zones);

    const SeriesClock clock(start);
    const ExpansionWindow window = windowAround(clock.keyOf(at), clock.keyOf(at + kCompared));
    const auto keysFrom = [&](const EventComponent &component) {
        std::vector<std::int64_t> keys;
        for (const SeriesStart &each : startsOf(component, window)) {
            if (each.reading >= at && each.reading <= at + kCompared)
                keys.push_back(each.key);
        }
        return keys;
    };
    if (keysFrom(read) != keysFrom(readAgain(continued, zones)))
        throw EKError("The rules of this event do not allow changing only part of the series.");
    return continued;
}

LocalTime SeriesShift::apply(LocalTime reading, TimeForm form) const
{
    if (form != TimeForm::Day && to.form != TimeForm::Day)
        return reading + (to.reading - from);
    const local_days day = floor<days>(reading) + (floor<days>(to.reading) - floor<days>(from));
    return day + (form == TimeForm::Day ? to.reading - floor<days>(to.reading) : seconds { 0 });
}

void moveSeries(ICalNode &master, const EventComponent &read, const SeriesShift &shift, const EventLength &length,
    const ICalComponent &zones)
{
    const EventTime &start = read.timing.start;
    EventTime newStart = shift.to;
    newStart.reading = shift.apply(start.reading, start.form);
    writeTimes(master, read.timing, newStart, length, shift.style, zones);
    if (newStart == start || !read.recurrence)
        return;
    const SeriesClock clock(start);
    forEachProperty(master, "RRULE", [&](ICalNode &node) {
        const QByteArray text = node.property().value.toByteArray();
        const auto rule = RecurrenceRule::parse(text);
        if (!rule)
            return;
        QByteArray moved = ruleMoved(text, start.reading, newStart.reading);
        if (rule->until) {
            const TimeForm untilForm = rule->until->isUtc ? TimeForm::Zoned : TimeForm::Floating;
            LocalTime end = clock.reading({ rule->until->reading, untilForm, TimeZone() });
            // A day on which the rule ended before its occurrence is not its last one.
            const bool isBefore = end - floor<days>(end) < start.reading - floor<days>(start.reading);
            if (start.form != TimeForm::Day && newStart.form == TimeForm::Day && isBefore)
                end -= days { 1 };
            moved = ruleEndingAt(moved, untilValue(newStart, shift.apply(end, start.form), false));
        }
        if (moved != text)
            node = ICalNode::makeProperty("RRULE", node.property().parameters.toByteArray(), moved);
    });
    moveLists(master, *read.recurrence, start, shift);
}

void writeRules(
    ICalNode &event, const std::vector<EKRecurrenceRule> &rules, const EventTime &start, const TimeZone &viewer)
{
    event.removeProperties("RRULE");
    for (const EKRecurrenceRule &each : rules) {
        QByteArray text = each.rule;
        const auto rule = RecurrenceRule::parse(text);
        const auto isControl = [](char byte) { return static_cast<unsigned char>(byte) < ' '; };
        // A line break in it would begin another property.
        if (!rule || std::any_of(text.begin(), text.end(), isControl))
            throw EKError("The repetition rule makes no sense.");
        if (rule->until) {
            const TimeZone &zone = start.isZoned() ? start.zone : viewer;
            const LocalTime given = rule->until->reading;
            LocalTime end = rule->until->isUtc ? zone.toLocal(sys_seconds { given.time_since_epoch() }) : given;
            // A day lasts until its end.
            if (!rule->until->isUtc && given == floor<days>(given) && start.form != TimeForm::Day)
                end += days { 1 } - seconds { 1 };
            text = ruleEndingAt(text, untilValue(start, end, false));
        }
        event.add(ICalNode::makeProperty("RRULE", {}, text));
    }
}

void removeRecurrence(ICalNode &event)
{
    for (const char *name : { "RRULE", "RDATE", "EXRULE", "EXDATE" })
        event.removeProperties(name);
}

void keepFirstStart(ICalNode &event, const ICalComponent &zones)
{
    const EventComponent read = readAgain(event, zones);
    if (read.recurrence && !hasStart(read, read.timing.start.reading))
        event.add(styleOf(event, read).property("RDATE", read.timing.start.reading));
}

EventComponent readAgain(const ICalNode &event, const ICalComponent &zones)
{
    PropertyReader reader(zones);
    auto read = readEvent(event.asComponent(), reader, {});
    if (!read)
        throw EKError("The event has no start.");
    return std::move(*read);
}

} // namespace mintaro
