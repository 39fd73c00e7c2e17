#include "Models/DayEvents.h"

#include <algorithm>
#include <map>

namespace mintaro {

namespace {

DateInterval wholeDay(Date date, const Calendar &calendar)
{
    const std::chrono::year_month_day next = std::chrono::sys_days(calendar.civilDay(date)) + std::chrono::days { 1 };
    return { calendar.startOfDay(date), calendar.startOfDay(next) };
}

} // namespace

std::vector<DayEvents> groupedByDay(std::vector<CalendarEvent> events, const Calendar &calendar)
{
    std::map<Date, std::vector<CalendarEvent>> byDay;
    // Mostly they come in the order of their starts, and are of the same day as the one before.
    DateInterval day {};
    for (CalendarEvent &event : events) {
        if (event.startDate < day.start || event.startDate >= day.end)
            day = wholeDay(event.startDate, calendar);
        byDay[day.start].push_back(std::move(event));
    }
    std::vector<DayEvents> days;
    for (auto &[date, ofDay] : byDay) {
        std::ranges::stable_sort(ofDay, {}, &CalendarEvent::startDate);
        days.push_back({ date, std::move(ofDay) });
    }
    return days;
}

} // namespace mintaro
