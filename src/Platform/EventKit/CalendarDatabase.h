#pragma once

#include "Platform/EventKit/ChangeJournal.h"
#include "Platform/EventKit/EKEventStore.h"
#include "Platform/EventKit/StoreEditor.h"
#include "Platform/EventKit/StoredCollection.h"
#include "Platform/EventKit/Writing/EventEditor.h"
#include "Platform/Foundation/Environment.h"
#include "Platform/Foundation/Logger.h"
#include "Platform/Foundation/NotificationCenter.h"

#include <QHash>
#include <QMutex>

namespace mintaro {

/// The one database under every EKEventStore: it keeps the sorted occurrences of what the backend delivers in memory,
/// parses only what changed since it, or a run before, last looked, and posts EKEventStoreChangedNotification. Safe
/// from several threads at once; whoever asks does the work that is due.
class CalendarDatabase
{
public:
    /// `environment` and `notifications` must outlive the database. `index` may be null: then each run parses all.
    /// `journal` may be null: then nothing is kept of what is overwritten.
    CalendarDatabase(std::unique_ptr<StoreBackend> backend, std::unique_ptr<CalendarIndex> index,
        const Environment &environment, NotificationCenter &notifications,
        Logger logger = Logger(QStringLiteral("EventStore")), std::unique_ptr<ChangeJournal> journal = nullptr);
    ~CalendarDatabase();

    /// From now on changes are told and taken in. Without it the state at the first question stands.
    void follow();
    [[nodiscard]] bool requestAccess();
    [[nodiscard]] std::vector<EKCalendarRef> calendars();
    [[nodiscard]] std::vector<EKEvent> events(const EKEventPredicate &predicate);
    [[nodiscard]] std::vector<EKReminder> reminders(const EKReminderPredicate &predicate);

    /// As EKEventStore tells them.
    [[nodiscard]] EKCalendarRef defaultCalendarForNewEvents();
    [[nodiscard]] std::optional<EKEvent> eventWithIdentifier(
        const QString &identifier, const std::optional<Date> &start);
    [[nodiscard]] EKEvent save(const EKEvent &event, EKSpan span);
    void remove(const EKEvent &event, EKSpan span);
    void save(const EKReminder &reminder);
    void remove(const EKReminder &reminder);

    /// What was overwritten or removed in the last 30 days, the latest last.
    [[nodiscard]] std::vector<ChangeJournal::Entry> journal();
    /// The object as it was; empty where it cannot be read any more.
    [[nodiscard]] std::optional<QByteArray> journalText(const QString &id);
    /// Brings an object back as it was, over what there is of it now, and takes away what the same change made of it
    /// elsewhere; the journal keeps both in turn. False where it is as it was: then nothing is done. Throws EKError.
    [[nodiscard]] bool restore(const QString &id);

private:
    using Collections = std::vector<std::unique_ptr<StoredCollection>>;

    // All below hold m_mutex, but for storeChanged.
    void storeChanged(const StoreChanges &changes);
    [[nodiscard]] std::vector<EKEvent> occurrences(const QString &identifier, const std::optional<Date> &start);
    [[nodiscard]] EKEvent savedEvent(const EKEvent &event, EKSpan span, const QString &identifier);
    [[nodiscard]] bool differs(const StoreChanges &changes);
    void beginWatching();
    [[nodiscard]] std::vector<std::size_t> wanted(const std::optional<std::vector<QString>> &identifiers) const;
    [[nodiscard]] std::vector<std::vector<bool>> matchingItems(
        const std::vector<std::size_t> &places, const std::optional<QString> &text);
    using Objects = std::function<QStringList(const CollectionContents &contents)>;
    /// Where an event or reminder is, and what is to be done there.
    struct Task
    {
        StoredCollection *source;
        /// Where what is new comes to.
        StoredCollection *target;
        Objects objects;
        std::function<StoreEdit(std::vector<ObjectText> objects)> work;
    };
    [[nodiscard]] StoreEdit carryOut(const Task &task);
    /// Holds m_mutex itself, as storeChanged does.
    void changeInPlace(const EKCalendarRef &calendar, const Objects &objects,
        const std::function<StoreEdit(std::vector<ObjectText>, const EditContext &)> &work);
    void takeWritten(const Task &task, const StoreEdit &edit, const QString &createdName);
    [[nodiscard]] StoredCollection &writable(const EKCalendarRef &calendar);
    [[nodiscard]] EditContext editContext(const StoredCollection &collection) const;
    [[nodiscard]] ChangeJournal::Place presentPlace(const ChangeJournal::Place &place, const QByteArray &text);
    [[nodiscard]] bool putBack(const ChangeJournal::Place &place, const std::optional<QByteArray> &text);
    [[nodiscard]] QString saveNew(const EKEvent &event);
    [[nodiscard]] QString saveChanged(const EKEvent &event, EKSpan span);

    void applyChanges();
    void applyCollections();
    void apply(const std::vector<StoredCollection *> &collections, const std::map<QString, QStringList> &names);
    [[nodiscard]] StoredCollection *find(const QString &identifier);

    const Environment &m_environment;
    NotificationCenter &m_notifications;
    const Logger m_logger;
    QMutex m_mutex;
    const std::unique_ptr<CalendarIndex> m_index;
    const std::unique_ptr<ChangeJournal> m_journal;
    Collections m_collections;
    /// In m_collections, by identifier.
    QHash<QString, std::size_t> m_places;
    /// What the backend told of and no query has looked at yet.
    StoreChanges m_pending;
    bool m_isGranted = false;
    bool m_isFollowing = false;
    /// Ends the connection to the environment with the database.
    std::unique_ptr<QObject> m_context;
    /// Last, to go first: its thread calls storeChanged.
    std::unique_ptr<StoreBackend> m_backend;
};

} // namespace mintaro
