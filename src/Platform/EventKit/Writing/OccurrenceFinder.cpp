#include "Platform/EventKit/Writing/OccurrenceFinder.h"

#include "Platform/EventKit/SeriesClock.h"
#include "Platform/EventKit/StoreBackend.h"
#include "Platform/EventKit/Writing/SeriesWriter.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

/// The occurrence that a handle names, by the clock of a series with this start.
std::int64_t keyOf(const EventReference &reference, const EventTime &start, const TimeZone &viewer)
{
    const seconds original { reference.original };
    if (start.isZoned() && !reference.originalIsZoned)
        return viewer.toInstant(LocalTime { original }).time_since_epoch().count();
    const LocalTime reading = !start.isZoned() && reference.originalIsZoned ? viewer.toLocal(sys_seconds { original })
                                                                            : LocalTime { original };
    return (start.form == TimeForm::Day ? LocalTime { floor<days>(reading) } : reading).time_since_epoch().count();
}

} // namespace

LocalTime exceptedReading(const EventTime &id, const EventTime &seriesStart)
{
    if (id.form == TimeForm::Day && seriesStart.form != TimeForm::Day)
        return floor<days>(id.reading) + (seriesStart.reading - floor<days>(seriesStart.reading));
    return SeriesClock(seriesStart).reading(id);
}

std::int64_t exceptedKey(const EventTime &id, const EventTime &seriesStart)
{
    if (id.isZoned() && seriesStart.isZoned())
        return SeriesClock::keyOf(id);
    return SeriesClock(seriesStart).keyOf(exceptedReading(id, seriesStart));
}

EventTarget OccurrenceFinder::find(const EventReference &reference)
{
    std::vector<EventEntry *> masters;
    for (EventEntry &entry : m_text.entries()) {
        if (entry.isMaster())
            masters.push_back(&entry);
    }
    // Of several events with one UID the one that the user saw.
    std::stable_partition(masters.begin(), masters.end(),
        [&](const EventEntry *master) { return *master->read.item == *reference.item; });
    for (EventEntry *master : masters) {
        if (auto target = find(reference, *master, masters.size() == 1))
            return *target;
    }
    for (EventEntry *entry : exceptions(nullptr)) {
        const EventTime &id = entry->read.exception->recurrenceId;
        const std::int64_t key = SeriesClock::keyOf(id);
        if (masters.empty() && key == keyOf(reference, id, m_viewer))
            return { nullptr, entry, entry, key, id.reading, entry->read.timing.start, entry->read.timing.length };
    }
    throw EKError("The event no longer exists.");
}

std::optional<EventTarget> OccurrenceFinder::find(const EventReference &reference, EventEntry &master, bool isOnly)
{
    const EventTiming &timing = master.read.timing;
    std::int64_t key = keyOf(reference, timing.start, m_viewer);
    for (const EventEntry *each : exceptions(&master)) {
        const EventTime &id = each->read.exception->recurrenceId;
        if (id.isZoned() == reference.originalIsZoned && SeriesClock::keyOf(id) == reference.original)
            key = exceptedKey(id, timing.start);
    }
    EventTarget target { &master, nullptr, &master, key, timing.start.reading, timing.start, timing.length };
    if (!repeats(master)) {
        // One that happens once is the same one wherever it was moved to.
        target.key = SeriesClock::keyOf(timing.start);
        return isOnly || target.key == key ? std::optional(target) : std::nullopt;
    }
    target.exception = exceptionAt(master, key);
    if (const auto start = startAt(master.read, key)) {
        target.reading = start->reading;
        target.start.reading = start->reading;
        target.length = start->length.value_or(timing.length);
    } else if (target.exception) {
        target.reading = exceptedReading(target.exception->read.exception->recurrenceId, timing.start);
    } else {
        return std::nullopt;
    }
    if (target.exception) {
        target.source = target.exception;
        target.start = target.exception->read.timing.start;
        target.length = target.exception->read.timing.length;
    } else {
        applyRange(target);
    }
    return target;
}

bool OccurrenceFinder::repeats(const EventEntry &master)
{
    const Recurrence *recurrence = master.read.recurrence.get();
    return (recurrence && (!recurrence->rules.empty() || !recurrence->addedDates.empty()))
        || !exceptions(&master).empty();
}

bool OccurrenceFinder::isFirst(const EventEntry &master)
{
    auto &entries = m_text.entries();
    return &*std::find_if(entries.begin(), entries.end(), [](const EventEntry &each) { return each.isMaster(); })
        == &master;
}

bool OccurrenceFinder::hasTwins()
{
    auto &entries = m_text.entries();
    return std::count_if(entries.begin(), entries.end(), [](const EventEntry &each) { return each.isMaster(); }) > 1;
}

std::vector<EventEntry *> OccurrenceFinder::exceptions(const EventEntry *master)
{
    std::vector<EventEntry *> result;
    if (master && !isFirst(*master))
        return result;
    for (EventEntry &entry : m_text.entries()) {
        if (!entry.isMaster() && !entry.isRemoved())
            result.push_back(&entry);
    }
    return result;
}

std::vector<EventEntry *> OccurrenceFinder::exceptionsFrom(const EventTarget &target)
{
    std::vector<EventEntry *> result = exceptions(target.master);
    std::erase_if(result, [&](const EventEntry *each) {
        return exceptedKey(each->read.exception->recurrenceId, target.master->read.timing.start) < target.key;
    });
    return result;
}

/// Of several the one of the highest SEQUENCE, and of these the last.
EventEntry *OccurrenceFinder::exceptionAt(const EventEntry &master, std::int64_t key)
{
    EventEntry *best = nullptr;
    for (EventEntry *each : exceptions(&master)) {
        const SeriesException &exception = *each->read.exception;
        const bool isHere = exceptedKey(exception.recurrenceId, master.read.timing.start) == key;
        if (isHere && (!best || exception.sequence >= best->read.exception->sequence))
            best = each;
    }
    return best;
}

/// Where an earlier exception speaks for this occurrence too (RANGE=THISANDFUTURE).
void OccurrenceFinder::applyRange(EventTarget &target)
{
    const EventTime &seriesStart = target.master->read.timing.start;
    EventEntry *governing = nullptr;
    EventSeries series;
    series.master = target.master->read.timing;
    series.recurrence = target.master->read.recurrence ? std::make_unique<Recurrence>(*target.master->read.recurrence)
                                                       : std::make_unique<Recurrence>();
    std::int64_t latest = 0;
    for (EventEntry *each : exceptions(target.master)) {
        const SeriesException &exception = *each->read.exception;
        const std::int64_t key = exceptedKey(exception.recurrenceId, seriesStart);
        series.recurrence->exceptions.push_back(exception);
        if (!exception.thisAndFuture || key > target.key || (governing && key < latest))
            continue;
        governing = each;
        latest = key;
    }
    if (!governing)
        return;
    ExpansionBudget budget { 1'000'000 };
    std::vector<Occurrence> all;
    expandSeries(series, windowAround(target.key, target.key), budget, all);
    for (const Occurrence &each : all) {
        if (each.original != target.key)
            continue;
        target.source = governing;
        target.start = governing->read.timing.start;
        target.length = governing->read.timing.length;
        const seconds start { each.start };
        target.start.reading
            = target.start.isZoned() ? target.start.zone.toLocal(sys_seconds { start }) : LocalTime { start };
        return;
    }
    throw EKError("The event no longer exists.");
}

bool OccurrenceFinder::beginsBefore(const EventTarget &target)
{
    if (exceptionsFrom(target).size() < exceptions(target.master).size())
        return true;
    const EventComponent &read = target.master->read;
    std::int64_t first = SeriesClock::keyOf(read.timing.start);
    // Dates may have been added before it.
    if (read.recurrence) {
        for (const AddedDate &added : read.recurrence->addedDates)
            first = std::min(first, exceptedKey(added.start, read.timing.start));
    }
    const std::vector<SeriesStart> starts = startsOf(read, windowAround(first, target.key));
    return std::any_of(
        starts.begin(), starts.end(), [&target](const SeriesStart &each) { return each.key < target.key; });
}

} // namespace mintaro
