#pragma once

#include "Platform/EventKit/Index/ObjectCodec.h"
#include "Platform/EventKit/IntervalIndex.h"
#include "Platform/EventKit/RecurrenceExpander.h"
#include "Platform/EventKit/StoredObject.h"
#include "Platform/Foundation/TextMatcher.h"

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <unordered_map>

namespace mintaro {

/// Where details come from that are not in memory.
class DetailsSource
{
public:
    virtual ~DetailsSource() = default;
    /// Sets the details of these objects, or of some of them: what is quick to get.
    virtual void loadDetails(const std::vector<StoredObject *> &objects) = 0;
    [[nodiscard]] virtual ObjectDetails readDetails(const QString &name) = 0;
    /// Called with StoredObject::detailsNumber, the revision, and details that visitPackedTexts can look into.
    using Visitor = std::function<void(std::int64_t number, const ObjectRevision &revision, QByteArrayView packed)>;
    /// Visits what it has of the objects, in no order, without loading anything.
    virtual void visitDetails(const Visitor &visit) = 0;
};

/// The objects of one collection with their occurrences sorted: those of events that happen once from the start, those
/// of series for the windows that were asked for. Not thread-safe.
class CollectionContents
{
public:
    struct Query
    {
        Date begin;
        Date end;
        /// Gives all-day and floating readings their moments.
        TimeZone viewer;
        /// How much is expanded on each side besides, for later queries nearby.
        std::chrono::days margin { 0 };
        /// Only events of these items, from `matchingItems`; null for all.
        const std::vector<bool> *items = nullptr;
    };
    using Found = std::function<void(
        const Occurrence &occurrence, std::chrono::sys_seconds start, std::chrono::sys_seconds end)>;
    /// Called with an object's name.
    using Report = std::function<void(const QString &name)>;

    /// `source` must outlive the contents.
    explicit CollectionContents(DetailsSource &source)
        : m_source(source)
    {
    }

    [[nodiscard]] const std::map<QString, StoredObject> &objects() const { return m_objects; }
    /// Null for an object that is not held.
    [[nodiscard]] const StoredObject *object(const QString &name) const;
    [[nodiscard]] StoredObject *object(const QString &name)
    {
        return const_cast<StoredObject *>(std::as_const(*this).object(name));
    }
    /// After these, and before anything else, comes rebuild.
    void set(const QString &name, StoredObject object)
    {
        // Mostly they come in the order of their names.
        m_objects.insert_or_assign(m_objects.end(), name, std::move(object));
    }
    void remove(const QString &name) { m_objects.erase(name); }
    /// Makes the indices anew. `duplicate` is told of objects that repeat the UID of an earlier one.
    void rebuild(const Report &duplicate);

    [[nodiscard]] bool holdsEvents() const { return m_holdsEvents; }
    [[nodiscard]] bool holdsReminders() const { return m_holdsReminders; }

    /// Whether `events` is quick: no rule is to be expanded for it.
    [[nodiscard]] bool isPrepared(const Query &query) const;
    /// All occurrences that overlap [begin, end), in no order. `refused` is told, once each, of objects whose rules
    /// were left out because they cost too much.
    void events(const Query &query, ExpansionBudget &budget, const Found &found, const Report &refused);

    /// An event or reminder: its UID, and what tells it from others of its UID, as `identifierSuffix` gives it.
    struct ItemName
    {
        QString uid;
        QString suffix;
    };
    /// Takes what the two make together apart again.
    [[nodiscard]] ItemName itemName(const QString &uidAndSuffix) const;
    /// Tells `found` of the occurrence of an event that begins at `start`, or of its first ones.
    void occurrences(
        const ItemName &event, const std::optional<Date> &start, const TimeZone &viewer, const Found &found);
    /// The objects that hold anything of an event, the one with its series first.
    [[nodiscard]] QStringList objectsOfEvent(const ItemName &event) const;
    [[nodiscard]] QStringList objectsOfReminder(const ItemName &reminder) const;

    /// By their numbers in the collection, the items whose title, location or notes it finds.
    [[nodiscard]] std::vector<bool> matchingItems(const TextMatcher &text);

    /// Brings what these items say into memory at once.
    void load(const std::vector<std::uint32_t> &items);
    /// What an occurrence says.
    [[nodiscard]] std::shared_ptr<const EventItem> item(const Occurrence &occurrence) { return item(occurrence.item); }
    /// What tells the occurrence's identifier from that of another event of its UID; mostly empty.
    [[nodiscard]] QString identifierSuffix(const Occurrence &occurrence) const
    {
        return identifierSuffix(occurrence.item);
    }

    struct Reminder
    {
        std::shared_ptr<const ReminderRecord> record;
        QString identifierSuffix;
    };
    [[nodiscard]] std::vector<Reminder> reminders();

private:
    /// An object with the numbers that its items have in the collection; those of its reminders come after them.
    struct Place
    {
        std::uint32_t firstItem;
        std::uint32_t firstReminder;
        const QString *name;
        StoredObject *object;
    };

    /// A series; its items count from that of `place`, or in the whole collection where it was put together from
    /// several objects.
    struct Series
    {
        const EventSeries *series;
        const Place *place;
        std::uint32_t firstItem;
    };

    /// Moments and readings are counted apart.
    struct Occurrences
    {
        IntervalIndex<Occurrence> zoned;
        IntervalIndex<Occurrence> civil;

        Occurrences() = default;
        explicit Occurrences(const std::vector<Occurrence> &all);
        void search(const Query &query, const Found &found) const;
    };

    struct ExpandedWindow
    {
        ExpansionWindow window;
        Occurrences occurrences;

        [[nodiscard]] bool covers(const Query &query) const
        {
            return window.begin <= query.begin && query.end <= window.end;
        }
    };

    /// Who has a UID first, and the exceptions of it that lie in other objects.
    struct UidOwner
    {
        const StoredObject *object;
        std::vector<Series> strays;
    };
    using UidOwners = std::unordered_map<UidKey, UidOwner>;

    void makePlaces();
    [[nodiscard]] UidOwners findOwners(const Report &duplicate);
    [[nodiscard]] Series merged(const Series &series, const std::vector<Series> &strays);
    void expand(const Series &series, const ExpansionWindow &window, ExpansionBudget &budget, const Report &refused,
        std::vector<Occurrence> &all) const;
    [[nodiscard]] const Occurrences &expanded(const Query &query, ExpansionBudget &budget, const Report &refused);
    void matchingEvents(const Query &query, ExpansionBudget &budget, const Found &found, const Report &refused);
    [[nodiscard]] bool isNamed(const Series &series, const ItemName &event) const;
    [[nodiscard]] const Place &placeOf(std::uint32_t item) const;
    [[nodiscard]] ObjectDetails &details(const Place &place);
    [[nodiscard]] std::shared_ptr<const EventItem> item(std::uint32_t number);
    [[nodiscard]] QString identifierSuffix(std::uint32_t number) const;

    DetailsSource &m_source;
    std::map<QString, StoredObject> m_objects;
    std::vector<Place> m_places;
    std::uint32_t m_itemCount = 0;
    Occurrences m_single;
    std::vector<Series> m_series;
    /// Series whose exceptions lie in objects of their own, put together.
    std::deque<EventSeries> m_merged;
    /// The items of such exceptions with the master item whose rules they are to show.
    std::map<std::uint32_t, std::uint32_t> m_masters;
    /// The events and reminders that repeat the UID of another object.
    std::set<std::uint32_t> m_repeated;
    /// The windows asked for lately, the last one first.
    std::deque<ExpandedWindow> m_windows;
    bool m_holdsEvents = false;
    bool m_holdsReminders = false;
};

} // namespace mintaro
