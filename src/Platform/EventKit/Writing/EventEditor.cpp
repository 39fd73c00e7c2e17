#include "Platform/EventKit/Writing/EventEditor.h"

#include "Platform/EventKit/SeriesClock.h"
#include "Platform/EventKit/StoreBackend.h"
#include "Platform/EventKit/Writing/CalendarNode.h"
#include "Platform/EventKit/Writing/EventWriter.h"
#include "Platform/EventKit/Writing/SeriesWriter.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

void writeTexts(ICalNode &node, const EventChanges &changes)
{
    if (changes.title)
        writeText(node, "SUMMARY", *changes.title);
    if (changes.location)
        writeText(node, "LOCATION", *changes.location);
    if (changes.notes)
        writeText(node, "DESCRIPTION", *changes.notes);
}

/// What of a change of the series holds for an exception too: where it says the same, it follows.
EventChanges followedChanges(const EventChanges &changes, const EventItem &master, const EventItem &exception)
{
    EventChanges followed;
    if (master.title == exception.title)
        followed.title = changes.title;
    if (master.location == exception.location)
        followed.location = changes.location;
    if (master.notes == exception.notes)
        followed.notes = changes.notes;
    if (master.alarms == exception.alarms)
        followed.alarms = changes.alarms;
    return followed;
}

void requireWhole(const EventEntry &entry)
{
    if (entry.read.item->isDamaged)
        throw EKError("Part of this event cannot be read, so it was left unchanged to avoid losing anything.");
}

} // namespace

EventEditor::EventEditor(std::vector<ObjectText> objects, const QString &uid, EditContext context)
    : m_text(std::move(objects), uid, context.userAddresses)
    , m_context(std::move(context))
    , m_finder(m_text, m_context.viewer)
{
    m_edit.uid = uid;
}

void EventEditor::noteOverwritten(
    const EventTarget &target, const EventReference &reference, const EventChanges &changes)
{
    const EventItem &base = *reference.item;
    const EventItem &present = *target.source->read.item;
    const auto note = [this](const char *field, const auto &change, const auto &before, const auto &now) {
        if (change && before != now && *change != now)
            m_edit.overwritten.append(QLatin1String(field));
    };
    const ShownTimes shown = shownTimes(target.start, target.length, m_context.viewer);
    note("title", changes.title, base.title, present.title);
    note("location", changes.location, base.location, present.location);
    note("notes", changes.notes, base.notes, present.notes);
    note("start", changes.start, reference.start, shown.start);
    note("end", changes.end, reference.end, shown.end);
    note("all-day", changes.isAllDay, base.isAllDay, present.isAllDay);
    note("alerts", changes.alarms, base.alarms, present.alarms);
    const EventItem &series = target.master ? *target.master->read.item : present;
    note("repetition", changes.recurrenceRules, base.recurrenceRules, series.recurrenceRules);
}

void EventEditor::refuseRanges(const EventEntry &master)
{
    for (const EventEntry *each : m_finder.exceptions(&master)) {
        if (each->read.exception->thisAndFuture)
            throw EKError(
                "Another program split this series in its own way, so its events can only be changed one by one.");
    }
}

/// Lets an exception that speaks for the later occurrences too begin with the next one, so that this one is free.
void EventEditor::passRangeOn(EventEntry &exception, const EventTarget &target)
{
    requireWhole(exception);
    const EventTiming &timing = exception.read.timing;
    const EventTime &seriesStart = target.master->read.timing.start;
    constexpr seconds reach = days { 4 * 366 };
    for (const SeriesStart &each :
        startsOf(target.master->read, windowAround(target.key, target.key + reach.count()))) {
        if (each.key <= target.key || m_finder.exceptionAt(*target.master, each.key))
            continue;
        EventTime start = timing.start;
        start.reading += each.reading - target.reading;
        ICalNode &node = *exception.node;
        const TimeStyle idStyle(*target.master->node->find("DTSTART"), seriesStart);
        writeTimes(node, timing, start, timing.length, { *node.find("DTSTART"), timing.start }, *exception.zones);
        node.set(ICalNode::makeProperty(
            "RECURRENCE-ID", idStyle.parameters() + ";RANGE=THISANDFUTURE", idStyle.value(each.reading)));
        revise(node, true);
        return;
    }
    SeriesText::remove(exception);
}

// ---- Changing ----

StoreEdit EventEditor::change(const EventReference &reference, const EventChanges &changes, EKSpan span, bool isMoving)
{
    const EventTarget target = m_finder.find(reference);
    noteOverwritten(target, reference, changes);
    const bool isSeries = target.master && m_finder.repeats(*target.master);
    const bool isFuture = isSeries && span == EKSpan::FutureEvents;
    const EventEntry *styled = isFuture ? target.master : target.source;
    const TimeStyle style(*styled->node->find("DTSTART"), styled->read.timing.start);
    const WrittenTimes times = changedTimes(changes, { reference.start, reference.end },
        { target.start, target.length, style }, m_context.viewer, !isFuture);
    requireWhole(*target.source);
    if (isMoving && m_finder.hasTwins())
        throw EKError("Several events in this calendar file share one identifier, so none of them can be moved.");
    if (isFuture) {
        changeFuture(target, times, changes, isMoving);
    } else if (isSeries || !target.master) {
        // Another event of the same UID would take an exception for its own.
        const bool canBeException = !target.master || m_finder.isFirst(*target.master);
        if (changes.recurrenceRules || isMoving || !canBeException)
            detach(target, times, changes);
        else
            changeOccurrence(target, times, changes);
    } else {
        changeNode(*target.source->node, target.source->read, *target.source, times, changes);
        if (isMoving)
            m_edit.created = m_text.extract(m_edit.uid);
    }
    m_edit.changes = m_text.finish();
    return std::move(m_edit);
}

/// Changes a component that stands for itself.
void EventEditor::changeNode(ICalNode &node, const EventComponent &read, const EventEntry &entry,
    const WrittenTimes &times, const EventChanges &changes)
{
    writeTexts(node, changes);
    if (times.isChanged) {
        writeTimes(node, read.timing, times.start, times.length, times.style, *entry.zones);
        m_text.addZone(entry, times.start);
    }
    if (changes.alarms)
        writeAlarms(node, *changes.alarms, times.length, *entry.zones);
    if (changes.recurrenceRules) {
        removeRecurrence(node);
        writeRules(node, *changes.recurrenceRules, times.start, m_context.viewer);
        keepFirstStart(node, *entry.zones);
    }
    revise(node, times.isChanged || changes.recurrenceRules);
}

void EventEditor::changeOccurrence(const EventTarget &target, const WrittenTimes &times, const EventChanges &changes)
{
    const bool isRange = target.master && target.exception && target.exception->read.exception->thisAndFuture;
    if (target.exception && !isRange) {
        changeNode(*target.exception->node, target.exception->read, *target.exception, times, changes);
        return;
    }
    requireWhole(*target.master);
    ICalNode node = aloneNode(target);
    const TimeStyle style(*target.master->node->find("DTSTART"), target.master->read.timing.start);
    node.add(style.property("RECURRENCE-ID", target.reading));
    changeNode(node, readAgain(node, *target.source->zones), *target.master, times, changes);
    m_text.add(*target.master, std::move(node));
    if (isRange)
        passRangeOn(*target.exception, target);
}

/// What the occurrence says, without its series.
ICalNode EventEditor::aloneNode(const EventTarget &target) const
{
    ICalNode node = *target.source->node;
    removeRecurrence(node);
    node.removeProperties("RECURRENCE-ID");
    const EventTiming &timing = target.source->read.timing;
    writeTimes(
        node, timing, target.start, target.length, { *node.find("DTSTART"), timing.start }, *target.source->zones);
    return node;
}

/// Makes an event of its own of the occurrence.
void EventEditor::detach(const EventTarget &target, const WrittenTimes &times, const EventChanges &changes)
{
    ICalNode node = aloneNode(target);
    node.add(ICalNode::makeProperty("RELATED-TO", ";RELTYPE=SIBLING", writeText(m_edit.uid)));
    const ICalNode &calendar = *target.source->calendar;
    takeOccurrenceOut(target);
    m_edit.uid = m_context.newUid();
    writeUid(node, m_edit.uid);
    changeNode(node, readAgain(node, *target.source->zones), *target.source, times, changes);
    create({ std::move(node) }, calendar, times.start);
}

void EventEditor::changeFuture(
    const EventTarget &target, const WrittenTimes &times, const EventChanges &changes, bool isMoving)
{
    EventEntry &master = *target.master;
    requireWhole(master);
    refuseRanges(master);
    const std::vector<EventEntry *> later = m_finder.exceptionsFrom(target);
    std::for_each(later.begin(), later.end(), [](const EventEntry *each) { requireWhole(*each); });
    if (!m_finder.beginsBefore(target)) {
        std::vector<std::pair<ICalNode *, const EventEntry *>> nodes;
        for (EventEntry *each : later)
            nodes.emplace_back(each->node, each);
        changeSeries(target, *master.node, master.read, nodes, times, changes);
        if (times.isChanged)
            m_text.addZone(master, times.start);
        if (isMoving)
            m_edit.created = m_text.extract(m_edit.uid);
        return;
    }
    const QString oldUid = std::exchange(m_edit.uid, m_context.newUid());
    std::vector<ICalNode> nodes { continuedSeries(*master.node, master.read, target.reading, *master.zones) };
    nodes.front().add(ICalNode::makeProperty("RELATED-TO", ";RELTYPE=SIBLING", writeText(oldUid)));
    for (const EventEntry *each : later)
        nodes.push_back(*each->node);
    std::vector<std::pair<ICalNode *, const EventEntry *>> exceptions;
    for (std::size_t i = 0; i < later.size(); ++i)
        exceptions.emplace_back(&nodes[i + 1], later[i]);
    for (ICalNode &node : nodes)
        writeUid(node, m_edit.uid);
    changeSeries(target, nodes.front(), readAgain(nodes.front(), *master.zones), exceptions, times, changes);
    endSeries(*master.node, master.read, target.reading, *master.zones);
    revise(*master.node, true);
    std::for_each(later.begin(), later.end(), [](EventEntry *each) { SeriesText::remove(*each); });
    std::erase_if(nodes, [](const ICalNode &node) { return !node.isComponent("VEVENT"); });
    create(std::move(nodes), *master.calendar, times.start);
}

void EventEditor::create(std::vector<ICalNode> events, const ICalNode &source, const EventTime &start)
{
    ICalNode calendar = newCalendar(std::move(events), source);
    addZone(calendar, start);
    m_edit.created = NewObject { m_edit.uid, calendar.text() };
}

/// Changes a whole series, the part that begins with the target or all of it.
void EventEditor::changeSeries(const EventTarget &target, ICalNode &master, const EventComponent &read,
    const std::vector<std::pair<ICalNode *, const EventEntry *>> &exceptions, const WrittenTimes &times,
    const EventChanges &changes)
{
    const EventTime oldStart = read.timing.start;
    const ICalComponent &zones = *target.master->zones;
    const bool isRevision = times.isChanged || changes.recurrenceRules;
    if (changes.recurrenceRules && changes.recurrenceRules->empty()) {
        // One event is left: the one that the user saw.
        ICalNode alone = aloneNode(target);
        writeUid(alone, m_edit.uid);
        const EventComponent readAlone = readAgain(alone, zones);
        changeNode(alone, readAlone, *target.source, times, changes);
        master = std::move(alone);
        for (const auto &[node, entry] : exceptions)
            node->clear();
        return;
    }
    writeTexts(master, changes);
    if (changes.alarms)
        writeAlarms(master, *changes.alarms, times.length, zones);
    const SeriesShift shift { target.reading, times.start, times.style };
    EventTime newStart = oldStart;
    const bool wasStart = hasStart(read, oldStart.reading);
    if (times.isChanged) {
        newStart = times.start;
        newStart.reading = shift.apply(oldStart.reading, oldStart.form);
        moveSeries(master, read, shift, times.length, zones);
    }
    if (changes.recurrenceRules)
        writeRules(master, *changes.recurrenceRules, newStart, m_context.viewer);
    if (changes.recurrenceRules || (times.isChanged && wasStart))
        keepFirstStart(master, zones);
    revise(master, isRevision);
    const EventComponent changed = readAgain(master, zones);
    for (const auto &[node, entry] : exceptions) {
        const EventComponent &own = entry->read;
        const bool isTarget = entry == target.exception;
        const EventChanges followed
            = isTarget ? changes : followedChanges(changes, *target.master->read.item, *own.item);
        LocalTime id = exceptedReading(own.exception->recurrenceId, oldStart);
        writeTexts(*node, followed);
        if (followed.alarms)
            writeAlarms(*node, *followed.alarms, own.timing.length, *entry->zones);
        if (times.isChanged) {
            const bool isMoved
                = !(own.timing.start.form == oldStart.form) || SeriesClock(oldStart).reading(own.timing.start) != id;
            id = shift.apply(id, oldStart.form);
            node->set(times.style.property("RECURRENCE-ID", id));
            EventTime start = times.start;
            start.reading = isTarget ? times.start.reading : id;
            const bool isAsLong = own.timing.length == read.timing.length || start.form != own.timing.start.form;
            if (isTarget || !isMoved)
                writeTimes(*node, own.timing, start, isTarget || isAsLong ? times.length : own.timing.length,
                    times.style, *entry->zones);
        }
        revise(*node, isRevision);
        if (changes.recurrenceRules && !hasStart(changed, id))
            node->clear();
    }
}

void EventEditor::revise(ICalNode &node, bool isRevision) const
{
    writeChangeTime(node, m_context.now);
    if (isRevision)
        raiseSequence(node, m_context.userAddresses);
}

// ---- Removing ----

StoreEdit EventEditor::remove(const EventReference &reference, EKSpan span)
{
    const EventTarget target = m_finder.find(reference);
    for (const EventEntry &entry : m_text.entries()) {
        // Where one ends that cannot be read is a guess.
        if (m_text.isShared(entry))
            requireWhole(entry);
    }
    if (!target.master) {
        SeriesText::remove(*target.exception);
    } else if (!m_finder.repeats(*target.master)) {
        SeriesText::remove(*target.master);
    } else if (span == EKSpan::ThisEvent) {
        takeOccurrenceOut(target);
    } else if (!m_finder.beginsBefore(target)) {
        SeriesText::remove(*target.master);
        for (EventEntry *each : m_finder.exceptions(target.master))
            SeriesText::remove(*each);
    } else {
        requireWhole(*target.master);
        endSeries(*target.master->node, target.master->read, target.reading, *target.master->zones);
        revise(*target.master->node, true);
        for (EventEntry *each : m_finder.exceptionsFrom(target))
            SeriesText::remove(*each);
    }
    m_edit.changes = m_text.finish();
    return std::move(m_edit);
}

/// Leaves the series without this occurrence. A series without any is no event any more.
void EventEditor::takeOccurrenceOut(const EventTarget &target)
{
    if (!target.master)
        return SeriesText::remove(*target.exception);
    EventEntry &master = *target.master;
    requireWhole(master);
    for (EventEntry *each : m_finder.exceptionsFrom(target)) {
        if (exceptedKey(each->read.exception->recurrenceId, master.read.timing.start) != target.key)
            continue;
        if (each->read.exception->thisAndFuture)
            passRangeOn(*each, target);
        else
            SeriesText::remove(*each);
    }
    if (hasStart(master.read, target.reading))
        excludeStart(*master.node, master.read, target.reading);
    revise(*master.node, true);
    if (!happens(master))
        SeriesText::remove(master);
}

/// Whether anything is left of a series.
bool EventEditor::happens(const EventEntry &master)
{
    if (!m_finder.exceptions(&master).empty())
        return true;
    return hasAnyStart(readAgain(*master.node, *master.zones));
}

// ---- Creating ----

NewObject EventEditor::create(const EventChanges &changes, const EditContext &context)
{
    const TimeZone &viewer = context.viewer;
    const auto rules = changes.recurrenceRules.value_or(std::vector<EKRecurrenceRule>());
    const WrittenTimes times = writtenTimes({ *changes.start, *changes.end },
        changes.isAllDay.value_or(false) ? TimeStyle::day() : TimeStyle::inZone(viewer), viewer, rules.empty());
    const QString uid = context.newUid();
    ICalNode event = ICalNode::makeComponent("VEVENT");
    writeUid(event, uid);
    event.add(ICalNode::makeProperty("CREATED", {}, writeUtc(context.now)));
    writeChangeTime(event, context.now);
    const ICalComponent zones;
    event.add(times.style.property("DTSTART", times.start.reading));
    writeTimes(event, { times.start, {}, false, 0 }, times.start, times.length, times.style, zones);
    writeTexts(event, changes);
    writeRules(event, rules, times.start, viewer);
    writeAlarms(event, changes.alarms.value_or(std::vector<EKAlarm>()), times.length, zones);
    keepFirstStart(event, zones);
    ICalNode calendar = newCalendar();
    calendar.addComponent(std::move(event));
    addZone(calendar, times.start);
    return { uid, calendar.text() };
}

} // namespace mintaro
