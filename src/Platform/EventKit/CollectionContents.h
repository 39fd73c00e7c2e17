#pragma once

#include "Platform/EventKit/ICalendarReader.h"
#include "Platform/EventKit/IntervalIndex.h"
#include "Platform/EventKit/RecurrenceExpander.h"
#include "Platform/EventKit/StoreBackend.h"

#include <deque>
#include <functional>
#include <map>

namespace mintaro {

/// The objects of one collection, parsed, with their occurrences sorted: those of events that happen once from the
/// start, those of series for the windows that were asked for. Not thread-safe.
class CollectionContents
{
public:
    struct Query
    {
        Date begin;
        Date end;
        /// Gives all-day and floating readings their moments.
        TimeZone viewer;
    };
    using Found = std::function<void(
        const Occurrence &occurrence, std::chrono::sys_seconds start, std::chrono::sys_seconds end)>;
    /// Called with an object's name.
    using Report = std::function<void(const QString &name)>;

    /// Empty for an object that is not held.
    [[nodiscard]] const ObjectRevision *revision(const QString &name) const;
    [[nodiscard]] QStringList names() const;
    /// After set and remove, and before anything else, comes rebuild.
    void set(const ObjectState &state, CalendarObject content);
    /// A new revision of an object that is held, without new content.
    void keep(const ObjectState &state) { m_objects[state.name].revision = state.revision; }
    void remove(const QString &name);
    /// Makes identifiers and indices anew. `duplicate` is told of objects that turn out to repeat the UID of an earlier
    /// one.
    void rebuild(const Report &duplicate);

    [[nodiscard]] bool holdsEvents() const { return m_holdsEvents; }
    [[nodiscard]] bool holdsReminders() const { return !m_reminders.empty(); }

    /// All occurrences that overlap [begin, end), in no order. `refused` is told, once each, of objects whose rules
    /// were left out because they cost too much.
    void events(const Query &query, ExpansionBudget &budget, const Found &found, const Report &refused);
    [[nodiscard]] const std::vector<std::shared_ptr<const ReminderRecord>> &reminders() const { return m_reminders; }

private:
    struct StoredObject
    {
        ObjectRevision revision {};
        CalendarObject content;
        bool isRefused = false;
    };

    struct Series
    {
        const EventSeries *series;
        const QString *name;
        StoredObject *object;
        std::uint32_t order;
    };

    /// Moments and readings are counted apart.
    struct Occurrences
    {
        IntervalIndex<Occurrence> zoned;
        IntervalIndex<Occurrence> civil;

        Occurrences() = default;
        explicit Occurrences(std::vector<Occurrence> all);
        void search(const Query &query, const Found &found) const;
    };

    struct ExpandedWindow
    {
        ExpansionWindow window;
        Occurrences occurrences;
    };

    void assignIdentifiers(const Report &duplicate);
    [[nodiscard]] const Occurrences &expanded(const Query &query, ExpansionBudget &budget, const Report &refused);

    std::map<QString, StoredObject> m_objects;
    Occurrences m_single;
    std::vector<Series> m_series;
    std::vector<std::shared_ptr<const ReminderRecord>> m_reminders;
    /// The windows asked for lately, the last one first.
    std::deque<ExpandedWindow> m_windows;
    bool m_holdsEvents = false;
};

} // namespace mintaro
