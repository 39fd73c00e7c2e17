#pragma once

#include "Platform/EventKit/EventReader.h"
#include "Platform/EventKit/Writing/ICalNode.h"
#include "Platform/EventKit/Writing/StoreEdit.h"

#include <deque>

namespace mintaro {

/// A VEVENT in a text that is being changed.
struct EventEntry
{
    /// Which object it is in.
    std::size_t object = 0;
    /// The component that it stands in.
    ICalNode *calendar = nullptr;
    ICalNode *node = nullptr;
    /// Holds the zones that it names.
    const ICalComponent *zones = nullptr;
    /// What it said before it was changed.
    EventComponent read;

    [[nodiscard]] bool isRemoved() const { return !node->isComponent("VEVENT"); }
    [[nodiscard]] bool isMaster() const { return !read.exception; }
};

/// All that belongs to one UID in a calendar: the object with its series, and others that hold exceptions of it.
class SeriesText
{
public:
    /// Throws EKError where the objects hold no event of this UID.
    SeriesText(std::vector<ObjectText> objects, const QString &uid, const QStringList &userAddresses);

    /// In the order of the objects and their texts.
    [[nodiscard]] std::deque<EventEntry> &entries() { return m_entries; }
    static void remove(EventEntry &entry) { entry.node->clear(); }
    /// Whether anything of another UID is in the object too.
    [[nodiscard]] bool isShared(const EventEntry &entry) const;
    void removeAll();
    /// Puts a new event where `beside` stands.
    void add(const EventEntry &beside, ICalNode event);

    /// Sees to it that the zone of a time that was written to `entry` is explained there.
    void addZone(const EventEntry &entry, const EventTime &time);

    /// Takes all entries out, as an object of their own.
    [[nodiscard]] NewObject extract(const QString &uid);
    /// What became of the objects. To be called once, at the end.
    [[nodiscard]] std::vector<ObjectChange> finish();

private:
    struct Object
    {
        ObjectText original;
        ICalNode root;
        /// What the text was. Of meaning for what is not changed: its zones.
        ICalComponent view;
    };

    void collect(std::size_t object, ICalNode &parent, const QString &uid, PropertyReader &reader,
        const QStringList &userAddresses);

    std::deque<Object> m_objects;
    std::deque<EventEntry> m_entries;
    /// Put in at the end, since the entries must stay where they are.
    std::vector<std::pair<ICalNode *, ICalNode>> m_added;
    std::vector<std::pair<ICalNode *, EventTime>> m_zones;
};

} // namespace mintaro
