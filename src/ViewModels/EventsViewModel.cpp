#include "ViewModels/EventsViewModel.h"

#include <QPointer>

#include <map>

namespace mintaro {

namespace {

constexpr std::size_t kMostColors = 3;

DateInterval wholeDay(Date date, const Calendar &calendar)
{
    const std::chrono::year_month_day next = std::chrono::sys_days(calendar.civilDay(date)) + std::chrono::days { 1 };
    return { calendar.startOfDay(date), calendar.startOfDay(next) };
}

} // namespace

EventsViewModel::EventsViewModel(EventStoreService &eventStore, const Environment &environment)
    : m_eventStore(eventStore)
    , m_environment(environment)
{
}

QCoro::Task<> EventsViewModel::fetchEvents(
    Date from, Date to, QSet<QString> selectedCalendarIDs, HidePastEvents hidePastEvents)
{
    const QPointer<EventsViewModel> self(this);
    setLoading(true);
    auto fetched = co_await m_eventStore.fetchEvents(from, to, std::nullopt);
    if (!self)
        co_return;
    m_dayEvents = grouped(std::move(fetched), selectedCalendarIDs, hidePastEvents);
    Q_EMIT dayEventsChanged();
    setLoading(false);
}

void EventsViewModel::clear()
{
    if (m_dayEvents.empty())
        return;
    m_dayEvents.clear();
    Q_EMIT dayEventsChanged();
}

std::vector<DayEvents> EventsViewModel::grouped(
    std::vector<CalendarEvent> fetched, const QSet<QString> &selection, HidePastEvents hidePastEvents) const
{
    const Calendar calendar = m_environment.calendar();
    const Date now = m_environment.now();
    std::map<Date, std::vector<CalendarEvent>> byDay;
    // The store's order is that of the starts, so that most are of the same day as the one before.
    DateInterval day {};
    for (CalendarEvent &event : fetched) {
        if (!selection.isEmpty() && !selection.contains(event.ekEvent.calendar()->calendarIdentifier))
            continue;
        if (hidePastEvents == HidePastEvents::Yes && event.endDate < now)
            continue;
        if (event.startDate < day.start || event.startDate >= day.end)
            day = wholeDay(event.startDate, calendar);
        byDay[day.start].push_back(std::move(event));
    }
    std::vector<DayEvents> days;
    for (auto &[date, events] : byDay) {
        std::ranges::stable_sort(events, {}, &CalendarEvent::startDate);
        days.push_back({ date, std::move(events) });
    }
    return days;
}

QHash<QString, std::vector<Color>> EventsViewModel::eventColorsByDay() const
{
    const Calendar calendar = m_environment.calendar();
    QHash<QString, std::vector<Color>> colorsByDay;
    for (const DayEvents &day : m_dayEvents) {
        std::vector<Color> &colors = colorsByDay[day.id(calendar)];
        for (const CalendarEvent &event : day.events) {
            if (colors.size() < kMostColors && std::ranges::find(colors, event.calendarColor) == colors.end())
                colors.push_back(event.calendarColor);
        }
    }
    return colorsByDay;
}

void EventsViewModel::setLoading(bool isLoading)
{
    if (std::exchange(m_isLoading, isLoading) != isLoading)
        Q_EMIT isLoadingChanged();
}

} // namespace mintaro
