#include "Platform/EventKit/CalendarDatabase.h"

#include "Platform/Foundation/Parallel.h"

#include <iterator>
#include <set>
#include <tuple>

namespace mintaro {

using namespace std::chrono;

namespace {

/// Who follows the store is likely to page on by a month or two.
constexpr days kMargin { 62 };

/// An occurrence with its place among those of equal starts.
struct FoundOccurrence
{
    Occurrence occurrence;
    sys_seconds start;
    sys_seconds end;
    std::size_t collection = 0;

    [[nodiscard]] auto key() const { return std::tuple(start, collection, occurrence.item, occurrence.original); }
};

EKEvent makeEvent(const FoundOccurrence &found, StoredCollection &collection, const TimeZone &viewer)
{
    const Occurrence &occurrence = found.occurrence;
    const seconds original { occurrence.original };
    const sys_seconds occurrenceDate
        = occurrence.originalIsZoned ? sys_seconds { original } : viewer.toInstant(LocalTime { original });
    const seconds cut { occurrence.form == TimeForm::Day ? 1 : 0 };
    CollectionContents &contents = collection.contents();
    return EKEvent(contents.item(occurrence), collection.calendar(), contents.identifierSuffix(occurrence),
        { found.start, found.end - cut, occurrenceDate, occurrence.original, occurrence.originalIsZoned });
}

void merge(StoreChanges &into, const StoreChanges &changes)
{
    into.collections = into.collections || changes.collections;
    for (const auto &[collection, names] : changes.objects) {
        const auto [entry, isNew] = into.objects.try_emplace(collection, names);
        if (!isNew && (names.isEmpty() || entry->second.isEmpty()))
            entry->second.clear();
        else if (!isNew)
            entry->second += names;
    }
}

} // namespace

CalendarDatabase::CalendarDatabase(std::unique_ptr<StoreBackend> backend, std::unique_ptr<CalendarIndex> index,
    const Environment &environment, NotificationCenter &notifications, Logger logger,
    std::unique_ptr<ChangeJournal> journal)
    : m_environment(environment)
    , m_notifications(notifications)
    , m_logger(std::move(logger))
    , m_index(std::move(index))
    , m_journal(std::move(journal))
    , m_context(std::make_unique<QObject>())
    , m_backend(std::move(backend))
{
    QObject::connect(&environment, &Environment::significantTimeChange, m_context.get(),
        [this] { m_notifications.post(QLatin1String(kEKEventStoreChangedNotification)); });
}

CalendarDatabase::~CalendarDatabase()
{
    // Nobody tells of changes any more; then, as of a large store even this takes its time:
    m_backend.reset();
    forEachInParallel(m_collections.size(), [this](std::size_t i) { m_collections[i].reset(); });
}

void CalendarDatabase::follow()
{
    const QMutexLocker lock(&m_mutex);
    if (!std::exchange(m_isFollowing, true) && m_isGranted)
        beginWatching();
}

/// Watching begins before the first look, or is followed by another one: so a change in between is told, and found to
/// be none or is read.
void CalendarDatabase::beginWatching()
{
    m_backend->watch([this](const StoreChanges &changes) { storeChanged(changes); });
    m_pending.collections = true;
}

bool CalendarDatabase::requestAccess()
{
    const QMutexLocker lock(&m_mutex);
    if (m_isGranted)
        return true;
    m_isGranted = m_backend->requestAccess();
    if (m_isGranted) {
        m_pending.collections = true;
        if (m_isFollowing)
            beginWatching();
    }
    return m_isGranted;
}

std::vector<EKCalendarRef> CalendarDatabase::calendars()
{
    const QMutexLocker lock(&m_mutex);
    applyChanges();
    std::vector<EKCalendarRef> result;
    for (const auto &collection : m_collections)
        result.push_back(collection->calendar());
    return result;
}

std::vector<EKEvent> CalendarDatabase::events(const EKEventPredicate &predicate)
{
    const QMutexLocker lock(&m_mutex);
    applyChanges();
    if (predicate.end <= predicate.start)
        return {};
    const CalendarIndex::Snapshot snapshot(m_index.get());
    const std::vector<std::size_t> wanted = this->wanted(predicate.calendarIdentifiers);
    const std::vector<std::vector<bool>> matching = matchingItems(wanted, predicate.text);
    std::vector<std::vector<FoundOccurrence>> parts(m_collections.size());
    const auto query = [&](std::size_t i) {
        return CollectionContents::Query { predicate.start, predicate.end, m_environment.timeZone(),
            m_isFollowing ? kMargin : days { 0 }, predicate.text ? &matching[i] : nullptr };
    };
    const auto look = [&](std::size_t i) {
        m_collections[i]->events(query(i), [&](const Occurrence &occurrence, sys_seconds start, sys_seconds end) {
            parts[i].push_back({ occurrence, start, end, i });
        });
    };
    const auto load = [&](std::size_t i) {
        std::vector<std::uint32_t> items;
        std::transform(parts[i].begin(), parts[i].end(), std::back_inserter(items),
            [](const FoundOccurrence &found) { return found.occurrence.item; });
        m_collections[i]->contents().load(items);
    };
    const auto isPrepared = [&](std::size_t i) { return m_collections[i]->contents().isPrepared(query(i)); };
    // The first question about a time takes long, the others not even as long as to begin a thread.
    if (std::all_of(wanted.begin(), wanted.end(), isPrepared)) {
        std::for_each(wanted.begin(), wanted.end(), look);
    } else {
        forEachInParallel(wanted.size(), [&](std::size_t n) {
            look(wanted[n]);
            load(wanted[n]);
        });
    }
    std::vector<FoundOccurrence> found;
    for (std::vector<FoundOccurrence> &part : parts)
        std::move(part.begin(), part.end(), std::back_inserter(found));
    std::sort(found.begin(), found.end(), [](const auto &a, const auto &b) { return a.key() < b.key(); });
    std::vector<EKEvent> result;
    result.reserve(found.size());
    for (const FoundOccurrence &each : found)
        result.push_back(makeEvent(each, *m_collections[each.collection], m_environment.timeZone()));
    return result;
}

/// The places of the collections that are asked for.
std::vector<std::size_t> CalendarDatabase::wanted(const std::optional<std::vector<QString>> &identifiers) const
{
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < m_collections.size(); ++i) {
        const QString &own = m_collections[i]->info().identifier;
        if (!identifiers || std::find(identifiers->begin(), identifiers->end(), own) != identifiers->end())
            places.push_back(i);
    }
    return places;
}

/// For each of these collections, by its place, which of its items hold the text; nothing where there is none.
std::vector<std::vector<bool>> CalendarDatabase::matchingItems(
    const std::vector<std::size_t> &places, const std::optional<QString> &text)
{
    if (!text)
        return {};
    const TextMatcher matcher(*text, m_environment.locale());
    std::vector<std::vector<bool>> matching(m_collections.size());
    forEachInParallel(places.size(), [&](std::size_t n) {
        // A matcher is for one thread at a time.
        matching[places[n]] = m_collections[places[n]]->contents().matchingItems(TextMatcher(matcher));
    });
    return matching;
}

std::vector<EKReminder> CalendarDatabase::reminders(const EKReminderPredicate &predicate)
{
    const QMutexLocker lock(&m_mutex);
    applyChanges();
    const CalendarIndex::Snapshot snapshot(m_index.get());
    std::vector<EKReminder> result;
    for (const std::size_t i : wanted(predicate.calendarIdentifiers)) {
        StoredCollection &collection = *m_collections[i];
        for (auto &[record, suffix] : collection.contents().reminders())
            result.emplace_back(std::move(record), collection.calendar(), std::move(suffix));
    }
    return result;
}

EKCalendarRef CalendarDatabase::defaultCalendarForNewEvents()
{
    const QMutexLocker lock(&m_mutex);
    applyChanges();
    EKCalendarRef first;
    for (const auto &collection : m_collections) {
        const EKCalendarRef &calendar = collection->calendar();
        if (!calendar->allowsContentModifications || !calendar->allowsEvents)
            continue;
        if (collection->info().isDefault)
            return calendar;
        if (!first)
            first = calendar;
    }
    return first;
}

std::optional<EKEvent> CalendarDatabase::eventWithIdentifier(
    const QString &identifier, const std::optional<Date> &start)
{
    const QMutexLocker lock(&m_mutex);
    applyChanges();
    const std::vector<EKEvent> found = occurrences(identifier, start);
    return found.empty() ? std::nullopt : std::optional(found.front());
}

/// Those of an event that begin at `start`, or of its first ones the earliest.
std::vector<EKEvent> CalendarDatabase::occurrences(const QString &identifier, const std::optional<Date> &start)
{
    const TimeZone viewer = m_environment.timeZone();
    std::vector<EKEvent> found;
    for (const auto &collection : m_collections) {
        const QString prefix = collection->info().identifier + u'/';
        if (!identifier.startsWith(prefix) || !found.empty())
            continue;
        CollectionContents &contents = collection->contents();
        contents.occurrences(contents.itemName(identifier.mid(prefix.size())), start, viewer,
            [&](const Occurrence &occurrence, sys_seconds begin, sys_seconds end) {
                found.push_back(makeEvent({ occurrence, begin, end }, *collection, viewer));
            });
    }
    std::stable_sort(
        found.begin(), found.end(), [](const EKEvent &a, const EKEvent &b) { return a.startDate() < b.startDate(); });
    return found;
}

void CalendarDatabase::storeChanged(const StoreChanges &changes)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (!differs(changes))
            return;
        merge(m_pending, changes);
    }
    m_notifications.post(QLatin1String(kEKEventStoreChangedNotification));
}

bool CalendarDatabase::differs(const StoreChanges &changes)
{
    if (changes.collections) {
        const auto present = m_backend->collections();
        const bool same = std::equal(present.begin(), present.end(), m_collections.begin(), m_collections.end(),
            [](const StoreCollection &info, const auto &held) { return info == held->info(); });
        return !same || std::any_of(m_collections.begin(), m_collections.end(), [](const auto &collection) {
            return collection->differs({});
        });
    }
    return std::any_of(changes.objects.begin(), changes.objects.end(), [this](const auto &change) {
        StoredCollection *collection = find(change.first);
        return collection && collection->differs(change.second);
    });
}

void CalendarDatabase::applyChanges()
{
    const StoreChanges changes = std::exchange(m_pending, {});
    if (changes.collections) {
        applyCollections();
        return;
    }
    std::vector<StoredCollection *> changed;
    for (const auto &[identifier, names] : changes.objects) {
        if (StoredCollection *collection = find(identifier))
            changed.push_back(collection);
    }
    apply(changed, changes.objects);
}

void CalendarDatabase::applyCollections()
{
    Collections present;
    std::vector<StoredCollection *> all;
    for (StoreCollection &info : m_backend->collections()) {
        const StoredCollection *held = find(info.identifier);
        // Who the user is stands in the parsed attendees.
        const bool isKept = held && held->info().userAddresses == info.userAddresses;
        present.push_back(isKept ? std::move(m_collections[m_places[info.identifier]])
                                 : std::make_unique<StoredCollection>(*m_backend, m_index.get(), m_logger));
        present.back()->setInfo(std::move(info));
        all.push_back(present.back().get());
    }
    apply(all, {});
    m_collections = std::move(present);
    m_places.clear();
    for (std::size_t i = 0; i < m_collections.size(); ++i)
        m_places.insert(m_collections[i]->info().identifier, i);
}

/// Brings these collections to the present state of the objects that `names` tells for them, or of all. What takes long
/// is done in parallel: looking at the files, and parsing.
void CalendarDatabase::apply(
    const std::vector<StoredCollection *> &collections, const std::map<QString, QStringList> &names)
{
    struct Parsing
    {
        StoredCollection *collection;
        ObjectState state;
        std::optional<CalendarObject> result;
    };
    std::vector<std::vector<ObjectState>> changed(collections.size());
    forEachInParallel(collections.size(), [&](std::size_t i) {
        const auto named = names.find(collections[i]->info().identifier);
        changed[i] = collections[i]->examine(named == names.end() ? QStringList() : named->second);
    });
    std::vector<Parsing> all;
    for (std::size_t i = 0; i < collections.size(); ++i) {
        for (ObjectState &state : changed[i])
            all.push_back({ collections[i], std::move(state), std::nullopt });
    }
    forEachInParallel(all.size(), [&](std::size_t i) { all[i].result = all[i].collection->parse(all[i].state.name); });
    for (Parsing &each : all)
        each.collection->take(each.state, std::move(each.result));
    forEachInParallel(collections.size(), [&](std::size_t i) { collections[i]->finish(); });
}

StoredCollection *CalendarDatabase::find(const QString &identifier)
{
    const auto place = m_places.constFind(identifier);
    return place == m_places.constEnd() ? nullptr : m_collections[*place].get();
}

} // namespace mintaro
