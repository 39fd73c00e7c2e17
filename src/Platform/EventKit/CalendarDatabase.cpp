#include "Platform/EventKit/CalendarDatabase.h"

#include "Platform/EventKit/CalendarPalette.h"

#include <set>
#include <tuple>

namespace mintaro {

using namespace std::chrono;

namespace {

/// For all the rules of a query together: about a second's work.
constexpr std::int64_t kStepsPerQuery = 50'000'000;

bool isWanted(const std::optional<std::vector<QString>> &identifiers, const QString &identifier)
{
    return !identifiers || std::find(identifiers->begin(), identifiers->end(), identifier) != identifiers->end();
}

EKCalendar makeCalendar(const StoreCollection &info, const CollectionContents &contents)
{
    EKCalendar calendar;
    calendar.calendarIdentifier = info.identifier;
    calendar.title = info.title;
    calendar.cgColor = info.color.value_or(paletteColor(info.identifier));
    calendar.source = { info.sourceIdentifier, info.sourceTitle };
    calendar.allowsContentModifications = info.isWritable;
    calendar.allowsReminders = contents.holdsReminders() || info.isReminderList;
    calendar.allowsEvents = contents.holdsEvents() || !calendar.allowsReminders;
    return calendar;
}

/// An event with its place among those of equal starts.
struct SortableEvent
{
    EKEvent event;
    std::size_t calendar;
    std::uint32_t order;

    [[nodiscard]] auto key() const { return std::tuple(event.startDate(), calendar, order, event.occurrenceDate()); }
};

EKEvent makeEvent(const Occurrence &occurrence, const EKCalendarRef &calendar, sys_seconds start, sys_seconds end,
    const TimeZone &viewer)
{
    const seconds original { occurrence.original };
    const sys_seconds occurrenceDate
        = occurrence.originalIsZoned ? sys_seconds { original } : viewer.toInstant(LocalTime { original });
    const seconds cut { occurrence.item->isAllDay() ? 1 : 0 };
    return EKEvent(occurrence.item, calendar, start, end - cut, occurrenceDate);
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

CalendarDatabase::CalendarDatabase(std::unique_ptr<StoreBackend> backend, const Environment &environment,
    NotificationCenter &notifications, Logger logger)
    : m_environment(environment)
    , m_notifications(notifications)
    , m_logger(std::move(logger))
    , m_context(std::make_unique<QObject>())
    , m_backend(std::move(backend))
{
    QObject::connect(&environment, &Environment::significantTimeChange, m_context.get(),
        [this] { m_notifications.post(QLatin1String(kEKEventStoreChangedNotification)); });
}

CalendarDatabase::~CalendarDatabase() = default;

bool CalendarDatabase::requestAccess()
{
    const QMutexLocker lock(&m_mutex);
    if (m_isGranted)
        return true;
    m_isGranted = m_backend->requestAccess();
    if (m_isGranted) {
        m_pending.collections = true;
        // Watching begins before the first look: a change in between is told, and found to be none or is read.
        m_backend->watch([this](const StoreChanges &changes) { storeChanged(changes); });
    }
    return m_isGranted;
}

std::vector<EKCalendarRef> CalendarDatabase::calendars()
{
    const QMutexLocker lock(&m_mutex);
    applyChanges();
    std::vector<EKCalendarRef> result;
    for (const auto &collection : m_collections)
        result.push_back(collection->calendar);
    return result;
}

std::vector<EKEvent> CalendarDatabase::events(const EKEventPredicate &predicate)
{
    const QMutexLocker lock(&m_mutex);
    applyChanges();
    if (predicate.end <= predicate.start)
        return {};
    const CollectionContents::Query query { predicate.start, predicate.end, m_environment.timeZone() };
    ExpansionBudget budget { kStepsPerQuery };
    std::vector<SortableEvent> found;
    for (std::size_t i = 0; i < m_collections.size(); ++i) {
        Collection &each = *m_collections[i];
        if (!isWanted(predicate.calendarIdentifiers, each.info.identifier))
            continue;
        each.contents.events(
            query, budget,
            [&](const Occurrence &occurrence, sys_seconds start, sys_seconds end) {
                found.push_back(
                    { makeEvent(occurrence, each.calendar, start, end, query.viewer), i, occurrence.order });
            },
            [&](const QString &name) {
                complain(each, name, QStringLiteral("a rule with too many occurrences, left out"));
            });
    }
    std::sort(found.begin(), found.end(), [](const auto &a, const auto &b) { return a.key() < b.key(); });
    std::vector<EKEvent> result;
    result.reserve(found.size());
    for (SortableEvent &each : found)
        result.push_back(std::move(each.event));
    return result;
}

std::vector<EKReminder> CalendarDatabase::reminders(const EKReminderPredicate &predicate)
{
    const QMutexLocker lock(&m_mutex);
    applyChanges();
    std::vector<EKReminder> result;
    for (const auto &collection : m_collections) {
        if (!isWanted(predicate.calendarIdentifiers, collection->info.identifier))
            continue;
        for (const auto &record : collection->contents.reminders())
            result.emplace_back(record, collection->calendar);
    }
    return result;
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
            [](const StoreCollection &info, const auto &held) { return info == held->info; });
        if (!same)
            return true;
        return std::any_of(m_collections.begin(), m_collections.end(),
            [this](const auto &collection) { return differs(*collection, {}); });
    }
    return std::any_of(changes.objects.begin(), changes.objects.end(), [this](const auto &change) {
        const Collection *collection = find(change.first);
        return collection && differs(*collection, change.second);
    });
}

bool CalendarDatabase::differs(const Collection &collection, const QStringList &names)
{
    if (names.isEmpty()) {
        const auto present = m_backend->objects(collection.info.identifier);
        return static_cast<std::size_t>(collection.contents.names().size()) != present.size()
            || std::any_of(present.begin(), present.end(), [&](const ObjectState &state) {
                   const ObjectRevision *held = collection.contents.revision(state.name);
                   return !held || *held != state.revision;
               });
    }
    return std::any_of(names.begin(), names.end(), [&](const QString &name) {
        const auto present = m_backend->object(collection.info.identifier, name);
        const ObjectRevision *held = collection.contents.revision(name);
        return present.has_value() != (held != nullptr) || (present && present->revision != *held);
    });
}

void CalendarDatabase::applyChanges()
{
    const StoreChanges changes = std::exchange(m_pending, {});
    if (changes.collections) {
        applyCollections();
        return;
    }
    for (const auto &[identifier, names] : changes.objects) {
        if (Collection *collection = find(identifier))
            applyObjects(*collection, names);
    }
}

void CalendarDatabase::applyCollections()
{
    std::vector<std::unique_ptr<Collection>> present;
    for (StoreCollection &info : m_backend->collections()) {
        const auto held = std::find_if(m_collections.begin(), m_collections.end(),
            [&info](const auto &each) { return each && each->info.identifier == info.identifier; });
        // Who the user is stands in the parsed attendees.
        const bool isKept = held != m_collections.end() && (*held)->info.userAddresses == info.userAddresses;
        present.push_back(isKept ? std::move(*held) : std::make_unique<Collection>());
        present.back()->info = std::move(info);
        applyObjects(*present.back(), {});
    }
    m_collections = std::move(present);
}

void CalendarDatabase::applyObjects(Collection &collection, const QStringList &names)
{
    QStringList gone;
    std::vector<ObjectState> present;
    if (names.isEmpty()) {
        present = m_backend->objects(collection.info.identifier);
        std::set<QString> presentNames;
        for (const ObjectState &state : present)
            presentNames.insert(state.name);
        for (const QString &name : collection.contents.names()) {
            if (!presentNames.contains(name))
                gone.append(name);
        }
    }
    for (const QString &name : names) {
        if (const auto state = m_backend->object(collection.info.identifier, name))
            present.push_back(*state);
        else
            gone.append(name);
    }
    for (const QString &name : gone)
        collection.contents.remove(name);
    for (const ObjectState &state : present)
        read(collection, state);
    finish(collection);
}

void CalendarDatabase::read(Collection &collection, const ObjectState &state)
{
    const ObjectRevision *held = collection.contents.revision(state.name);
    if (held && *held == state.revision)
        return;
    CalendarObject content;
    if (const auto text = m_backend->read(collection.info.identifier, state.name))
        content = readCalendarObject(*text, collection.info.userAddresses);
    if (!content.complaints.isEmpty())
        complain(collection, state.name, content.complaints.join(QStringLiteral("; ")));
    // An object that can no longer be read is most likely being written: the end of that is a change of its own.
    if (held && content.isUnreadable())
        collection.contents.keep(state);
    else
        collection.contents.set(state, std::move(content));
}

void CalendarDatabase::finish(Collection &collection)
{
    collection.contents.rebuild([&](const QString &name) {
        complain(collection, name, QStringLiteral("the UID of another object of this calendar"));
    });
    EKCalendar calendar = makeCalendar(collection.info, collection.contents);
    if (!collection.calendar || !(*collection.calendar == calendar))
        collection.calendar = std::make_shared<const EKCalendar>(std::move(calendar));
}

CalendarDatabase::Collection *CalendarDatabase::find(const QString &identifier)
{
    const auto found = std::find_if(m_collections.begin(), m_collections.end(),
        [&identifier](const auto &each) { return each->info.identifier == identifier; });
    return found == m_collections.end() ? nullptr : found->get();
}

void CalendarDatabase::complain(const Collection &collection, const QString &name, const QString &text) const
{
    m_logger.error(
        QStringLiteral("%1: %2").arg(m_backend->describe(collection.info.identifier, name), text.left(1'000)));
}

} // namespace mintaro
