#pragma once

#include "Platform/Foundation/Environment.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace mintaro {

/// Follows the machine's time for an environment: tells of each local midnight, of a clock that was set, of a wake from
/// sleep, and of a change of /etc/localtime. It costs one wake-up a day.
class SystemTimeMonitor : public QObject
{
    Q_OBJECT

public:
    /// Works on the thread it is made on. `environment` must outlive the object.
    explicit SystemTimeMonitor(Environment &environment);
    ~SystemTimeMonitor() override;

private:
    void armForMidnight();
    void onTimer();
    void onZoneFolder();

    Environment &m_environment;
    int m_timer = -1;
    int m_zoneWatch = -1;
    std::unique_ptr<QSocketNotifier> m_timerNotifier;
    std::unique_ptr<QSocketNotifier> m_zoneNotifier;
};

} // namespace mintaro
