#pragma once

#include "Models/DayEvents.h"
#include "Platform/Foundation/Environment.h"
#include "Services/EventStoreService.h"

#include <QHash>
#include <QObject>
#include <QSet>

namespace mintaro {

/// Whether a fetch leaves out what has ended.
enum class HidePastEvents { No, Yes };

/// The days that have events, as the store last gave them. For the main thread.
class EventsViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY isLoadingChanged)

public:
    /// Both must outlive the object.
    EventsViewModel(EventStoreService &eventStore, const Environment &environment);

    /// As groupedByDay gives them.
    [[nodiscard]] const std::vector<DayEvents> &dayEvents() const { return m_dayEvents; }
    [[nodiscard]] bool isLoading() const { return m_isLoading; }

    /// Replaces dayEvents by what overlaps the range. An empty selection means every calendar.
    [[nodiscard]] QCoro::Task<> fetchEvents(
        Date from, Date to, QSet<QString> selectedCalendarIDs, HidePastEvents hidePastEvents);
    void clear();

    /// At most three different colours for each day that has events, by day key.
    [[nodiscard]] QHash<QString, std::vector<Color>> eventColorsByDay() const;

Q_SIGNALS:
    void dayEventsChanged();
    void isLoadingChanged();

private:
    void setLoading(bool isLoading);

    EventStoreService &m_eventStore;
    const Environment &m_environment;
    std::vector<DayEvents> m_dayEvents;
    bool m_isLoading = false;
};

} // namespace mintaro
