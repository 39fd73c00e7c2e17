#include "Platform/Foundation/Environment.h"

namespace mintaro {

Environment::Environment(const Clock &clock, Locale locale, TimeZone timeZone)
    : m_clock(clock)
    , m_locale(std::move(locale))
    , m_timeZone(std::move(timeZone))
{
}

TimeZone Environment::timeZone() const
{
    const QMutexLocker lock(&m_mutex);
    return m_timeZone;
}

Calendar Environment::calendar() const
{
    return Calendar(m_locale, timeZone());
}

void Environment::setTimeZone(const TimeZone &timeZone)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (m_timeZone == timeZone)
            return;
        m_timeZone = timeZone;
    }
    Q_EMIT significantTimeChange();
}

} // namespace mintaro
