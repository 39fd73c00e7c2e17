#include "Platform/Foundation/SystemTimeMonitor.h"

#include <cstring>
#include <sys/inotify.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace mintaro {

SystemTimeMonitor::SystemTimeMonitor(Environment &environment)
    : m_environment(environment)
    , m_timer(::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK))
{
    if (m_timer >= 0) {
        m_timerNotifier = std::make_unique<QSocketNotifier>(m_timer, QSocketNotifier::Read);
        connect(m_timerNotifier.get(), &QSocketNotifier::activated, this, &SystemTimeMonitor::onTimer);
        armForMidnight();
    }
    // A zone given by TZ is the process's own and does not change.
    if (!qEnvironmentVariableIsEmpty("TZ"))
        return;
    m_zoneWatch = ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    if (m_zoneWatch >= 0 && ::inotify_add_watch(m_zoneWatch, "/etc", IN_CREATE | IN_MOVED_TO) >= 0) {
        m_zoneNotifier = std::make_unique<QSocketNotifier>(m_zoneWatch, QSocketNotifier::Read);
        connect(m_zoneNotifier.get(), &QSocketNotifier::activated, this, &SystemTimeMonitor::onZoneFolder);
    }
}

SystemTimeMonitor::~SystemTimeMonitor()
{
    m_timerNotifier.reset();
    m_zoneNotifier.reset();
    if (m_timer >= 0)
        ::close(m_timer);
    if (m_zoneWatch >= 0)
        ::close(m_zoneWatch);
}

void SystemTimeMonitor::armForMidnight()
{
    const Calendar calendar = m_environment.calendar();
    const auto today = std::chrono::sys_days { calendar.civilDay(m_environment.now()) };
    const Date midnight = calendar.startOfDay(std::chrono::year_month_day { today + std::chrono::days { 1 } });
    itimerspec due {};
    due.it_value.tv_sec = std::chrono::ceil<std::chrono::seconds>(midnight).time_since_epoch().count();
    // CANCEL_ON_SET makes the descriptor readable as well when the clock jumps, which it does at each wake from sleep.
    ::timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &due, nullptr);
}

void SystemTimeMonitor::onTimer()
{
    quint64 expirations = 0;
    // Fails with ECANCELED after a jump; the answer is the same.
    [[maybe_unused]] const auto size = ::read(m_timer, &expirations, sizeof expirations);
    armForMidnight();
    Q_EMIT m_environment.significantTimeChange();
}

void SystemTimeMonitor::onZoneFolder()
{
    bool zoneTouched = false;
    alignas(inotify_event) char buffer[4096];
    for (ssize_t size = 0; (size = ::read(m_zoneWatch, buffer, sizeof buffer)) > 0;) {
        for (const char *at = buffer; at < buffer + size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(at);
            zoneTouched = zoneTouched || (event->len > 0 && std::strcmp(event->name, "localtime") == 0);
            at += sizeof(inotify_event) + event->len;
        }
    }
    if (!zoneTouched)
        return;
    m_environment.setTimeZone(TimeZone::system());
    armForMidnight();
}

} // namespace mintaro
