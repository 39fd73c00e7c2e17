#include "Platform/Foundation/WallClockTimer.h"

#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>

#include <sys/timerfd.h>

namespace mintaro {

WallClockTimer::WallClockTimer(const Clock &clock)
    : m_clock(clock)
    , m_timer(::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK))
{
    if (!m_timer.isValid())
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_timer.get(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &WallClockTimer::onReadable);
}

WallClockTimer::~WallClockTimer() = default;

void WallClockTimer::start(Date moment)
{
    m_moment = moment;
    arm();
}

void WallClockTimer::stop()
{
    m_moment.reset();
    arm();
}

void WallClockTimer::arm()
{
    const auto offset = m_clock.offset();
    itimerspec due {}; // all zeros disarm it
    if (m_moment && offset) {
        using namespace std::chrono;
        const auto onSystem = (*m_moment - *offset).time_since_epoch();
        const auto whole = std::max(floor<seconds>(onSystem), seconds::zero());
        due.it_value.tv_sec = whole.count();
        due.it_value.tv_nsec = std::max<nanoseconds>(onSystem - whole, nanoseconds { 1 }).count();
    }
    // CANCEL_ON_SET makes the descriptor readable as well when the clock jumps, which it does at each wake from sleep.
    ::timerfd_settime(m_timer.get(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &due, nullptr);
}

void WallClockTimer::onReadable()
{
    quint64 expirations = 0;
    const bool hasExpired = ::read(m_timer.get(), &expirations, sizeof expirations) == sizeof expirations;
    const bool hasJumped = !hasExpired && errno == ECANCELED;
    if (!m_moment || (!hasExpired && !hasJumped)) // it was started anew or stopped meanwhile
        return;
    if (hasJumped) {
        arm();
        Q_EMIT clockJumped();
        return;
    }
    m_moment.reset();
    Q_EMIT timeout();
}

} // namespace mintaro
