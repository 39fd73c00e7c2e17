#include "Services/HourlyChimeService.h"

#include "support/Printers.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace mintaro {
namespace {

using namespace std::chrono_literals;

class CountedSounds final : public SoundPlayer
{
public:
    QStringList names;
    void play(const QString &name) override { names.append(name); }
};

/// Goes with the machine's, except that a sleep may pass in no time.
class SleepyClock final : public Clock
{
public:
    explicit SleepyClock(Date start)
        : m_clock(start)
    {
    }
    Date::duration slept {};
    [[nodiscard]] Date now() const override { return m_clock.now() + slept; }
    [[nodiscard]] std::optional<std::chrono::milliseconds> offset() const override { return m_clock.offset(); }

private:
    OffsetClock m_clock;
};

struct ChimeCase
{
    const char *name;
    const char *next; ///< the moment that the clock is about to show
    const char *zoneName;
    bool isEnabled = true;
    Date::duration slept {};
    bool sounds = true;
};

class HourlyChimeTest : public testing::TestWithParam<ChimeCase>
{
};

TEST_P(HourlyChimeTest, RingsAtTheFullLocalHour)
{
    const ChimeCase &row = GetParam();
    const Date moment = at(row.next);
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(u"mintaro.conf"_qs));
    CountedSounds sounds;
    SleepyClock clock(moment - 500ms);
    Environment environment(clock, Locale(), zone(row.zoneName));
    const HourlyChimeService chime(defaults, environment, sounds);
    defaults.setBool(true, u"HourlyChimeEnabled"_qs); // while it runs
    if (!row.isEnabled)
        defaults.setBool(false, u"HourlyChimeEnabled"_qs);

    WallClockTimer after(clock);
    QSignalSpy passed(&after, &WallClockTimer::timeout);
    after.start(moment + 50ms);
    clock.slept = row.slept;
    ASSERT_TRUE(passed.wait());
    EXPECT_EQ(sounds.names, row.sounds ? QStringList { u"bell"_qs } : QStringList());
}

INSTANTIATE_TEST_SUITE_P(Rows, HourlyChimeTest,
    testing::Values(ChimeCase { "FullHour", "2026-03-07 09:00", "Europe/Rome" },
        ChimeCase { "ZoneOfHalfHours", "2026-03-07 09:30", "Asia/Kolkata" },
        ChimeCase { "HalfHour", "2026-03-07 09:30", "Europe/Rome", true, {}, false },
        ChimeCase { "SleptThrough", "2026-03-07 09:00", "Europe/Rome", true, 20min, false },
        ChimeCase { "Off", "2026-03-07 09:00", "Europe/Rome", false, {}, false }),
    kRowName);

} // namespace
} // namespace mintaro
