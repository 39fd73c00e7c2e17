#include "Platform/EventKit/Writing/EventWriter.h"

#include "Platform/EventKit/EventDetails.h"
#include "Platform/EventKit/ICalValue.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

/// The parameters that still hold when the text is another: not its encoding, and not where the same stands elsewhere.
QByteArray lastingParameters(const ICalProperty &property)
{
    QByteArray lasting;
    for (const QByteArrayView each : property.parameterList()) {
        const QByteArray name = each.first(std::max<qsizetype>(each.indexOf('='), 0)).toByteArray().trimmed().toUpper();
        if (name != "ENCODING" && name != "CHARSET" && name != "ALTREP" && !name.isEmpty())
            lasting.append(';').append(each);
    }
    return lasting;
}

/// Another reading in a property that keeps its parameters.
void writeReading(
    ICalNode &event, QByteArrayView name, LocalTime reading, const EventTime &present, const TimeStyle &style)
{
    const ICalProperty *property = event.find(name);
    const bool isSameStyle
        = property && present.form == style.form() && (!present.isZoned() || present.zone == style.zone());
    if (isSameStyle && present.reading == reading)
        return;
    const QByteArray parameters = isSameStyle ? property->parameters.toByteArray() : style.parameters();
    event.set(ICalNode::makeProperty(name, parameters, style.value(reading)));
}

EventTime endOf(const EventTime &start, const EventLength &length)
{
    EventTime end = start;
    end.reading += length.nominal;
    if (start.isZoned())
        end.reading = end.zone.toLocal(end.zone.toInstant(end.reading) + length.exact);
    else
        end.reading += length.exact;
    return end;
}

void writeEnd(ICalNode &event, const EventTime &start, const EventLength &length, const TimeStyle &style,
    const ICalComponent &zones)
{
    const EventTime end = endOf(start, length);
    PropertyReader reader(zones);
    const ICalProperty *property = event.find("DTEND");
    const auto present = property ? reader.time(*property, property->value) : std::nullopt;
    // An end may stand in another zone than its start, as that of a flight does.
    if (present && present->isZoned() && end.isZoned() && !(present->zone == end.zone)) {
        const TimeStyle own(*property, *present);
        writeReading(event, "DTEND", own.time(end.zone.toInstant(end.reading), TimeZone()).reading, *present, own);
        return;
    }
    writeReading(event, "DTEND", end.reading, present.value_or(EventTime {}), style);
}

ICalNode makeAlarm(const EKAlarm &alarm, const QString &title)
{
    ICalNode node = ICalNode::makeComponent("VALARM");
    node.add(ICalNode::makeProperty("ACTION", {}, "DISPLAY"));
    node.add(ICalNode::makeProperty("DESCRIPTION", {}, writeText(title.isEmpty() ? QStringLiteral("-") : title)));
    if (alarm.absoluteDate)
        node.add(ICalNode::makeProperty("TRIGGER", ";VALUE=DATE-TIME", writeUtc(floor<seconds>(*alarm.absoluteDate))));
    else
        node.add(ICalNode::makeProperty("TRIGGER", {}, writeDuration(alarm.relativeOffset)));
    return node;
}

} // namespace

void writeText(ICalNode &component, QByteArrayView name, const QString &text)
{
    const ICalProperty *present = component.find(name);
    if (text == (present ? readText(*present) : QString()))
        return;
    if (text.isEmpty())
        component.removeProperties(name);
    else
        component.set(
            ICalNode::makeProperty(name, present ? lastingParameters(*present) : QByteArray(), writeText(text)));
}

void writeUid(ICalNode &component, const QString &uid)
{
    component.set(ICalNode::makeProperty("UID", {}, writeText(uid)));
}

void writeTimes(ICalNode &event, const EventTiming &present, const EventTime &start, const EventLength &length,
    const TimeStyle &style, const ICalComponent &zones)
{
    if (start == present.start && length == present.length)
        return;
    writeReading(event, "DTSTART", start.reading, present.start, style);
    const bool hasLength = event.find("DURATION") && !event.find("DTEND");
    const bool isImplied = !event.find("DURATION") && !event.find("DTEND")
        && length == EventLength { days { start.form == TimeForm::Day ? 1 : 0 }, seconds { 0 } };
    if (isImplied)
        return;
    if (!hasLength)
        writeEnd(event, start, length, style, zones);
    else if (!(length == present.length))
        event.set(ICalNode::makeProperty("DURATION", {}, writeDuration(length)));
}

void writeAlarms(
    ICalNode &event, const std::vector<EKAlarm> &alarms, const EventLength &length, const ICalComponent &zones)
{
    std::vector<EKAlarm> missing = alarms;
    PropertyReader reader(zones);
    std::erase_if(event.children(), [&](const ICalNode &child) {
        if (!child.isComponent("VALARM"))
            return false;
        const auto alarm = readAlarm(child.asComponent(), length, reader);
        const auto wanted = alarm ? std::find(missing.begin(), missing.end(), *alarm) : missing.end();
        if (wanted == missing.end())
            return true;
        missing.erase(wanted);
        return false;
    });
    const ICalProperty *title = event.find("SUMMARY");
    const QString text = title ? readText(*title) : QString();
    for (const EKAlarm &alarm : missing)
        event.addComponent(makeAlarm(alarm, text));
}

void writeChangeTime(ICalNode &component, sys_seconds now)
{
    component.set(ICalNode::makeProperty("DTSTAMP", {}, writeUtc(now)));
    component.set(ICalNode::makeProperty("LAST-MODIFIED", {}, writeUtc(now)));
}

void raiseSequence(ICalNode &component, const QStringList &userAddresses)
{
    const ICalProperty *organizer = component.find("ORGANIZER");
    if (organizer && !isOneOf(*organizer, userAddresses))
        return;
    const ICalProperty *present = component.find("SEQUENCE");
    const int sequence = present ? withoutBlanks(present->value).toByteArray().toInt() : 0;
    component.set(ICalNode::makeProperty("SEQUENCE", {}, QByteArray::number(sequence + 1)));
}

} // namespace mintaro
