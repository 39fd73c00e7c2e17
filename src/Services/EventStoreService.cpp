#include "Services/EventStoreService.h"

namespace mintaro {

bool isDeclinedByCurrentUser(const EKEvent &event)
{
    const auto &attendees = event.attendees();
    const auto self = std::ranges::find(attendees, true, &EKParticipant::isCurrentUser);
    return self != attendees.end() && self->participantStatus == EKParticipantStatus::Declined;
}

EventStoreService::EventStoreService(EKEventStore store, MeetingURLDetector detector, NotificationCenter &notifications)
    : m_store(std::move(store))
    , m_detector(detector)
    , m_notifications(notifications)
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

QCoro::Task<std::vector<FetchedEvent>> EventStoreService::fetchEvents(
    Date from, Date to, std::optional<std::vector<EKCalendarRef>> calendars)
{
    return m_actor.perform(
        [this, predicate = EKEventStore::predicateForEvents(from, to, calendars)] { return fetch(predicate); });
}

QCoro::Task<std::vector<FetchedEvent>> EventStoreService::searchEvents(QString text, Date from, Date to)
{
    return m_actor.perform([this, predicate = EKEventStore::predicateForEvents(from, to, std::nullopt, text)] {
        return fetch(predicate);
    });
}

std::vector<FetchedEvent> EventStoreService::fetch(const EKEventPredicate &predicate)
{
    std::vector<FetchedEvent> fetched;
    for (EKEvent &event : m_store.eventsMatchingPredicate(predicate)) {
        if (isDeclinedByCurrentUser(event))
            continue;
        const auto &meeting = m_meetings.value(event.item(), [&] {
            return m_detector.detectMeetingURL({ event.location(), event.url(), event.notes() });
        });
        fetched.push_back({ std::move(event), meeting });
    }
    m_meetings.prune();
    return fetched;
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
