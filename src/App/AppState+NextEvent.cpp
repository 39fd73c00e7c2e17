#include "App/AppState.h"

#include "Extensions/Countdown.h"

namespace mintaro {

namespace {

constexpr std::chrono::hours kSchedulingInterval { 1 };

} // namespace

std::vector<CalendarEvent> AppState::upcomingEvents() const
{
    std::vector<CalendarEvent> events;
    for (const CalendarEvent *event : upcoming())
        events.push_back(*event);
    return events;
}

std::vector<const CalendarEvent *> AppState::upcoming() const
{
    const Date now = m_environment.now();
    std::vector<const CalendarEvent *> all;
    for (const EventsViewModel *events : { &m_eventsVM, &m_upcomingVM }) {
        for (const DayEvents &day : events->dayEvents()) {
            for (const CalendarEvent &event : day.events) {
                if (!event.isAllDay && event.endDate > now)
                    all.push_back(&event);
            }
        }
    }
    std::ranges::stable_sort(all, {}, &CalendarEvent::startDate);
    // Where the month and the coming week overlap, both hold the same occurrence; few begin at the same moment.
    std::vector<const CalendarEvent *> upcoming;
    for (const CalendarEvent *event : all) {
        const auto others = std::find_if(upcoming.rbegin(), upcoming.rend(),
            [event](const CalendarEvent *other) { return other->startDate != event->startDate; });
        if (std::none_of(upcoming.rbegin(), others, [event](const auto *other) { return other->id == event->id; }))
            upcoming.push_back(event);
    }
    return upcoming;
}

void AppState::updateNextEvent()
{
    scheduleNotifications();
    updateCountdown();
}

void AppState::scheduleNotifications()
{
    if (!m_notificationService || m_refreshes > 0)
        return;
    m_notificationsScheduledAt = m_environment.now();
    if (meetingNotificationsEnabled())
        m_notificationService->scheduleUpcomingMeetingNotifications(upcomingEvents(), meetingNotificationMinutes());
    else
        m_notificationService->removeAllPendingMeetingNotifications();
}

QString AppState::countdown(const CalendarEvent &event) const
{
    switch (countdownFormat()) {
    case CountdownFormat::Relative:
        return relativeCountdown(event.startDate, m_environment.now());
    case CountdownFormat::Compact:
        return compactCountdown(event.startDate, m_environment.now());
    case CountdownFormat::Absolute:
        return clockReading(event.startDate, m_environment.timeZone());
    }
    return {};
}

void AppState::updateCountdown()
{
    const auto upcoming = this->upcoming();
    m_nextEvent = upcoming.empty() ? std::nullopt : std::optional(*upcoming.front());
    const QString text = m_nextEvent ? countdown(*m_nextEvent) : QString();
    const bool isNewText = std::exchange(m_countdownText, text) != text;
    // Both hold before anybody is told, or the label would show the new event with the old countdown.
    Q_EMIT nextEventChanged();
    if (isNewText)
        Q_EMIT countdownTextChanged();
    if (std::chrono::abs(m_environment.now() - m_notificationsScheduledAt) >= kSchedulingInterval)
        scheduleNotifications();
}

} // namespace mintaro
