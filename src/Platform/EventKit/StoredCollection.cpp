#include "Platform/EventKit/StoredCollection.h"

#include "Platform/EventKit/CalendarPalette.h"
#include "Platform/EventKit/ICalendarReader.h"

#include <QHash>
#include <QSet>

namespace mintaro {

namespace {

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

bool StoredCollection::differs(const QStringList &names) const
{
    if (names.isEmpty()) {
        const auto present = m_backend.objects(m_info.identifier);
        return m_contents.objects().size() != present.size()
            || std::any_of(present.begin(), present.end(), [this](const ObjectState &state) {
                   const StoredObject *held = m_contents.object(state.name);
                   return !held || held->revision != state.revision;
               });
    }
    return std::any_of(names.begin(), names.end(), [this](const QString &name) {
        const auto present = m_backend.object(m_info.identifier, name);
        const StoredObject *held = m_contents.object(name);
        return present.has_value() != (held != nullptr) || (present && present->revision != held->revision);
    });
}

/// The states of these objects or of all; what is gone is dropped.
std::vector<ObjectState> StoredCollection::presentStates(const QStringList &names)
{
    std::vector<ObjectState> present;
    QStringList gone;
    if (names.isEmpty()) {
        present = m_backend.objects(m_info.identifier);
        if (!std::exchange(m_isLoaded, true))
            loadIndex(present);
        QSet<QStringView> presentNames;
        presentNames.reserve(static_cast<qsizetype>(present.size()));
        for (const ObjectState &state : present)
            presentNames.insert(state.name);
        for (const auto &[name, object] : m_contents.objects()) {
            if (!presentNames.contains(name))
                gone.append(name);
        }
    }
    for (const QString &name : names) {
        if (auto state = m_backend.object(m_info.identifier, name))
            present.push_back(std::move(*state));
        else if (m_contents.object(name))
            gone.append(name);
    }
    for (const QString &name : gone)
        m_contents.remove(name);
    m_gone += gone;
    return present;
}

std::vector<ObjectState> StoredCollection::examine(const QStringList &names)
{
    std::vector<ObjectState> changed = presentStates(names);
    std::erase_if(changed, [this](const ObjectState &state) {
        const StoredObject *held = m_contents.object(state.name);
        return held && held->revision == state.revision;
    });
    return changed;
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

/// Takes over what the index knows of the present states.
void StoredCollection::loadIndex(const std::vector<ObjectState> &present)
{
    if (!m_index)
        return;
    QHash<QStringView, const ObjectRevision *> revisions;
    revisions.reserve(static_cast<qsizetype>(present.size()));
    for (const ObjectState &state : present)
        revisions.insert(state.name, &state.revision);
    for (CalendarIndex::Entry &each : m_index->load(m_info.identifier, stamp())) {
        const ObjectRevision *revision = revisions.value(each.name);
        if (!revision)
            m_gone.append(each.name);
        if (!revision || each.object.revision != *revision)
            continue;
        if (!each.object.schedule.complaint.isEmpty())
            complain(each.name, each.object.schedule.complaint);
        m_contents.set(each.name, std::move(each.object));
    }
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
}

ObjectDetails StoredCollection::loadDetails(const QString &name, const StoredObject &object)
{
    if (m_index && object.detailsNumber != 0) {
        if (auto details = m_index->details(object))
            return std::move(*details);
        // The next run is to write it anew.
        m_index->write(m_info.identifier, stamp(), {}, { name });
    }
    auto read = parse(name);
    return read ? std::move(read->details) : ObjectDetails();
}

bool StoredCollection::visitTexts(const StoredObject &object, const TextVisitor &visit)
{
    return m_index && object.detailsNumber != 0 && m_index->visitTexts(object, visit);
}

void StoredCollection::complain(const QString &name, const QString &text) const
{
    m_logger.error(QStringLiteral("%1: %2").arg(m_backend.describe(m_info.identifier, name), text.left(1'000)));
}

} // namespace mintaro
