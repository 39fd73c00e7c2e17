#include "App/AppState.h"

#include "Extensions/Countdown.h"

#include <set>

namespace mintaro {

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
    updateCountdown();
}

void AppState::chooseNextEvent()
{
    const auto upcoming = upcomingEvents();
    m_nextEvent = upcoming.empty() ? std::nullopt : std::optional(upcoming.front());
    Q_EMIT nextEventChanged();
}

void AppState::updateCountdown()
{
    chooseNextEvent();
    QString text;
    if (m_nextEvent) {
        const Date start = m_nextEvent->startDate;
        switch (countdownFormat()) {
        case CountdownFormat::Relative:
            text = relativeCountdown(start, m_environment.now());
            break;
        case CountdownFormat::Compact:
            text = compactCountdown(start, m_environment.now());
            break;
        case CountdownFormat::Absolute:
            text = clockReading(start, m_environment.timeZone());
            break;
        }
    }
    if (std::exchange(m_countdownText, text) != text)
        Q_EMIT countdownTextChanged();
}

} // namespace mintaro
