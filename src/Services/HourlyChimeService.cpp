#include "Services/HourlyChimeService.h"

namespace mintaro {

using namespace std::chrono;

namespace {

const QString kPreference = QStringLiteral("HourlyChimeEnabled");

} // namespace

HourlyChimeService::HourlyChimeService(
    UserDefaults &defaults, Environment &environment, SoundPlayer &sounds, LogSink log)
    : m_defaults(defaults)
    , m_environment(environment)
    , m_sounds(sounds)
    , m_logger(QStringLiteral("HourlyChime"), std::move(log))
{
    connect(&defaults, &UserDefaults::changed, this, [this](const QString &key) {
        if (key == kPreference)
            followPreference();
    });
    connect(&environment, &Environment::significantTimeChange, this, &HourlyChimeService::waitForHour);
    followPreference();
}

void HourlyChimeService::followPreference()
{
    const bool isEnabled = m_defaults.boolForKey(kPreference).value_or(false);
    if (isEnabled == m_timer.has_value())
        return;
    m_logger.info(isEnabled ? QStringLiteral("The chime is on") : QStringLiteral("The chime is off"));
    if (!isEnabled) {
        m_timer.reset();
        return;
    }
    m_timer.emplace(m_environment.clock());
    connect(&*m_timer, &WallClockTimer::timeout, this, &HourlyChimeService::onHour);
    connect(&*m_timer, &WallClockTimer::clockJumped, this, &HourlyChimeService::waitForHour);
    waitForHour();
}

void HourlyChimeService::waitForHour()
{
    if (!m_timer)
        return;
    // Where the zone's clocks are set before that hour, onHour finds that it is none and waits for the next.
    const auto now = floor<seconds>(m_environment.now());
    const seconds offset = m_environment.timeZone().secondsFromGMT(now);
    m_timer->start(floor<hours>(now + offset) + hours { 1 } - offset);
}

void HourlyChimeService::onHour()
{
    const DateComponents reading = m_environment.calendar().components(m_environment.now());
    // Later within the hour the machine has slept.
    if (reading.minute == 0)
        m_sounds.play(QStringLiteral("bell"));
    waitForHour();
}

} // namespace mintaro
