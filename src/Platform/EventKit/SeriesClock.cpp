#include "Platform/EventKit/SeriesClock.h"

namespace mintaro {

using namespace std::chrono;

std::int64_t SeriesClock::keyOf(const EventTime &time)
{
    return time.isZoned() ? time.zone.toInstant(time.reading).time_since_epoch().count()
                          : time.reading.time_since_epoch().count();
}

std::int64_t SeriesClock::keyOf(LocalTime reading) const
{
    EventTime time = m_start;
    time.reading = reading;
    return keyOf(time);
}

LocalTime SeriesClock::reading(const EventTime &time) const
{
    if (m_start.form == TimeForm::Day)
        return floor<days>(time.reading);
    if (m_start.isZoned() && time.isZoned() && !(time.zone == m_start.zone))
        return m_start.zone.toLocal(time.zone.toInstant(time.reading));
    return time.reading;
}

bool SeriesClock::isPast(const RecurrenceRule::Until &until, LocalTime reading) const
{
    if (m_start.form == TimeForm::Day)
        return reading > floor<days>(until.reading);
    if (until.isUtc && m_start.isZoned())
        return keyOf(reading) > until.reading.time_since_epoch().count();
    return reading > until.reading;
}

} // namespace mintaro
