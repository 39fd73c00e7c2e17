#include "CalendarChecks.h"

#include "Platform/EventKit/ICalendarReader.h"
#include "Platform/EventKit/Index/ObjectCodec.h"
#include "Platform/EventKit/RecurrenceExpander.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <tuple>

namespace mintaro {

using namespace std::chrono;

namespace {

/// Far less than the engine allows, so that a rule that uses it up takes no longer than others.
constexpr std::int64_t kSteps = 5'000;

void require(bool holds, const char *otherwise)
{
    if (!holds)
        throw std::logic_error(otherwise);
}

CalendarObject read(const QByteArray &text)
{
    return readCalendarObject(text, { QStringLiteral("me@example.org") }, QStringLiteral("nameless"));
}

void checkTiming(const EventTiming &timing, UidKey uid, const ObjectDetails &details)
{
    require(timing.item < details.items.size(), "an event without its item");
    const EventItem &item = *details.items[timing.item];
    require(uidKey(item.uid) == uid, "an item of another series");
    require(item.isAllDay == (timing.start.form == TimeForm::Day), "an item of another form");
    require(timing.length.nominal >= days { 0 } && timing.length.exact >= seconds { 0 }, "an end before the start");
}

void checkSeries(const EventSeries &series, const ObjectDetails &details)
{
    require(series.master || (series.recurrence && !series.recurrence->exceptions.empty()), "a series of nothing");
    if (series.master)
        checkTiming(*series.master, series.uid, details);
    if (!series.recurrence)
        return;
    for (const SeriesException &each : series.recurrence->exceptions)
        checkTiming(each.timing, series.uid, details);
}

void checkIndex(const ObjectSchedule &schedule)
{
    const QByteArray packed = packSchedule(schedule);
    const auto unpacked = unpackSchedule(packed);
    require(unpacked && packSchedule(*unpacked) == packed, "the index gives back other times");
}

void checkIndex(const ObjectDetails &details)
{
    const QByteArray packed = packDetails(details);
    const auto unpacked = unpackDetails(packed);
    require(unpacked && packDetails(*unpacked) == packed, "the index gives back other details");
    std::size_t visited = 0;
    visitPackedTexts(packed, [&](std::uint32_t number, QStringView title, QStringView location, QStringView notes) {
        const EventItem &item = *details.items.at(number);
        require(number == visited++ && title == item.title && location == item.location && notes == item.notes,
            "a search sees other texts");
    });
    require(visited == details.items.size(), "a search misses texts");
}

/// Some readings of a rule from `from` on.
std::vector<LocalTime> readings(const RecurrenceRule &rule, LocalTime start, LocalTime from, ExpansionBudget &budget)
{
    constexpr std::size_t kEnough = 50;
    RuleIterator iterator(rule, start, start + years { 100 }, budget);
    iterator.skipTo(from);
    std::vector<LocalTime> result;
    for (auto reading = iterator.next(); reading && result.size() < kEnough; reading = iterator.next()) {
        if (*reading >= from)
            result.push_back(*reading);
    }
    return result;
}

void checkRule(const RecurrenceRule &rule, LocalTime start)
{
    ExpansionBudget budget { kSteps };
    const std::vector<LocalTime> all = readings(rule, start, start, budget);
    require(std::adjacent_find(all.begin(), all.end(), std::greater_equal()) == all.end(), "readings do not ascend");
    const std::size_t readingsOfADay = std::max<std::size_t>(rule.byHour.size(), 1)
        * std::max<std::size_t>(rule.byMinute.size(), 1) * std::max<std::size_t>(rule.bySecond.size(), 1);
    const bool isSubDaily = rule.frequency < RecurrenceRule::Frequency::Daily;
    require(
        isSubDaily || kSteps - budget.steps >= static_cast<std::int64_t>(readingsOfADay), "readings are not counted");
    require(!rule.count || static_cast<std::int64_t>(all.size()) <= *rule.count, "more readings than COUNT");
    for (const std::size_t left : { std::size_t { 1 }, all.size() / 2 }) {
        if (left == 0 || left > all.size())
            continue;
        const auto expected = all.end() - static_cast<std::ptrdiff_t>(left);
        ExpansionBudget own { kSteps };
        const std::vector<LocalTime> entered = readings(rule, start, *expected, own);
        const bool same = entered.size() >= left && std::equal(expected, all.end(), entered.begin());
        require(same || own.isSpent(), "other readings where the rule is entered later");
    }
}

auto allOf(const Occurrence &each)
{
    return std::tuple(each.start, each.end, each.original, each.item, each.form, each.originalIsZoned);
}

bool overlaps(const Occurrence &occurrence, const ExpansionWindow &window)
{
    const std::int64_t begin = window.begin.time_since_epoch().count();
    const std::int64_t end = window.end.time_since_epoch().count();
    return occurrence.start < end && (occurrence.end > begin || occurrence.start == begin);
}

void checkOccurrences(const std::vector<Occurrence> &occurrences)
{
    std::vector<std::pair<bool, std::int64_t>> originals;
    for (const Occurrence &each : occurrences) {
        require(each.start <= each.end, "an occurrence ends before it starts");
        originals.emplace_back(each.originalIsZoned, each.original);
    }
    std::sort(originals.begin(), originals.end());
    require(std::adjacent_find(originals.begin(), originals.end()) == originals.end(), "two occurrences of one start");
}

/// What overlaps the window, in order; empty where a rule was refused.
std::optional<std::vector<Occurrence>> expand(const EventSeries &series, const ExpansionWindow &window)
{
    ExpansionBudget budget { kSteps };
    std::vector<Occurrence> occurrences;
    const ExpansionResult outcome = expandSeries(series, window, budget, occurrences);
    const std::int64_t steps = kSteps - budget.steps;
    const std::size_t free = 1 + series.recurrence->addedDates.size() + series.recurrence->exceptions.size();
    require(steps >= 0 && steps <= kSteps && occurrences.size() <= static_cast<std::size_t>(steps) + free,
        "steps are not counted");
    checkOccurrences(occurrences);
    std::erase_if(occurrences, [&](const Occurrence &each) { return !overlaps(each, window); });
    std::sort(occurrences.begin(), occurrences.end(),
        [](const Occurrence &a, const Occurrence &b) { return allOf(a) < allOf(b); });
    return outcome == ExpansionResult::Complete ? std::optional(std::move(occurrences)) : std::nullopt;
}

void checkWindow(const EventSeries &series, const ExpansionWindow &window, sys_seconds middle)
{
    const auto whole = expand(series, window);
    for (const ExpansionWindow &part : { ExpansionWindow { window.begin, middle }, { middle, window.end } }) {
        const auto own = expand(series, part);
        if (!whole || !own)
            continue;
        std::vector<Occurrence> expected;
        std::copy_if(whole->begin(), whole->end(), std::back_inserter(expected),
            [&part](const Occurrence &each) { return overlaps(each, part); });
        const bool same = std::equal(own->begin(), own->end(), expected.begin(), expected.end(),
            [](const Occurrence &a, const Occurrence &b) { return allOf(a) == allOf(b); });
        require(same, "other occurrences in a window than in its parts");
    }
}

void checkWindows(const EventSeries &series)
{
    const LocalTime start
        = series.master ? series.master->start.reading : series.recurrence->exceptions.front().recurrenceId.reading;
    const sys_seconds first { floor<days>(start).time_since_epoch() };
    // Zones answer slowly for years outside their tables.
    if (first >= sys_days { year { 1900 } / 3 / 1 } && first < sys_days { year { 2099 } / 1 / 1 })
        checkWindow(series, { first - days { 40 }, first + days { 100 } }, first + days { 17 } + hours { 5 });
    const sys_seconds fixed = sys_days { year { 2026 } / 3 / 1 };
    checkWindow(series, { fixed, fixed + days { 49 } }, fixed + days { 20 } + seconds { 49'631 });
}

} // namespace

void checkReading(const QByteArray &text)
{
    const CalendarObject object = read(text);
    require(object.schedule.reminders.size() == object.details.reminders.size(), "reminders without their details");
    for (const EventSeries &each : object.schedule.events)
        checkSeries(each, object.details);
    require(packSchedule(object.schedule).size() / 200 <= text.size(), "a small text makes a large schedule");
    checkIndex(object.schedule);
    checkIndex(object.details);
}

void checkExpansion(const QByteArray &text)
{
    // Bare lines are those of an event, so that no byte of a short text is spent on its frame.
    const bool isFramed = text.startsWith("BEGIN:");
    const CalendarObject object = read(isFramed ? text : "BEGIN:VEVENT\n" + text + "\nEND:VEVENT\n");
    for (const EventSeries &series : object.schedule.events) {
        if (!series.recurrence)
            continue;
        checkWindows(series);
        if (!series.master)
            continue;
        for (const auto *rules : { &series.recurrence->rules, &series.recurrence->excludingRules }) {
            for (const RecurrenceRule &rule : *rules)
                checkRule(rule, series.master->start.reading);
        }
    }
}

void checkUnpacking(const QByteArray &bytes)
{
    if (const auto schedule = unpackSchedule(bytes))
        checkIndex(*schedule);
    if (const auto details = unpackDetails(bytes))
        checkIndex(*details);
    const auto isInside = [&bytes](QStringView text) {
        const auto *first = reinterpret_cast<const char *>(text.utf16());
        return text.isEmpty() || (first >= bytes.begin() && first + text.size() * 2 <= bytes.end());
    };
    visitPackedTexts(bytes, [&](std::uint32_t, QStringView title, QStringView location, QStringView notes) {
        require(isInside(title) && isInside(location) && isInside(notes), "a text from elsewhere");
    });
}

} // namespace mintaro
