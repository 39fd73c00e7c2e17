#include "Platform/EventKit/StoredCollection.h"

#include "Platform/EventKit/CalendarPalette.h"
#include "Platform/EventKit/ICalendarReader.h"

#include <QCryptographicHash>
#include <QHash>
#include <QSet>

namespace mintaro {

namespace {

/// For all the rules of a query together: about half a second's work.
constexpr std::int64_t kStepsPerQuery = 25'000'000;

QByteArray fingerprint(const QByteArray &text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Sha256);
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

} // namespace

StoredCollection::StoredCollection(StoreBackend &backend, CalendarIndex *index, const Logger &logger)
    : m_backend(backend)
    , m_index(index)
    , m_logger(logger)
    , m_contents(*this)
{
}

bool StoredCollection::differs(const QStringList &names)
{
    if (names.isEmpty()) {
        const auto present = m_backend.objects(m_info.identifier);
        return m_contents.objects().size() != present.size()
            || !std::all_of(present.begin(), present.end(),
                [this](const ObjectState &state) { return isHeld(state) || isOwnWriting(state); });
    }
    return std::any_of(names.begin(), names.end(), [this](const QString &name) {
        const auto present = m_backend.object(m_info.identifier, name);
        return present ? !isHeld(*present) && !isOwnWriting(*present) : m_contents.object(name) != nullptr;
    });
}

std::vector<ObjectState> StoredCollection::examine(const QStringList &names)
{
    if (names.isEmpty())
        return examineAll();
    std::vector<ObjectState> changed;
    for (const QString &name : names) {
        std::optional<ObjectState> state = m_backend.object(m_info.identifier, name);
        if (!state && m_contents.object(name))
            drop(name);
        else if (state && !isHeld(*state))
            changed.push_back(std::move(*state));
    }
    return changed;
}

std::vector<ObjectState> StoredCollection::examineAll()
{
    std::vector<ObjectState> present = m_backend.objects(m_info.identifier);
    if (!std::exchange(m_isLoaded, true))
        return takeFromIndex(std::move(present));
    QSet<QStringView> presentNames;
    for (const ObjectState &state : present)
        presentNames.insert(state.name);
    QStringList gone;
    for (const auto &[name, object] : m_contents.objects()) {
        if (!presentNames.contains(name))
            gone.append(name);
    }
    for (const QString &name : gone)
        drop(name);
    std::erase_if(present, [this](const ObjectState &state) { return isHeld(state); });
    return present;
}

/// Whether this state is the one that is held.
bool StoredCollection::isHeld(const ObjectState &state) const
{
    const StoredObject *held = m_contents.object(state.name);
    return held && held->revision == state.revision;
}

void StoredCollection::noteWritten(const QString &name, const QByteArray &text)
{
    m_written.insert(name, fingerprint(text));
}

/// Whether this state is what we wrote; then it is the one that is held.
bool StoredCollection::isOwnWriting(const ObjectState &state)
{
    StoredObject *held = m_contents.object(state.name);
    const QByteArray written = m_written.take(state.name);
    const auto text = held && !written.isEmpty() ? m_backend.read(m_info.identifier, state.name) : std::nullopt;
    if (!text || fingerprint(*text) != written)
        return false;
    held->revision = state.revision;
    return true;
}

void StoredCollection::drop(const QString &name)
{
    m_contents.remove(name);
    m_gone.append(name);
}

std::optional<CalendarObject> StoredCollection::parse(const QString &name) const
{
    const auto text = m_backend.read(m_info.identifier, name);
    return text ? std::optional(readCalendarObject(*text, m_info.userAddresses, name)) : std::nullopt;
}

void StoredCollection::take(const ObjectState &state, std::optional<CalendarObject> object)
{
    StoredObject stored;
    stored.revision = state.revision;
    if (object) {
        if (!object->schedule.complaint.isEmpty())
            complain(state.name, object->schedule.complaint);
        StoredObject *held = m_contents.object(state.name);
        // An object that can no longer be read is most likely being written: the end of that is a change of its own.
        if (object->isUnreadable() && held) {
            held->revision = state.revision;
            return;
        }
        stored.schedule = std::move(object->schedule);
        m_taken.append(state.name);
    }
    stored.details = std::make_unique<ObjectDetails>(object ? std::move(object->details) : ObjectDetails());
    m_contents.set(state.name, std::move(stored));
}

void StoredCollection::finish()
{
    writeIndex();
    m_contents.rebuild(
        [this](const QString &name) { complain(name, QStringLiteral("the UID of another object of this calendar")); });
    EKCalendar calendar = makeCalendar(m_info, m_contents);
    if (!m_calendar || !(*m_calendar == calendar))
        m_calendar = std::make_shared<const EKCalendar>(std::move(calendar));
}

/// Takes over what the index knows of the present states; the result is the rest of them.
std::vector<ObjectState> StoredCollection::takeFromIndex(std::vector<ObjectState> present)
{
    if (!m_index)
        return present;
    QHash<QStringView, ObjectState *> states;
    states.reserve(static_cast<qsizetype>(present.size()));
    for (ObjectState &state : present)
        states.insert(state.name, &state);
    std::vector<bool> isTaken(present.size());
    for (CalendarIndex::Entry &each : m_index->load(m_info.identifier, stamp())) {
        const ObjectState *state = states.value(each.name);
        if (!state)
            m_gone.append(each.name);
        if (!state || each.object.revision != state->revision)
            continue;
        if (!each.object.schedule.complaint.isEmpty())
            complain(each.name, each.object.schedule.complaint);
        m_contents.set(state->name, std::move(each.object));
        isTaken[static_cast<std::size_t>(state - present.data())] = true;
    }
    std::vector<ObjectState> rest;
    for (std::size_t i = 0; i < present.size(); ++i) {
        if (!isTaken[i])
            rest.push_back(std::move(present[i]));
    }
    return rest;
}

void StoredCollection::writeIndex()
{
    const QStringList taken = std::exchange(m_taken, {});
    const QStringList gone = std::exchange(m_gone, {});
    if (!m_index)
        return;
    std::vector<CalendarIndex::Change> changes;
    for (const QString &name : taken) {
        if (StoredObject *object = m_contents.object(name))
            changes.push_back({ name, object });
    }
    m_index->write(m_info.identifier, stamp(), changes, gone);
    // What is shown of them comes back from there; the rest of a large store need not lie in memory.
    for (const CalendarIndex::Change &each : changes) {
        if (each.object->detailsNumber != 0)
            each.object->details.reset();
    }
}

void StoredCollection::loadDetails(const std::vector<StoredObject *> &objects)
{
    if (m_index)
        m_index->loadDetails(objects);
}

ObjectDetails StoredCollection::readDetails(const QString &name)
{
    // What the index lost of it the next run is to write anew.
    if (m_index)
        m_index->write(m_info.identifier, stamp(), {}, { name });
    auto read = parse(name);
    return read ? std::move(read->details) : ObjectDetails();
}

void StoredCollection::visitDetails(const Visitor &visit)
{
    if (m_index)
        m_index->visitDetails(m_info.identifier, stamp(), visit);
}

void StoredCollection::events(const CollectionContents::Query &query, const CollectionContents::Found &found)
{
    ExpansionBudget budget { kStepsPerQuery };
    m_contents.events(query, budget, found,
        [this](const QString &name) { complain(name, QStringLiteral("a rule with too many occurrences, left out")); });
}

void StoredCollection::complain(const QString &name, const QString &text) const
{
    m_logger.error(QStringLiteral("%1: %2").arg(m_backend.describe(m_info.identifier, name), text.left(1'000)));
}

} // namespace mintaro
