#include "App/AppState.h"

#include <map>

namespace mintaro {

namespace {

constexpr int kAgendaDays = 14;

/// All-day items first, then by start.
bool standsBefore(const CalendarEvent &a, const CalendarEvent &b)
{
    return std::pair(!a.isAllDay, a.startDate) < std::pair(!b.isAllDay, b.startDate);
}

} // namespace

std::vector<DayEvents> AppState::agendaEvents() const
{
    const Calendar calendar = m_environment.calendar();
    const Date now = m_environment.now();
    const Date windowStart = calendar.startOfDay(m_selectedDate);
    const Date windowEnd
        = calendar.dateByAdding(Calendar::Component::Day, kAgendaDays, windowStart).value_or(windowStart);
    const auto inWindow = [&](Date day) { return day >= windowStart && day < windowEnd; };

    std::map<Date, std::vector<CalendarEvent>> byDay;
    for (const DayEvents &day : m_eventsVM.dayEvents()) {
        const Date date = calendar.startOfDay(day.date);
        if (inWindow(date))
            byDay[date].insert(byDay[date].end(), day.events.begin(), day.events.end());
    }
    // Of thousands of reminders only these few are worth a question to the calendar; a day has 25 hours at most.
    const auto mayBeInWindow
        = [&](Date due) { return due >= windowStart && due < windowEnd + std::chrono::hours { 25 }; };
    for (const ReminderItem &reminder : m_remindersVM.reminders()) {
        if (!reminder.dueDate || !mayBeInWindow(*reminder.dueDate))
            continue;
        const Date date = calendar.startOfDay(*reminder.dueDate);
        if (inWindow(date))
            byDay[date].push_back(CalendarEvent::fromReminder(reminder, now));
    }
    std::vector<DayEvents> days;
    for (auto &[date, events] : byDay) {
        std::ranges::stable_sort(events, standsBefore);
        days.push_back({ date, std::move(events) });
    }
    return days;
}

} // namespace mintaro
