#include "App/AppState.h"

#include "Extensions/Countdown.h"

#include <set>

namespace mintaro {

namespace {

constexpr std::chrono::hours kSchedulingInterval { 1 };

} // namespace

std::vector<CalendarEvent> AppState::upcomingEvents() const
{
    const Date now = m_environment.now();
    std::vector<CalendarEvent> upcoming;
    // Where the month and the coming week overlap, both hold the same occurrence.
    std::set<std::pair<QString, Date>> seen;
    for (const EventsViewModel *events : { &m_eventsVM, &m_upcomingVM }) {
        for (const DayEvents &day : events->dayEvents()) {
            std::ranges::copy_if(day.events, std::back_inserter(upcoming), [&](const CalendarEvent &event) {
                return !event.isAllDay && event.endDate > now && seen.emplace(event.id, event.startDate).second;
            });
        }
    }
    std::ranges::stable_sort(upcoming, {}, &CalendarEvent::startDate);
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
    const auto upcoming = upcomingEvents();
    m_nextEvent = upcoming.empty() ? std::nullopt : std::optional(upcoming.front());
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
