#include "Platform/EventKit/Writing/CalendarNode.h"

#include "Platform/EventKit/Writing/TimeZoneWriter.h"

#include <QSet>

#include <algorithm>
#include <array>

namespace mintaro {

namespace {

constexpr char kProductIdentifier[] = "-//Mintaro//Mintaro//EN";

bool isItem(const ICalNode &node)
{
    constexpr std::array<QByteArrayView, 4> names { "VEVENT", "VTODO", "VJOURNAL", "VFREEBUSY" };
    return std::any_of(names.begin(), names.end(), [&](QByteArrayView name) { return node.isComponent(name); });
}

void collectZoneNames(const ICalNode &node, QSet<QByteArray> &names)
{
    for (const ICalNode &child : node.children()) {
        if (const auto tzid = child.property().parameter("TZID"))
            names.insert(tzid->toByteArray());
        collectZoneNames(child, names);
    }
}

const ICalNode *findZone(const ICalNode &calendar, const QByteArray &name)
{
    const auto &children = calendar.children();
    const auto found = std::find_if(children.begin(), children.end(), [&](const ICalNode &child) {
        const ICalProperty *tzid = child.isComponent("VTIMEZONE") ? child.find("TZID") : nullptr;
        return tzid && withoutBlanks(tzid->value) == name;
    });
    return found == children.end() ? nullptr : &*found;
}

} // namespace

ICalNode newCalendar()
{
    ICalNode calendar = ICalNode::makeComponent("VCALENDAR");
    calendar.add(ICalNode::makeProperty("VERSION", {}, "2.0"));
    calendar.add(ICalNode::makeProperty("PRODID", {}, kProductIdentifier));
    return calendar;
}

ICalNode newCalendar(std::vector<ICalNode> components, const ICalNode &source)
{
    ICalNode calendar = newCalendar();
    // What is written in the old way stays so.
    if (const ICalProperty *version = source.find("VERSION"))
        calendar.set(ICalNode::makeProperty("VERSION", version->parameters, version->value));
    QSet<QByteArray> names;
    for (const ICalNode &component : components)
        collectZoneNames(component, names);
    QList<QByteArray> sorted = names.values();
    std::sort(sorted.begin(), sorted.end());
    for (const QByteArray &name : sorted) {
        if (const ICalNode *zone = findZone(source, name))
            calendar.addComponent(*zone);
    }
    for (ICalNode &component : components)
        calendar.addComponent(std::move(component));
    return calendar;
}

void addZone(ICalNode &calendar, const EventTime &time)
{
    // A bare component has no place for zones.
    if (!time.isZoned() || !calendar.isComponent("VCALENDAR") || findZone(calendar, time.zone.identifier().toUtf8()))
        return;
    const QByteArray text = timeZoneComponent(time.zone, time.zone.toInstant(time.reading));
    if (text.isEmpty())
        return;
    // Before what names it, as other programs expect it.
    auto &children = calendar.children();
    children.insert(
        std::find_if(children.begin(), children.end(), isItem), ICalNode::parse(text).children().front().renewed());
}

std::size_t countItems(const ICalNode &node)
{
    std::size_t count = 0;
    for (const ICalNode &child : node.children())
        count += isItem(child) ? 1 : countItems(child);
    return count;
}

} // namespace mintaro
