#include "ViewModels/EventsViewModel.h"

#include <QPointer>

namespace mintaro {

namespace {

constexpr std::size_t kMostColors = 3;

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
    EventFilter filter { .calendarIDs = std::move(selectedCalendarIDs) };
    if (hidePastEvents == HidePastEvents::Yes)
        filter.endsFrom = m_environment.now();
    auto days = co_await m_eventStore.fetchEvents(from, to, std::move(filter), m_environment.calendar());
    if (!self)
        co_return;
    m_dayEvents = std::move(days);
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
