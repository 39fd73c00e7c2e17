#pragma once

#include "Platform/EventKit/CollectionContents.h"
#include "Platform/EventKit/EKEventStore.h"
#include "Platform/EventKit/StoreBackend.h"
#include "Platform/Foundation/Environment.h"
#include "Platform/Foundation/Logger.h"
#include "Platform/Foundation/NotificationCenter.h"

#include <QMutex>

namespace mintaro {

/// The one database under every EKEventStore: it keeps what the backend delivers as parsed items and sorted occurrences
/// in memory, reads again only what changed, and posts EKEventStoreChangedNotification. Safe from several threads at
/// once; whoever asks does the work that is due.
class CalendarDatabase
{
public:
    /// `environment` and `notifications` must outlive the database.
    CalendarDatabase(std::unique_ptr<StoreBackend> backend, const Environment &environment,
        NotificationCenter &notifications, Logger logger = Logger(QStringLiteral("EventStore")));
    ~CalendarDatabase();

    [[nodiscard]] bool requestAccess();
    [[nodiscard]] std::vector<EKCalendarRef> calendars();
    [[nodiscard]] std::vector<EKEvent> events(const EKEventPredicate &predicate);
    [[nodiscard]] std::vector<EKReminder> reminders(const EKReminderPredicate &predicate);

private:
    struct Collection
    {
        StoreCollection info;
        EKCalendarRef calendar;
        CollectionContents contents;
    };

    // All below hold m_mutex, but for storeChanged.
    void storeChanged(const StoreChanges &changes);
    [[nodiscard]] bool differs(const StoreChanges &changes);
    [[nodiscard]] bool differs(const Collection &collection, const QStringList &names);
    void applyChanges();
    void applyCollections();
    void applyObjects(Collection &collection, const QStringList &names);
    void read(Collection &collection, const ObjectState &state);
    void finish(Collection &collection);
    [[nodiscard]] Collection *find(const QString &identifier);
    void complain(const Collection &collection, const QString &name, const QString &text) const;

    const Environment &m_environment;
    NotificationCenter &m_notifications;
    const Logger m_logger;
    QMutex m_mutex;
    std::vector<std::unique_ptr<Collection>> m_collections;
    /// What the backend told of and no query has looked at yet.
    StoreChanges m_pending;
    bool m_isGranted = false;
    /// Ends the connection to the environment with the database.
    std::unique_ptr<QObject> m_context;
    /// Last, to go first: its thread calls storeChanged.
    std::unique_ptr<StoreBackend> m_backend;
};

} // namespace mintaro
