#include "Platform/EventKit/CalendarDatabase.h"

#include "Platform/EventKit/ICalendarReader.h"
#include "Platform/EventKit/Writing/ReminderEditor.h"

#include <QUuid>

#include <algorithm>

namespace mintaro {

using namespace std::chrono;

namespace {

/// Each is lost only to another program that wrote at the same moment.
constexpr int kAttempts = 50;

EventReference referenceTo(const EKEvent &event)
{
    const EventOccurrence &occurrence = event.occurrence();
    return { event.item(), occurrence.start, occurrence.end, occurrence.original, occurrence.originalIsZoned };
}

CollectionContents::ItemName nameOf(const EKEvent &event)
{
    return { event.calendarItemExternalIdentifier(), event.identifierSuffix() };
}

CollectionContents::ItemName nameOf(const EKReminder &reminder)
{
    return { reminder.record()->uid, reminder.identifierSuffix() };
}

} // namespace

StoredCollection &CalendarDatabase::writable(const EKCalendarRef &calendar)
{
    if (!calendar)
        throw EKError("There is no calendar to save to.");
    StoredCollection *collection = find(calendar->calendarIdentifier);
    if (!collection)
        throw EKError(QStringLiteral("The calendar \"%1\" no longer exists.").arg(calendar->title).toStdString());
    if (!collection->info().isWritable)
        throw EKError(QStringLiteral("The calendar \"%1\" cannot be changed.").arg(calendar->title).toStdString());
    return *collection;
}

EditContext CalendarDatabase::editContext(const StoredCollection &collection) const
{
    return { m_environment.timeZone(), floor<seconds>(m_environment.now()), collection.info().userAddresses,
        [] { return QUuid::createUuid().toString(QUuid::WithoutBraces); } };
}

/// Works out the change on what is there now and writes it, again where another program was quicker.
StoreEdit CalendarDatabase::carryOut(const Task &task)
{
    StoreEditor editor(*m_backend, m_journal.get(), m_logger);
    const QString &source = task.source->info().identifier;
    bool isMissing = false;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        std::vector<ObjectText> objects = editor.read(source, task.objects(task.source->contents()));
        if (objects.empty() && std::exchange(isMissing, true))
            throw EKError("The entry no longer exists.");
        if (!objects.empty()) {
            isMissing = false;
            StoreEdit edit = task.work(std::move(objects));
            if (editor.write(edit, source, task.target->info().identifier) == WriteOutcome::Done) {
                takeWritten(task, edit, editor.createdName());
                return edit;
            }
        }
        // It may have got another name.
        m_pending.objects[source].clear();
        applyChanges();
    }
    throw EKError("Other programs keep changing this entry. Please try again.");
}

/// What was written is known at once, and is no news when the backend tells of it.
void CalendarDatabase::takeWritten(const Task &task, const StoreEdit &edit, const QString &createdName)
{
    for (const ObjectChange &change : edit.changes) {
        m_pending.objects[task.source->info().identifier].append(change.name);
        if (change.text)
            task.source->noteWritten(change.name, *change.text);
    }
    if (edit.created) {
        m_pending.objects[task.target->info().identifier].append(createdName);
        task.target->noteWritten(createdName, edit.created->text);
    }
    applyChanges();
    if (!edit.overwritten.isEmpty())
        m_logger.info(QStringLiteral("%1: another program changed %2 too; the change made here stands")
                          .arg(m_backend->describe(task.source->info().identifier, edit.changes.front().name),
                              edit.overwritten.join(QLatin1String(", "))));
}

EKEvent CalendarDatabase::save(const EKEvent &event, EKSpan span)
{
    if (!event.changes())
        return event;
    EKEvent saved;
    {
        const QMutexLocker lock(&m_mutex);
        applyChanges();
        saved = savedEvent(event, span, event.storedCalendar() ? saveChanged(event, span) : saveNew(event));
    }
    m_notifications.post(QLatin1String(kEKEventStoreChangedNotification));
    return saved;
}

/// What became of an event, which may not be the only one of its series that begins when it does.
EKEvent CalendarDatabase::savedEvent(const EKEvent &event, EKSpan span, const QString &identifier)
{
    Date start = floor<seconds>(event.startDate());
    if (event.isAllDay()) {
        const TimeZone viewer = m_environment.timeZone();
        start = viewer.toInstant(floor<days>(viewer.toLocal(floor<seconds>(start))));
    }
    const std::vector<EKEvent> found = occurrences(identifier, start);
    const bool isException = event.storedCalendar() && span == EKSpan::ThisEvent;
    const Date original = isException ? event.occurrenceDate() : start;
    const auto same = std::find_if(
        found.begin(), found.end(), [&](const EKEvent &each) { return each.occurrenceDate() == original; });
    if (same != found.end())
        return *same;
    return found.empty() ? event : found.front();
}

/// The identifier that the event gets.
QString CalendarDatabase::saveNew(const EKEvent &event)
{
    const EventChanges &changes = *event.changes();
    if (!changes.start || !changes.end)
        throw EKError("The event has no start or end.");
    StoredCollection &target = writable(changes.calendar);
    StoreEditor editor(*m_backend, m_journal.get(), m_logger);
    StoreEdit edit;
    edit.created = EventEditor::create(changes, editContext(target));
    static_cast<void>(editor.write(edit, {}, target.info().identifier));
    takeWritten({ &target, &target, {}, {} }, edit, editor.createdName());
    return target.info().identifier + u'/' + edit.created->uid;
}

/// The identifier that the event has then.
QString CalendarDatabase::saveChanged(const EKEvent &event, EKSpan span)
{
    const EventChanges &changes = *event.changes();
    StoredCollection &source = writable(event.storedCalendar());
    StoredCollection &target = changes.calendar ? writable(changes.calendar) : source;
    const CollectionContents::ItemName name = nameOf(event);
    const StoreEdit edit = carryOut(
        { &source, &target, [&](const CollectionContents &contents) { return contents.objectsOfEvent(name); },
            [&](std::vector<ObjectText> objects) {
                EventEditor editor(std::move(objects), name.uid, editContext(source));
                StoreEdit result = editor.change(referenceTo(event), changes, span, &source != &target);
                const bool isMoved = &source != &target && result.uid == name.uid;
                if (isMoved && !target.contents().objectsOfEvent({ name.uid, {} }).isEmpty())
                    throw EKError(QStringLiteral("The calendar \"%1\" already has this event.")
                                      .arg(target.info().title)
                                      .toStdString());
                return result;
            } });
    const bool isSame = &source == &target && edit.uid == name.uid;
    return target.info().identifier + u'/' + edit.uid + (isSame ? name.suffix : QString());
}

/// Changes what stays in its calendar, and tells of it.
void CalendarDatabase::changeInPlace(const EKCalendarRef &calendar, const Objects &objects,
    const std::function<StoreEdit(std::vector<ObjectText>, const EditContext &)> &work)
{
    {
        const QMutexLocker lock(&m_mutex);
        applyChanges();
        StoredCollection &source = writable(calendar);
        const EditContext context = editContext(source);
        static_cast<void>(carryOut({ &source, &source, objects,
            [&](std::vector<ObjectText> present) { return work(std::move(present), context); } }));
    }
    m_notifications.post(QLatin1String(kEKEventStoreChangedNotification));
}

void CalendarDatabase::remove(const EKEvent &event, EKSpan span)
{
    const CollectionContents::ItemName name = nameOf(event);
    changeInPlace(
        event.storedCalendar(), [&](const CollectionContents &contents) { return contents.objectsOfEvent(name); },
        [&](std::vector<ObjectText> objects, const EditContext &context) {
            return EventEditor(std::move(objects), name.uid, context).remove(referenceTo(event), span);
        });
}

void CalendarDatabase::save(const EKReminder &reminder)
{
    if (!reminder.hasChanges())
        return;
    const CollectionContents::ItemName name = nameOf(reminder);
    changeInPlace(
        reminder.calendar(), [&](const CollectionContents &contents) { return contents.objectsOfReminder(name); },
        [&](std::vector<ObjectText> objects, const EditContext &context) {
            return completeReminder(
                std::move(objects), name.uid, reminder.isCompleted(), reminder.completionDate(), context);
        });
}

void CalendarDatabase::remove(const EKReminder &reminder)
{
    const CollectionContents::ItemName name = nameOf(reminder);
    changeInPlace(
        reminder.calendar(), [&](const CollectionContents &contents) { return contents.objectsOfReminder(name); },
        [&](std::vector<ObjectText> objects, const EditContext &) {
            return removeReminder(std::move(objects), name.uid);
        });
}

std::vector<ChangeJournal::Entry> CalendarDatabase::journal()
{
    const QMutexLocker lock(&m_mutex);
    return m_journal ? m_journal->entries() : std::vector<ChangeJournal::Entry>();
}

std::optional<QByteArray> CalendarDatabase::journalText(const QString &id)
{
    const QMutexLocker lock(&m_mutex);
    return m_journal ? m_journal->text(id) : std::nullopt;
}

bool CalendarDatabase::restore(const QString &id)
{
    bool isDone = false;
    {
        const QMutexLocker lock(&m_mutex);
        applyChanges();
        const auto entry = m_journal ? m_journal->entry(id) : std::nullopt;
        const auto text = entry ? m_journal->text(id) : std::nullopt;
        if (!text)
            throw EKError("There is no such entry in the journal.");
        isDone = putBack(presentPlace(entry->place, *text), *text);
        if (isDone && entry->created)
            static_cast<void>(putBack(*entry->created, std::nullopt));
    }
    if (isDone)
        m_notifications.post(QLatin1String(kEKEventStoreChangedNotification));
    return isDone;
}

/// Where the object of a text is by now, which another program may have given another name.
ChangeJournal::Place CalendarDatabase::presentPlace(const ChangeJournal::Place &place, const QByteArray &text)
{
    StoredCollection *collection = find(place.collection);
    if (!collection || collection->contents().object(place.name))
        return place;
    const CalendarObject object = readCalendarObject(text, {}, place.name);
    QStringList names;
    if (!object.details.items.empty())
        names = collection->contents().objectsOfEvent({ object.details.items.front()->uid, {} });
    else if (!object.details.reminders.empty())
        names = collection->contents().objectsOfReminder({ object.details.reminders.front()->uid, {} });
    return names.isEmpty() ? place : ChangeJournal::Place { place.collection, names.front() };
}

/// Makes an object hold this text, or without one removes it. False where it is so already.
bool CalendarDatabase::putBack(const ChangeJournal::Place &place, const std::optional<QByteArray> &text)
{
    StoredCollection *collection = find(place.collection);
    if (!collection)
        throw EKError(QStringLiteral("There is no calendar \"%1\" here.").arg(place.collection).toStdString());
    StoredCollection &target = writable(collection->calendar());
    StoreEditor editor(*m_backend, m_journal.get(), m_logger);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        StoreEdit edit;
        const std::vector<ObjectText> present = editor.read(place.collection, { place.name });
        if (present.empty() ? !text : present.front().text == text)
            return false;
        if (present.empty())
            edit.created = NewObject { {}, *text, place.name };
        else
            edit.changes.push_back({ place.name, present.front().text, text });
        if (editor.write(edit, place.collection, place.collection) == WriteOutcome::Done) {
            takeWritten({ &target, &target, {}, {} }, edit, editor.createdName());
            return true;
        }
    }
    throw EKError("Other programs keep changing this entry. Please try again.");
}

} // namespace mintaro
