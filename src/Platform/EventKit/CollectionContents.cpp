#include "Platform/EventKit/CollectionContents.h"

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

constexpr std::size_t kKeptWindows = 3;
constexpr std::int64_t kStepsPerEvent = 2'000'000;
/// How far from the start of a series its first occurrence may be.
constexpr seconds kFirstReach = days { 366 };
/// A reading and its moment are less than this apart in any zone.
constexpr seconds kZoneReach = days { 2 };

sys_seconds toInstant(std::int64_t count)
{
    return sys_seconds { seconds { count } };
}

/// Calls `visit` with each component of a series.
template <typename Series, typename Visit>
void forEachTiming(Series &series, Visit &&visit)
{
    if (series.master)
        visit(*series.master);
    if (!series.recurrence)
        return;
    for (auto &exception : series.recurrence->exceptions)
        visit(exception.timing);
}

/// A copy whose items have numbers of the collection.
std::unique_ptr<Recurrence> renumbered(const Recurrence &recurrence, std::uint32_t firstItem)
{
    auto copy = std::make_unique<Recurrence>(recurrence);
    for (SeriesException &exception : copy->exceptions)
        exception.timing.item += firstItem;
    return copy;
}

} // namespace

CollectionContents::Occurrences::Occurrences(const std::vector<Occurrence> &all)
{
    std::vector<Occurrence> moments;
    std::vector<Occurrence> readings;
    moments.reserve(all.size());
    for (const Occurrence &each : all)
        (each.isZoned() ? moments : readings).push_back(each);
    zoned = IntervalIndex<Occurrence>(std::move(moments));
    civil = IntervalIndex<Occurrence>(std::move(readings));
}

void CollectionContents::Occurrences::search(const Query &query, const Found &found) const
{
    const auto take = [&](const Occurrence &occurrence, sys_seconds start, sys_seconds end) {
        if (start < query.end && (end > query.begin || start >= query.begin))
            found(occurrence, start, end);
    };
    const sys_seconds begin = floor<seconds>(query.begin);
    const sys_seconds end = ceil<seconds>(query.end);
    zoned.overlapping(begin.time_since_epoch().count(), end.time_since_epoch().count(),
        [&](const Occurrence &each) { take(each, toInstant(each.start), toInstant(each.end)); });
    const auto moment = [&](std::int64_t reading) { return query.viewer.toInstant(LocalTime { seconds { reading } }); };
    civil.overlapping((begin - kZoneReach).time_since_epoch().count(), (end + kZoneReach).time_since_epoch().count(),
        [&](const Occurrence &each) { take(each, moment(each.start), moment(each.end)); });
}

const StoredObject *CollectionContents::object(const QString &name) const
{
    const auto found = m_objects.find(name);
    return found == m_objects.end() ? nullptr : &found->second;
}

void CollectionContents::makePlaces()
{
    m_places.clear();
    m_itemCount = 0;
    m_holdsReminders = false;
    for (auto &[name, object] : m_objects) {
        std::uint32_t items = 0;
        for (const EventSeries &series : object.schedule.events)
            forEachTiming(series, [&](const EventTiming &timing) { items = std::max(items, timing.item + 1); });
        m_places.push_back({ m_itemCount, m_itemCount + items, &name, &object });
        m_itemCount += items + static_cast<std::uint32_t>(object.schedule.reminders.size());
        m_holdsReminders = m_holdsReminders || !object.schedule.reminders.empty();
    }
}

CollectionContents::UidOwners CollectionContents::findOwners(const Report &duplicate)
{
    m_repeated.clear();
    UidOwners owners;
    owners.reserve(m_places.size());
    const StoredObject *reported = nullptr;
    const auto repeats = [&](const Place &place, UidKey uid) {
        const UidOwner &owner = owners.try_emplace(uid, UidOwner { place.object, {} }).first->second;
        if (owner.object != place.object && std::exchange(reported, place.object) != place.object)
            duplicate(*place.name);
        return owner.object != place.object;
    };
    const auto repeatSeries = [this](const Place &place, const EventSeries &series) {
        forEachTiming(series, [&](const EventTiming &timing) { m_repeated.insert(place.firstItem + timing.item); });
    };
    for (const Place &place : m_places) {
        for (const EventSeries &series : place.object->schedule.events) {
            if (series.master && repeats(place, series.uid))
                repeatSeries(place, series);
        }
        std::uint32_t number = place.firstReminder;
        for (const UidKey uid : place.object->schedule.reminders) {
            if (repeats(place, uid))
                m_repeated.insert(number);
            ++number;
        }
    }
    // Exceptions without their series belong to the one that lies in another object, if any does.
    for (const Place &place : m_places) {
        for (const EventSeries &series : place.object->schedule.events) {
            if (series.master)
                continue;
            const auto owner = owners.find(series.uid);
            if (owner != owners.end() && owner->second.object != place.object)
                owner->second.strays.push_back({ &series, &place, place.firstItem });
        }
    }
    return owners;
}

CollectionContents::Series CollectionContents::merged(const Series &series, const std::vector<Series> &strays)
{
    EventSeries &all = m_merged.emplace_back();
    all.uid = series.series->uid;
    all.master = series.series->master;
    all.master->item += series.firstItem;
    const Recurrence *own = series.series->recurrence.get();
    all.recurrence = own ? renumbered(*own, series.firstItem) : std::make_unique<Recurrence>();
    for (const Series &stray : strays) {
        const std::unique_ptr<Recurrence> other = renumbered(*stray.series->recurrence, stray.firstItem);
        for (const SeriesException &each : other->exceptions)
            m_masters[each.timing.item] = all.master->item;
        mergeExceptions(all.recurrence->exceptions, std::move(other->exceptions));
    }
    return { &all, series.place, 0 };
}

void CollectionContents::rebuild(const Report &duplicate)
{
    makePlaces();
    const UidOwners owners = findOwners(duplicate);
    m_windows.clear();
    m_series.clear();
    m_merged.clear();
    m_masters.clear();
    std::vector<Occurrence> single;
    m_holdsEvents = false;
    for (const Place &place : m_places) {
        for (const EventSeries &each : place.object->schedule.events) {
            m_holdsEvents = true;
            const auto owner = owners.find(each.uid);
            const bool isOwner = owner != owners.end() && owner->second.object == place.object;
            const Series series { &each, &place, place.firstItem };
            if (each.master && isOwner && !owner->second.strays.empty()) {
                m_series.push_back(merged(series, owner->second.strays));
            } else if (!each.master && owner != owners.end() && !isOwner) {
                continue; // it is among the owner's strays
            } else if (each.recurrence) {
                m_series.push_back(series);
            } else if (!each.master->isCancelled) {
                single.push_back(singleOccurrence(*each.master));
                single.back().item += place.firstItem;
            }
        }
    }
    m_single = Occurrences(single);
}

bool CollectionContents::isPrepared(const Query &query) const
{
    const auto covers = [&query](const ExpandedWindow &each) { return each.covers(query); };
    return !query.items && (m_series.empty() || std::any_of(m_windows.begin(), m_windows.end(), covers));
}

void CollectionContents::events(const Query &query, ExpansionBudget &budget, const Found &found, const Report &refused)
{
    if (query.items) {
        matchingEvents(query, budget, found, refused);
        return;
    }
    m_single.search(query, found);
    if (!m_series.empty())
        expanded(query, budget, refused).search(query, found);
}

void CollectionContents::expand(const Series &series, const ExpansionWindow &window, ExpansionBudget &budget,
    const Report &refused, std::vector<Occurrence> &all) const
{
    const std::size_t first = all.size();
    const ExpansionResult result = expandSeries(*series.series, window, budget, all);
    for (std::size_t i = first; i < all.size(); ++i)
        all[i].item += series.firstItem;
    if (result == ExpansionResult::RuleRefused && !std::exchange(series.place->object->isRefused, true))
        refused(*series.place->name);
}

const CollectionContents::Occurrences &CollectionContents::expanded(
    const Query &query, ExpansionBudget &budget, const Report &refused)
{
    const auto known = std::find_if(
        m_windows.begin(), m_windows.end(), [&](const ExpandedWindow &each) { return each.covers(query); });
    if (known != m_windows.end()) {
        std::rotate(m_windows.begin(), known, known + 1);
        return m_windows.front().occurrences;
    }
    const ExpansionWindow window { floor<seconds>(query.begin) - query.margin,
        ceil<seconds>(query.end) + query.margin };
    std::vector<Occurrence> all;
    for (const Series &each : m_series)
        expand(each, window, budget, refused, all);
    m_windows.push_front({ window, Occurrences(all) });
    if (m_windows.size() > kKeptWindows)
        m_windows.pop_back();
    return m_windows.front().occurrences;
}

/// Looks at the texts first: what they rule out need not be expanded. The windows are long and asked for once, so they
/// are not kept.
void CollectionContents::matchingEvents(
    const Query &query, ExpansionBudget &budget, const Found &found, const Report &refused)
{
    const std::vector<bool> &matching = *query.items;
    const Found take = [&](const Occurrence &occurrence, sys_seconds start, sys_seconds end) {
        if (matching[occurrence.item])
            found(occurrence, start, end);
    };
    m_single.search(query, take);
    const ExpansionWindow window { floor<seconds>(query.begin), ceil<seconds>(query.end) };
    std::vector<Occurrence> all;
    for (const Series &each : m_series) {
        bool mayMatch = false;
        forEachTiming(*each.series,
            [&](const EventTiming &timing) { mayMatch = mayMatch || matching[each.firstItem + timing.item]; });
        if (mayMatch)
            expand(each, window, budget, refused, all);
    }
    Occurrences(all).search(query, take);
}

CollectionContents::ItemName CollectionContents::itemName(const QString &uidAndSuffix) const
{
    for (const Place &place : m_places) {
        const qsizetype length = place.name->size() + 1;
        if (uidAndSuffix.size() <= length || !uidAndSuffix.endsWith(*place.name))
            continue;
        const ItemName name { uidAndSuffix.chopped(length), uidAndSuffix.right(length) };
        if (name.suffix.startsWith(u'/') && !(objectsOfEvent(name).isEmpty() && objectsOfReminder(name).isEmpty()))
            return name;
    }
    return { uidAndSuffix, {} };
}

/// Whether a series in this object is the event's, or stray exceptions of it.
bool CollectionContents::isNamed(const Series &series, const ItemName &event) const
{
    if (series.series->uid != uidKey(event.uid))
        return false;
    const auto &master = series.series->master;
    const bool isRepeated = master && m_repeated.contains(series.firstItem + master->item);
    return isRepeated ? event.suffix == u'/' + *series.place->name : event.suffix.isEmpty();
}

QStringList CollectionContents::objectsOfEvent(const ItemName &event) const
{
    QStringList names;
    for (const Place &place : m_places) {
        for (const EventSeries &series : place.object->schedule.events) {
            if (!isNamed({ &series, &place, place.firstItem }, event) || names.contains(*place.name))
                continue;
            names.insert(series.master ? 0 : names.size(), *place.name);
        }
    }
    return names;
}

QStringList CollectionContents::objectsOfReminder(const ItemName &reminder) const
{
    QStringList names;
    const UidKey key = uidKey(reminder.uid);
    for (const Place &place : m_places) {
        std::uint32_t number = place.firstReminder;
        for (const UidKey uid : place.object->schedule.reminders) {
            if (uid == key && identifierSuffix(number) == reminder.suffix && !names.contains(*place.name))
                names.append(*place.name);
            ++number;
        }
    }
    return names;
}

void CollectionContents::occurrences(
    const ItemName &event, const std::optional<Date> &start, const TimeZone &viewer, const Found &found)
{
    ExpansionBudget budget { kStepsPerEvent };
    const Report ignore = [](const QString &) {};
    std::vector<Occurrence> all;
    bool repeats = false;
    for (const Series &series : m_series) {
        if (!isNamed(series, event))
            continue;
        repeats = true;
        const auto &first
            = series.series->master ? *series.series->master : series.series->recurrence->exceptions.front().timing;
        const sys_seconds around = start ? floor<seconds>(*start) : first.start.instant(viewer);
        expand(series, { around - kZoneReach, around + (start ? kZoneReach : kFirstReach) }, budget, ignore, all);
    }
    for (const Place &place : m_places) {
        for (const EventSeries &series : place.object->schedule.events) {
            if (repeats || series.recurrence || series.master->isCancelled
                || !isNamed({ &series, &place, place.firstItem }, event))
                continue;
            all.push_back(singleOccurrence(*series.master));
            all.back().item += place.firstItem;
        }
    }
    // One that happens once is the same one wherever it was moved to.
    const bool isAny = !repeats || !start;
    for (const Occurrence &each : all) {
        const auto moment = [&](std::int64_t count) {
            return each.isZoned() ? toInstant(count) : viewer.toInstant(LocalTime { seconds { count } });
        };
        const sys_seconds begin = moment(each.start);
        if ((isAny || begin == *start) && item(each)->uid == event.uid)
            found(each, begin, moment(each.end));
    }
}

void CollectionContents::load(const std::vector<std::uint32_t> &items)
{
    std::vector<StoredObject *> objects;
    for (const std::uint32_t item : items) {
        StoredObject *object = placeOf(item).object;
        if (!object->details)
            objects.push_back(object);
    }
    std::sort(objects.begin(), objects.end());
    objects.erase(std::unique(objects.begin(), objects.end()), objects.end());
    m_source.loadDetails(objects);
}

std::vector<bool> CollectionContents::matchingItems(const TextMatcher &text)
{
    std::vector<bool> matching(m_itemCount);
    const auto match
        = [&](const Place &place, std::uint32_t item, QStringView title, QStringView location, QStringView notes) {
              if (item < place.firstReminder - place.firstItem)
                  matching[place.firstItem + item] = text.isIn(title) || text.isIn(location) || text.isIn(notes);
          };
    const auto matchLoaded = [&](const Place &place) {
        std::uint32_t number = 0;
        for (const auto &item : details(place).items)
            match(place, number++, item->title, item->location, item->notes);
    };
    std::unordered_map<std::int64_t, const Place *> unread;
    for (const Place &place : m_places) {
        if (place.firstReminder == place.firstItem)
            continue;
        if (place.object->details || place.object->detailsNumber == 0)
            matchLoaded(place);
        else
            unread.emplace(place.object->detailsNumber, &place);
    }
    m_source.visitDetails([&](std::int64_t number, const ObjectRevision &revision, QByteArrayView packed) {
        const auto found = unread.find(number);
        if (found == unread.end() || found->second->object->revision != revision)
            return;
        const Place &place = *found->second;
        visitPackedTexts(packed, [&](std::uint32_t item, QStringView title, QStringView location, QStringView notes) {
            match(place, item, title, location, notes);
        });
        unread.erase(found);
    });
    for (const auto &[number, place] : unread)
        matchLoaded(*place);
    return matching;
}

const CollectionContents::Place &CollectionContents::placeOf(std::uint32_t item) const
{
    const auto next = std::upper_bound(m_places.begin(), m_places.end(), item,
        [](std::uint32_t number, const Place &place) { return number < place.firstItem; });
    return *std::prev(next);
}

ObjectDetails &CollectionContents::details(const Place &place)
{
    StoredObject &object = *place.object;
    if (!object.details)
        m_source.loadDetails({ &object });
    if (!object.details)
        object.details = std::make_unique<ObjectDetails>(m_source.readDetails(*place.name));
    // What is read again may by now be another revision, and have less in it.
    const std::size_t count = place.firstReminder - place.firstItem;
    while (object.details->items.size() < count)
        object.details->items.push_back(std::make_shared<const EventItem>());
    while (object.details->reminders.size() < object.schedule.reminders.size())
        object.details->reminders.push_back(std::make_shared<const ReminderRecord>());
    return *object.details;
}

std::shared_ptr<const EventItem> CollectionContents::item(std::uint32_t number)
{
    const Place &place = placeOf(number);
    std::shared_ptr<const EventItem> &item = details(place).items[number - place.firstItem];
    if (const auto master = m_masters.find(number); master != m_masters.end()) {
        auto copy = std::make_shared<EventItem>(*item);
        copy->recurrenceRules = this->item(master->second)->recurrenceRules;
        m_masters.erase(master);
        item = std::move(copy);
    }
    return item;
}

QString CollectionContents::identifierSuffix(std::uint32_t number) const
{
    return m_repeated.contains(number) ? u'/' + *placeOf(number).name : QString();
}

std::vector<CollectionContents::Reminder> CollectionContents::reminders()
{
    std::vector<Reminder> reminders;
    if (!m_holdsReminders)
        return reminders;
    for (const Place &place : m_places) {
        std::uint32_t number = place.firstReminder;
        const std::size_t count = place.object->schedule.reminders.size();
        for (std::size_t i = 0; i < count; ++i)
            reminders.push_back({ details(place).reminders[i], identifierSuffix(number++) });
    }
    return reminders;
}

} // namespace mintaro
