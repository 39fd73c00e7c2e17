#include "Platform/EventKit/EventReader.h"

#include "Platform/EventKit/EventDetails.h"
#include "Platform/EventKit/ICalendarText.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

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
EventLength readEventLength(icalcomponent *component, const EventTime &start, PropertyReader &reader)
{
    const bool isDate = start.form == TimeForm::Day;
    const EventLength none { days { isDate ? 1 : 0 }, seconds { 0 } };
    std::optional<EventLength> length;
    if (const auto end = reader.time(component, ICAL_DTEND_PROPERTY))
        length = between(start, *end);
    else if (icalproperty *duration = icalcomponent_get_first_property(component, ICAL_DURATION_PROPERTY))
        length = readLength(icalproperty_get_duration(duration));
    if (!length || length->total() <= seconds { 0 })
        return none;
    if (isDate)
        return { std::max(days { 1 }, ceil<days>(length->total())), seconds { 0 } };
    return *length;
}

/// The values of RRULE or EXRULE. libical drops a rule that it cannot take (COUNT beside UNTIL, an unknown part) and
/// keeps its text in an error line; what the user wrote is still the best that there is.
std::vector<QByteArray> ruleValues(icalcomponent *component, icalproperty_kind kind, const QByteArray &name)
{
    std::vector<QByteArray> values;
    ical::forEachProperty(component, kind, [&values](icalproperty *property) { values.push_back(rawValue(property)); });
    ical::forEachProperty(component, ICAL_XLICERROR_PROPERTY, [&](icalproperty *property) {
        const QByteArray text(icalproperty_get_xlicerror(property));
        const QByteArray marker = name + " property. Removing entire property: ";
        if (const qsizetype at = text.indexOf(marker); at >= 0)
            values.push_back(text.mid(at + marker.size()));
    });
    return values;
}

std::vector<RecurrenceRule> parseRules(const std::vector<QByteArray> &values, PropertyReader &reader)
{
    std::vector<RecurrenceRule> rules;
    for (const QByteArray &value : values) {
        if (auto rule = RecurrenceRule::parse(value))
            rules.push_back(std::move(*rule));
        else
            reader.complain(QStringLiteral("rule without sense: %1").arg(decodeText(value.constData()).left(200)));
    }
    return rules;
}

std::optional<AddedDate> readAddedDate(icalproperty *property, PropertyReader &reader)
{
    const icaldatetimeperiodtype value = icalproperty_get_rdate(property);
    if (icaltime_is_null_time(value.period.start)) {
        const auto start = reader.time(property, value.time);
        return start ? std::optional(AddedDate { *start, std::nullopt }) : std::nullopt;
    }
    const auto start = reader.time(property, value.period.start);
    if (!start)
        return std::nullopt;
    if (icaltime_is_null_time(value.period.end))
        return AddedDate { *start, readLength(value.period.duration) };
    const auto end = reader.time(property, value.period.end);
    return AddedDate { *start, end ? std::optional(between(*start, *end)) : std::nullopt };
}

/// Null where nothing makes the event repeat.
std::unique_ptr<Recurrence> readRecurrence(icalcomponent *component, EventItem &item, PropertyReader &reader)
{
    auto recurrence = std::make_unique<Recurrence>();
    const auto rules = ruleValues(component, ICAL_RRULE_PROPERTY, "RRULE");
    for (const QByteArray &rule : rules)
        item.recurrenceRules.push_back({ rule });
    recurrence->rules = parseRules(rules, reader);
    recurrence->excludingRules = parseRules(ruleValues(component, ICAL_EXRULE_PROPERTY, "EXRULE"), reader);
    ical::forEachProperty(component, ICAL_RDATE_PROPERTY, [&](icalproperty *property) {
        if (const auto added = readAddedDate(property, reader))
            recurrence->addedDates.push_back(*added);
    });
    ical::forEachProperty(component, ICAL_EXDATE_PROPERTY, [&](icalproperty *property) {
        if (const auto excluded = reader.time(property))
            recurrence->excludedDates.push_back(*excluded);
    });
    const bool repeats = !recurrence->rules.empty() || !recurrence->addedDates.empty()
        || !recurrence->excludedDates.empty() || !recurrence->excludingRules.empty();
    return repeats ? std::move(recurrence) : nullptr;
}

SeriesException readException(icalcomponent *component, const EventTime &id, const EventTiming &timing)
{
    SeriesException exception { id, false, 0, timing };
    icalproperty *property = icalcomponent_get_first_property(component, ICAL_RECURRENCEID_PROPERTY);
    icalparameter *range = icalproperty_get_first_parameter(property, ICAL_RANGE_PARAMETER);
    exception.thisAndFuture = range && icalparameter_get_range(range) == ICAL_RANGE_THISANDFUTURE;
    if (icalproperty *sequence = icalcomponent_get_first_property(component, ICAL_SEQUENCE_PROPERTY))
        exception.sequence = icalproperty_get_sequence(sequence);
    return exception;
}

} // namespace

std::optional<EventComponent> readEvent(
    icalcomponent *component, PropertyReader &reader, const QStringList &userAddresses)
{
    const auto start = reader.time(component, ICAL_DTSTART_PROPERTY);
    if (!start) {
        reader.complain(QStringLiteral("an event without a start"));
        return std::nullopt;
    }
    EventComponent result;
    result.item = std::make_shared<EventItem>();
    EventItem &item = *result.item;
    item.uid = reader.text(component, ICAL_UID_PROPERTY);
    item.isAllDay = start->form == TimeForm::Day;
    item.isDamaged = isDamaged(component);
    EventTiming &timing = result.timing;
    timing.start = *start;
    timing.length = readEventLength(component, *start, reader);
    timing.isCancelled = icalcomponent_get_status(component) == ICAL_STATUS_CANCELLED;
    readDetails(component, reader, userAddresses, timing.length, item);
    if (icalcomponent_get_first_property(component, ICAL_RECURRENCEID_PROPERTY)) {
        if (const auto id = reader.time(component, ICAL_RECURRENCEID_PROPERTY))
            result.exception = readException(component, *id, timing);
    } else {
        result.recurrence = readRecurrence(component, item, reader);
    }
    return result;
}

std::shared_ptr<ReminderRecord> readReminder(icalcomponent *component, PropertyReader &reader)
{
    const icalproperty_status status = icalcomponent_get_status(component);
    if (status == ICAL_STATUS_CANCELLED)
        return nullptr;
    auto record = std::make_shared<ReminderRecord>();
    record->uid = reader.text(component, ICAL_UID_PROPERTY);
    record->title = reader.text(component, ICAL_SUMMARY_PROPERTY);
    record->notes = reader.text(component, ICAL_DESCRIPTION_PROPERTY);
    record->url = reader.text(component, ICAL_URL_PROPERTY);
    record->isDamaged = isDamaged(component);
    record->due = reader.time(component, ICAL_DUE_PROPERTY);
    icalproperty *duration = icalcomponent_get_first_property(component, ICAL_DURATION_PROPERTY);
    if (!record->due && duration) {
        record->due = reader.time(component, ICAL_DTSTART_PROPERTY);
        if (record->due)
            record->due->reading += readLength(icalproperty_get_duration(duration)).value_or(EventLength {}).total();
    }
    if (const auto completed = reader.time(component, ICAL_COMPLETED_PROPERTY))
        record->completionDate = completed->instant(TimeZone());
    icalproperty *percent = icalcomponent_get_first_property(component, ICAL_PERCENTCOMPLETE_PROPERTY);
    record->isCompleted = status == ICAL_STATUS_COMPLETED || record->completionDate
        || (percent && icalproperty_get_percentcomplete(percent) >= 100);
    return record;
}

} // namespace mintaro
