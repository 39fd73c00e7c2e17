#include "Platform/Foundation/Environment.h"

namespace mintaro {

Environment::Environment(const Clock &clock, Locale locale, TimeZone timeZone)
    : m_clock(clock)
    , m_locale(std::move(locale))
    , m_calendar(m_locale, std::move(timeZone))
{
}

TimeZone Environment::timeZone() const
{
    const QMutexLocker lock(&m_mutex);
    return m_calendar.timeZone();
}

Calendar Environment::calendar() const
{
    const QMutexLocker lock(&m_mutex);
    return m_calendar;
}

void Environment::setTimeZone(const TimeZone &timeZone)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (m_calendar.timeZone() == timeZone)
            return;
        m_calendar = Calendar(m_locale, timeZone);
    }
    Q_EMIT significantTimeChange();
}

} // namespace mintaro
