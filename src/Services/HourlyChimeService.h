#pragma once

#include "Platform/AppKit/SoundPlayer.h"
#include "Platform/Foundation/Environment.h"
#include "Platform/Foundation/Logger.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Foundation/WallClockTimer.h"

#include <optional>

namespace mintaro {

/// Rings the bell at each full hour of the local clock, as long as the preference "HourlyChimeEnabled" says so. An hour
/// that began while the machine slept passes in silence. For the main thread.
class HourlyChimeService : public QObject
{
    Q_OBJECT

public:
    /// All must outlive the object.
    HourlyChimeService(
        UserDefaults &defaults, Environment &environment, SoundPlayer &sounds, LogSink log = writeToSystemLog);

private:
    void followPreference();
    void waitForHour();
    void onHour();

    const UserDefaults &m_defaults;
    const Environment &m_environment;
    SoundPlayer &m_sounds;
    /// Absent while the chime is off.
    std::optional<WallClockTimer> m_timer;
    Logger m_logger;
};

} // namespace mintaro
