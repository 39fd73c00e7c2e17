#pragma once

#include "Platform/Foundation/Environment.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/WallClockTimer.h"

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
    void waitForMidnight();
    void tell();
    void onZoneFolder();

    Environment &m_environment;
    WallClockTimer m_midnight;
    FileDescriptor m_zoneWatch;
    std::unique_ptr<QSocketNotifier> m_zoneNotifier;
};

} // namespace mintaro
