#pragma once

#include "Models/DayEvents.h"
#include "Platform/EventKit/EKEventStore.h"
#include "Platform/Foundation/Actor.h"
#include "Platform/Foundation/AsyncStream.h"
#include "Platform/Foundation/Logger.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Services/MeetingURLDetector.h"
#include "Services/RevisionCache.h"

#include <QCoroTask>
#include <QSet>

#include <variant>

namespace mintaro {

/// Which events are wanted.
struct EventFilter
{
    /// Empty for every one.
    QSet<QString> calendarIDs {};
    /// What ended before is left out.
    std::optional<Date> endsFrom {};
};

/// The first attendee that is the current user decides.
[[nodiscard]] bool isDeclinedByCurrentUser(const EKEvent &event);

/// The only way to the events of the store: an actor, so that no query ever holds up the main thread. Its operations
/// may be awaited from any thread with an event loop.
class EventStoreService
{
public:
    /// `notifications` must outlive the object.
    EventStoreService(EKEventStore store, MeetingURLDetector detector, NotificationCenter &notifications,
        const LogSink &log = writeToSystemLog);
    ~EventStoreService();

    /// True when granted; throws EKError as the store reports it.
    [[nodiscard]] QCoro::Task<bool> requestAccess();
    /// Every occurrence that overlaps the range, except those that the current user declined, each with the meeting
    /// link that was found in its texts, by the days of `calendar`.
    [[nodiscard]] QCoro::Task<std::vector<DayEvents>> fetchEvents(
        Date from, Date to, EventFilter filter, Calendar calendar);
    /// The same, from every calendar and in the store's order, as far as title, location or notes contain `text`,
    /// whatever the case by the rules of the user's language.
    [[nodiscard]] QCoro::Task<std::vector<CalendarEvent>> searchEvents(QString text, Date from, Date to);
    /// The occurrence that begins at `start`, as EKEventStore finds it; empty where there is none by now.
    [[nodiscard]] QCoro::Task<std::optional<EKEvent>> eventWithIdentifier(QString identifier, Date start);
    /// The event in the calendar of that identifier; where none is named or known in the default one, and where there
    /// is none either in its own.
    [[nodiscard]] QCoro::Task<EKEvent> setCalendar(EKEvent event, std::optional<QString> calendarID);
    /// Null where none can be changed.
    [[nodiscard]] QCoro::Task<EKCalendarRef> defaultCalendarForNewEvents();
    /// All calendars of events, in the store's order.
    [[nodiscard]] QCoro::Task<std::vector<EKCalendarRef>> calendars();
    /// The calendars whose events can be changed, in the store's order.
    [[nodiscard]] QCoro::Task<std::vector<EKCalendarRef>> writableCalendars();
    /// Both throw EKError as the store reports it, and leave it to the caller to tell of it.
    [[nodiscard]] QCoro::Task<> save(EKEvent event, EKSpan span);
    [[nodiscard]] QCoro::Task<> deleteEvent(EKEvent event, EKSpan span);
    /// One element for each change of the store. For the main thread. The stream ends with the service.
    [[nodiscard]] AsyncStream<std::monostate> storeChanges();

private:
    [[nodiscard]] std::vector<CalendarEvent> fetch(const EKEventPredicate &predicate);

    EKEventStore m_store;
    MeetingURLDetector m_detector;
    NotificationCenter &m_notifications;
    const Logger m_logger;
    RevisionCache<EventItem, std::optional<MeetingInfo>> m_meetings;
    std::vector<AsyncStream<std::monostate>::Continuation> m_streams;
    /// Last, so that it stops before what its thread works on goes.
    Actor m_actor;
};

} // namespace mintaro
