#include "Platform/EventKit/EventReader.h"

#include "Platform/EventKit/EventDetails.h"
#include "Platform/EventKit/ICalValue.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

bool isDamaged(const ICalComponent &component, PropertyReader &reader)
{
    const auto &parts = component.components;
    return reader.takeDamage() || component.isDamaged
        || std::any_of(parts.begin(), parts.end(), [](const ICalComponent &part) { return part.isDamaged; });
}

EventLength between(const EventTime &start, EventTime end)
{
    const bool isDate = start.form == TimeForm::Day;
    if (end.form == TimeForm::Floating && start.isZoned())
        end = { end.reading, TimeForm::Zoned, start.zone };
    if (start.isZoned() && end.isZoned())
        return { days { 0 }, end.zone.toInstant(end.reading) - start.zone.toInstant(start.reading) };
    if (isDate)
        return { floor<days>(end.reading) - floor<days>(start.reading), seconds { 0 } };
    // Readings without a zone have nothing exact between them.
    return { days { 0 }, end.reading - start.reading };
}

/// DTEND or DURATION; RFC 5545 3.6.1 where there is neither. An end that is not after the start is no end.
EventLength readEventLength(const ICalComponent &component, const EventTime &start, PropertyReader &reader)
{
    const bool isDate = start.form == TimeForm::Day;
    const EventLength none { days { isDate ? 1 : 0 }, seconds { 0 } };
    std::optional<EventLength> length;
    if (const auto end = reader.time(component, "DTEND"))
        length = between(start, *end);
    else
        length = reader.length(component);
    if (!length || length->total() <= seconds { 0 })
        return none;
    if (isDate)
        return { std::max(days { 1 }, ceil<days>(length->total())), seconds { 0 } };
    return *length;
}

std::vector<RecurrenceRule> readRules(const ICalComponent &component, QByteArrayView name, PropertyReader &reader)
{
    std::vector<RecurrenceRule> rules;
    component.forEachProperty(name, [&](const ICalProperty &property) {
        if (auto rule = RecurrenceRule::parse(property.value.toByteArray()))
            rules.push_back(std::move(*rule));
        else
            reader.refuse(property);
    });
    return rules;
}

/// A time, or a PERIOD (RFC 5545 3.3.9).
std::optional<AddedDate> readAddedDate(const ICalProperty &property, QByteArrayView value, PropertyReader &reader)
{
    const qsizetype slash = value.indexOf('/');
    const auto start = reader.time(property, slash < 0 ? value : value.first(slash));
    if (!start)
        return std::nullopt;
    if (slash < 0)
        return AddedDate { *start, std::nullopt };
    const QByteArrayView rest = value.sliced(slash + 1);
    if (rest.contains('P') || rest.contains('p'))
        return AddedDate { *start, reader.length(property, rest) };
    const auto end = reader.time(property, rest);
    return AddedDate { *start, end ? std::optional(between(*start, *end)) : std::nullopt };
}

/// Null where nothing makes the event repeat.
std::unique_ptr<Recurrence> readRecurrence(const ICalComponent &component, EventItem &item, PropertyReader &reader)
{
    auto recurrence = std::make_unique<Recurrence>();
    component.forEachProperty("RRULE",
        [&item](const ICalProperty &property) { item.recurrenceRules.push_back({ property.value.toByteArray() }); });
    recurrence->rules = readRules(component, "RRULE", reader);
    recurrence->excludingRules = readRules(component, "EXRULE", reader);
    component.forEachProperty("RDATE", [&](const ICalProperty &property) {
        for (const QByteArrayView value : listOf(property)) {
            if (const auto added = readAddedDate(property, value, reader))
                recurrence->addedDates.push_back(*added);
        }
    });
    component.forEachProperty("EXDATE", [&](const ICalProperty &property) {
        for (const QByteArrayView value : listOf(property)) {
            if (const auto excluded = reader.time(property, value))
                recurrence->excludedDates.push_back(*excluded);
        }
    });
    const bool repeats = !recurrence->rules.empty() || !recurrence->addedDates.empty()
        || !recurrence->excludedDates.empty() || !recurrence->excludingRules.empty();
    return repeats ? std::move(recurrence) : nullptr;
}

SeriesException readException(const ICalComponent &component, const EventTime &id, const EventTiming &timing)
{
    SeriesException exception { id, false, 0, timing };
    const ICalProperty &property = *component.property("RECURRENCE-ID");
    exception.thisAndFuture = readParameter(property, "RANGE").compare(u"THISANDFUTURE", Qt::CaseInsensitive) == 0;
    exception.sequence = PropertyReader::text(component, "SEQUENCE").toInt();
    return exception;
}

bool hasStatus(const ICalComponent &component, QStringView status)
{
    return PropertyReader::text(component, "STATUS").trimmed().compare(status, Qt::CaseInsensitive) == 0;
}

bool isCancelled(const ICalComponent &component)
{
    return hasStatus(component, u"CANCELLED") || hasStatus(component, u"CANCELED");
}

} // namespace

std::optional<EventComponent> readEvent(
    const ICalComponent &component, PropertyReader &reader, const QStringList &userAddresses)
{
    const auto start = reader.time(component, "DTSTART");
    if (!start) {
        reader.complain(QStringLiteral("an event without a start"));
        return std::nullopt;
    }
    EventComponent result;
    result.item = std::make_shared<EventItem>();
    EventItem &item = *result.item;
    item.uid = PropertyReader::text(component, "UID").trimmed();
    item.isAllDay = start->form == TimeForm::Day;
    EventTiming &timing = result.timing;
    timing.start = *start;
    timing.length = readEventLength(component, *start, reader);
    timing.isCancelled = isCancelled(component);
    readDetails(component, reader, userAddresses, timing.length, item);
    if (component.property("RECURRENCE-ID")) {
        if (const auto id = reader.time(component, "RECURRENCE-ID"))
            result.exception = readException(component, *id, timing);
    } else {
        result.recurrence = readRecurrence(component, item, reader);
    }
    item.isDamaged = isDamaged(component, reader);
    return result;
}

std::shared_ptr<ReminderRecord> readReminder(const ICalComponent &component, PropertyReader &reader)
{
    if (isCancelled(component))
        return nullptr;
    auto record = std::make_shared<ReminderRecord>();
    record->uid = PropertyReader::text(component, "UID").trimmed();
    record->title = PropertyReader::text(component, "SUMMARY");
    record->notes = PropertyReader::text(component, "DESCRIPTION");
    record->url = PropertyReader::text(component, "URL");
    record->due = reader.time(component, "DUE");
    if (const auto length = record->due ? std::nullopt : reader.length(component)) {
        record->due = reader.time(component, "DTSTART");
        if (record->due)
            record->due->reading += length->total();
    }
    if (const auto completed = reader.time(component, "COMPLETED"))
        record->completionDate = completed->instant(TimeZone());
    record->isCompleted = hasStatus(component, u"COMPLETED") || record->completionDate
        || PropertyReader::text(component, "PERCENT-COMPLETE").toInt() >= 100;
    record->isDamaged = isDamaged(component, reader);
    return record;
}

} // namespace mintaro
