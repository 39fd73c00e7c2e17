#include "Platform/Foundation/SystemTimeMonitor.h"

#include <cstring>
#include <sys/inotify.h>

namespace mintaro {

SystemTimeMonitor::SystemTimeMonitor(Environment &environment)
    : m_environment(environment)
    , m_midnight(environment.clock())
    // A zone given by TZ is the process's own and does not change.
    , m_zoneWatch(qEnvironmentVariableIsEmpty("TZ") ? ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK) : -1)
{
    connect(&m_midnight, &WallClockTimer::timeout, this, &SystemTimeMonitor::tell);
    connect(&m_midnight, &WallClockTimer::clockJumped, this, &SystemTimeMonitor::tell);
    waitForMidnight();
    if (m_zoneWatch.isValid() && ::inotify_add_watch(m_zoneWatch.get(), "/etc", IN_CREATE | IN_MOVED_TO) >= 0) {
        m_zoneNotifier = std::make_unique<QSocketNotifier>(m_zoneWatch.get(), QSocketNotifier::Read);
        connect(m_zoneNotifier.get(), &QSocketNotifier::activated, this, &SystemTimeMonitor::onZoneFolder);
    }
}

SystemTimeMonitor::~SystemTimeMonitor() = default;

void SystemTimeMonitor::waitForMidnight()
{
    const Calendar calendar = m_environment.calendar();
    const auto today = std::chrono::sys_days { calendar.civilDay(m_environment.now()) };
    m_midnight.start(calendar.startOfDay(std::chrono::year_month_day { today + std::chrono::days { 1 } }));
}

void SystemTimeMonitor::tell()
{
    waitForMidnight();
    Q_EMIT m_environment.significantTimeChange();
}

void SystemTimeMonitor::onZoneFolder()
{
    bool zoneTouched = false;
    alignas(inotify_event) char buffer[4096];
    for (ssize_t size = 0; (size = ::read(m_zoneWatch.get(), buffer, sizeof buffer)) > 0;) {
        for (const char *at = buffer; at < buffer + size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(at);
            zoneTouched = zoneTouched || (event->len > 0 && std::strcmp(event->name, "localtime") == 0);
            at += sizeof(inotify_event) + event->len;
        }
    }
    if (!zoneTouched)
        return;
    m_environment.setTimeZone(TimeZone::system());
    waitForMidnight();
}

} // namespace mintaro
