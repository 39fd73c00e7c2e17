#pragma once

#include "Platform/Foundation/Calendar.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/Locale.h"

#include <QMutex>
#include <QObject>

namespace mintaro {

/// The user's present: the clock, the locale, and the zone of the moment. Built once by the entry and handed to
/// whatever deals with time, so that nothing reads a global. The readers are thread-safe; the signal comes on the
/// thread that the object lives on.
class Environment : public QObject
{
    Q_OBJECT

public:
    /// `clock` must outlive the object.
    Environment(const Clock &clock, Locale locale, TimeZone timeZone);

    [[nodiscard]] Date now() const { return m_clock.now(); }
    [[nodiscard]] const Clock &clock() const { return m_clock; }
    [[nodiscard]] const Locale &locale() const { return m_locale; }
    [[nodiscard]] TimeZone timeZone() const;
    /// The calendar that holds now. Ask again rather than keep it: the zone may change.
    [[nodiscard]] Calendar calendar() const;

    /// Tells all that the system moved to another zone; the same zone again tells nobody.
    void setTimeZone(const TimeZone &timeZone);

Q_SIGNALS:
    /// The day turned, the clock was set, the machine woke or the zone changed: what depends on the day is stale.
    void significantTimeChange();

private:
    const Clock &m_clock;
    const Locale m_locale;
    mutable QMutex m_mutex;
    Calendar m_calendar;
};

} // namespace mintaro
