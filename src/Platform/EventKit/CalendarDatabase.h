#pragma once

#include "Platform/EventKit/EKEventStore.h"
#include "Platform/EventKit/StoredCollection.h"
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
    CalendarDatabase(std::unique_ptr<StoreBackend> backend, std::unique_ptr<CalendarIndex> index,
        const Environment &environment, NotificationCenter &notifications,
        Logger logger = Logger(QStringLiteral("EventStore")));
    ~CalendarDatabase();

    /// From now on changes are told and taken in. Without it the state at the first question stands.
    void follow();
    [[nodiscard]] bool requestAccess();
    [[nodiscard]] std::vector<EKCalendarRef> calendars();
    [[nodiscard]] std::vector<EKEvent> events(const EKEventPredicate &predicate);
    [[nodiscard]] std::vector<EKReminder> reminders(const EKReminderPredicate &predicate);

private:
    using Collections = std::vector<std::unique_ptr<StoredCollection>>;

    // All below hold m_mutex, but for storeChanged.
    void storeChanged(const StoreChanges &changes);
    [[nodiscard]] bool differs(const StoreChanges &changes);
    void beginWatching();
    [[nodiscard]] std::vector<std::size_t> wanted(const std::optional<std::vector<QString>> &identifiers) const;
    [[nodiscard]] std::vector<std::vector<bool>> matchingItems(
        const std::vector<std::size_t> &places, const std::optional<QString> &text);
    void applyChanges();
    void applyCollections();
    void apply(const std::vector<StoredCollection *> &collections, const std::map<QString, QStringList> &names);
    [[nodiscard]] StoredCollection *find(const QString &identifier);

    const Environment &m_environment;
    NotificationCenter &m_notifications;
    const Logger m_logger;
    QMutex m_mutex;
    const std::unique_ptr<CalendarIndex> m_index;
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
