#include "Services/EventStoreService.h"

namespace mintaro {

namespace {

QString logTitle(const EKEvent &event)
{
    return event.title().value_or(QStringLiteral("untitled"));
}

bool isWanted(const CalendarEvent &event, const EventFilter &filter)
{
    if (filter.endsFrom && event.endDate < *filter.endsFrom)
        return false;
    return filter.calendarIDs.isEmpty() || filter.calendarIDs.contains(event.ekEvent.calendar()->calendarIdentifier);
}

} // namespace

bool isDeclinedByCurrentUser(const EKEvent &event)
{
    const auto &attendees = event.attendees();
    const auto self = std::ranges::find(attendees, true, &EKParticipant::isCurrentUser);
    return self != attendees.end() && self->participantStatus == EKParticipantStatus::Declined;
}

EventStoreService::EventStoreService(
    EKEventStore store, MeetingURLDetector detector, NotificationCenter &notifications, const LogSink &log)
    : m_store(std::move(store))
    , m_detector(detector)
    , m_notifications(notifications)
    , m_logger(QStringLiteral("EventStore"), log)
    , m_actor(QStringLiteral("EventStore"))
{
}

EventStoreService::~EventStoreService()
{
    for (const auto &stream : m_streams)
        stream.finish();
}

QCoro::Task<bool> EventStoreService::requestAccess()
{
    return m_actor.perform([this] { return m_store.requestFullAccessToEvents(); });
}

QCoro::Task<std::vector<DayEvents>> EventStoreService::fetchEvents(
    Date from, Date to, EventFilter filter, Calendar calendar)
{
    return m_actor.perform(
        [this, predicate = EKEventStore::predicateForEvents(from, to, std::nullopt), filter, calendar] {
            auto events = fetch(predicate);
            std::erase_if(events, [&filter](const CalendarEvent &event) { return !isWanted(event, filter); });
            return groupedByDay(std::move(events), calendar);
        });
}

QCoro::Task<std::vector<CalendarEvent>> EventStoreService::searchEvents(QString text, Date from, Date to)
{
    return m_actor.perform([this, predicate = EKEventStore::predicateForEvents(from, to, std::nullopt, text)] {
        return fetch(predicate);
    });
}

std::vector<CalendarEvent> EventStoreService::fetch(const EKEventPredicate &predicate)
{
    std::vector<CalendarEvent> fetched;
    for (const EKEvent &event : m_store.eventsMatchingPredicate(predicate)) {
        if (isDeclinedByCurrentUser(event))
            continue;
        const auto &meeting = m_meetings.value(event.item(), [&] {
            return m_detector.detectMeetingURL({ event.location(), event.url(), event.notes() });
        });
        fetched.push_back(CalendarEvent::fromEvent(event, meeting));
    }
    m_meetings.prune();
    return fetched;
}

QCoro::Task<std::optional<EKEvent>> EventStoreService::eventWithIdentifier(QString identifier, Date start)
{
    return m_actor.perform([this, identifier, start] { return m_store.eventWithIdentifier(identifier, start); });
}

QCoro::Task<EKEvent> EventStoreService::setCalendar(EKEvent event, std::optional<QString> calendarID)
{
    return m_actor.perform([this, event, calendarID]() mutable {
        EKCalendarRef calendar = calendarID ? m_store.calendarWithIdentifier(*calendarID) : nullptr;
        if (!calendar)
            calendar = m_store.defaultCalendarForNewEvents();
        if (calendar)
            event.setCalendar(calendar);
        return event;
    });
}

QCoro::Task<EKCalendarRef> EventStoreService::defaultCalendarForNewEvents()
{
    return m_actor.perform([this] { return m_store.defaultCalendarForNewEvents(); });
}

QCoro::Task<std::vector<EKCalendarRef>> EventStoreService::calendars()
{
    return m_actor.perform([this] { return m_store.calendarsForEntityType(EKEntityType::Event); });
}

QCoro::Task<std::vector<EKCalendarRef>> EventStoreService::writableCalendars()
{
    return m_actor.perform([this] {
        auto calendars = m_store.calendarsForEntityType(EKEntityType::Event);
        std::erase_if(calendars, [](const EKCalendarRef &calendar) { return !calendar->allowsContentModifications; });
        return calendars;
    });
}

QCoro::Task<> EventStoreService::save(EKEvent event, EKSpan span)
{
    return m_actor.perform([this, event, span] {
        static_cast<void>(m_store.save(event, span));
        m_logger.info(QStringLiteral("Event saved: %1").arg(logTitle(event)));
    });
}

QCoro::Task<> EventStoreService::deleteEvent(EKEvent event, EKSpan span)
{
    return m_actor.perform([this, event, span] {
        m_store.remove(event, span);
        m_logger.info(QStringLiteral("Event deleted: %1").arg(logTitle(event)));
    });
}

AsyncStream<std::monostate> EventStoreService::storeChanges()
{
    return AsyncStream<std::monostate>([this](const AsyncStream<std::monostate>::Continuation &continuation) {
        std::shared_ptr observation = m_notifications.addObserver(
            QString::fromLatin1(kEKEventStoreChangedNotification), [continuation] { continuation.yield({}); });
        continuation.setOnTermination([observation]() mutable { observation.reset(); });
        m_streams.push_back(continuation);
    });
}

} // namespace mintaro
