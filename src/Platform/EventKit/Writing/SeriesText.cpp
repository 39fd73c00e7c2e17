#include "Platform/EventKit/Writing/SeriesText.h"

#include "Platform/EventKit/StoreBackend.h"
#include "Platform/EventKit/Writing/CalendarNode.h"

#include <algorithm>

namespace mintaro {

SeriesText::SeriesText(std::vector<ObjectText> objects, const QString &uid, const QStringList &userAddresses)
{
    for (ObjectText &each : objects) {
        ICalNode root = ICalNode::parse(each.text);
        ICalComponent view = root.asComponent();
        m_objects.push_back({ std::move(each), std::move(root), std::move(view) });
    }
    for (std::size_t i = 0; i < m_objects.size(); ++i) {
        PropertyReader reader(m_objects[i].view);
        collect(i, m_objects[i].root, uid, reader, userAddresses);
    }
    if (m_entries.empty())
        throw EKError("The event no longer exists.");
}

void SeriesText::collect(
    std::size_t object, ICalNode &parent, const QString &uid, PropertyReader &reader, const QStringList &userAddresses)
{
    for (ICalNode &child : parent.children()) {
        if (child.isComponent("VCALENDAR"))
            collect(object, child, uid, reader, userAddresses);
        if (!child.isComponent("VEVENT"))
            continue;
        auto read = readEvent(child.asComponent(), reader, userAddresses);
        if (!read)
            continue;
        EventItem &item = *read->item;
        if (item.uid.isEmpty())
            item.uid = m_objects[object].original.name;
        item.isDamaged = item.isDamaged || parent.isDamaged();
        if (item.uid == uid)
            m_entries.push_back({ object, &parent, &child, &m_objects[object].view, std::move(*read) });
    }
}

bool SeriesText::isShared(const EventEntry &entry) const
{
    const auto own = std::count_if(m_entries.begin(), m_entries.end(),
        [&entry](const EventEntry &each) { return each.object == entry.object && !each.isRemoved(); });
    return countItems(m_objects[entry.object].root) > static_cast<std::size_t>(own);
}

void SeriesText::removeAll()
{
    std::for_each(m_entries.begin(), m_entries.end(), remove);
}

void SeriesText::add(const EventEntry &beside, ICalNode event)
{
    m_added.emplace_back(beside.calendar, std::move(event));
}

void SeriesText::addZone(const EventEntry &entry, const EventTime &time)
{
    m_zones.emplace_back(entry.calendar, time);
}

NewObject SeriesText::extract(const QString &uid)
{
    Object &first = m_objects.front();
    const auto left = static_cast<std::size_t>(
        std::count_if(m_entries.begin(), m_entries.end(), [](const EventEntry &each) { return !each.isRemoved(); }));
    NewObject result { uid, {}, first.original.name };
    if (m_objects.size() == 1 && countItems(first.root) == left) {
        result.text = first.root.text();
    } else {
        std::vector<ICalNode> events;
        for (const EventEntry &each : m_entries) {
            if (!each.isRemoved())
                events.push_back(*each.node);
        }
        result.text = newCalendar(std::move(events), *m_entries.front().calendar).text();
    }
    removeAll();
    return result;
}

std::vector<ObjectChange> SeriesText::finish()
{
    for (auto &[calendar, event] : m_added)
        calendar->addComponent(std::move(event));
    for (const auto &[calendar, time] : m_zones)
        mintaro::addZone(*calendar, time);
    std::vector<ObjectChange> changes;
    for (const Object &object : m_objects) {
        const auto isHere = [&](const EventEntry &each) { return &m_objects[each.object] == &object; };
        if (std::none_of(m_entries.begin(), m_entries.end(), isHere))
            continue;
        ObjectChange change { object.original.name, object.original.text, std::nullopt };
        if (countItems(object.root) > 0)
            change.text = object.root.text();
        if (change.text != plainText(change.base))
            changes.push_back(std::move(change));
    }
    return changes;
}

} // namespace mintaro
