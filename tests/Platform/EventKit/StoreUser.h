#pragma once

#include "Platform/EventKit/CalendarDatabase.h"
#include "Platform/EventKit/Folders/FoldersBackend.h"

#include <algorithm>

namespace mintaro {

/// The engine over one user's folders, as a process of its own has it: calendars below HOME/root, journal and index
/// where the program has them.
class StoreUser
{
public:
    enum class Index { No, Yes };

    /// `clock` must outlive the object. Throws EKError where there is no store.
    StoreUser(const QString &home, const Clock &clock, Index index,
        Logger logger = Logger(QStringLiteral("EventStore")), const QString &zone = QStringLiteral("Europe/Rome"))
        : m_environment(clock, Locale {}, *TimeZone::named(zone))
        , m_folders { home, home + QLatin1String("/config"), home + QLatin1String("/data"),
            home + QLatin1String("/cache"), home + QLatin1String("/state"), {} }
        , m_database(std::make_shared<CalendarDatabase>(
              std::make_unique<FoldersBackend>(m_folders, home + QLatin1String("/root"), logger),
              index == Index::Yes ? std::make_unique<CalendarIndex>(m_folders.cacheHome + QLatin1String("/mintaro"))
                                  : nullptr,
              m_environment, m_notifications, logger,
              std::make_unique<ChangeJournal>(
                  m_folders.stateHome + QLatin1String("/mintaro/journal"), m_environment.clock())))
        , m_store(m_database)
    {
        if (!m_store.requestFullAccessToEvents())
            throw EKError("there is no store");
    }

    [[nodiscard]] EKEventStore &store() { return m_store; }
    [[nodiscard]] CalendarDatabase &database() { return *m_database; }

    [[nodiscard]] EKCalendarRef calendar(const QString &title)
    {
        for (const EKCalendarRef &calendar : m_database->calendars()) {
            if (calendar->title == title)
                return calendar;
        }
        throw EKError(QStringLiteral("there is no calendar %1").arg(title).toStdString());
    }

    /// The occurrence of that place, counted from 0 on, of the event with this UID.
    [[nodiscard]] EKEvent event(const QString &uid, std::size_t place = 0)
    {
        std::vector<EKEvent> events = m_database->events(kAll);
        std::erase_if(events, [&uid](const EKEvent &event) { return event.calendarItemExternalIdentifier() != uid; });
        if (events.size() <= place)
            throw EKError(QStringLiteral("there is no occurrence %1 of %2").arg(place).arg(uid).toStdString());
        return events[place];
    }

    [[nodiscard]] const Environment &environment() const { return m_environment; }
    [[nodiscard]] std::vector<EKEvent> events() { return m_database->events(kAll); }

private:
    /// The years that tests play in.
    static inline const EKEventPredicate kAll { std::chrono::sys_days { std::chrono::year { 2026 } / 1 / 1 },
        std::chrono::sys_days { std::chrono::year { 2028 } / 1 / 1 } };

    NotificationCenter m_notifications;
    const Environment m_environment;
    const BaseFolders m_folders;
    const std::shared_ptr<CalendarDatabase> m_database;
    EKEventStore m_store;
};

} // namespace mintaro
