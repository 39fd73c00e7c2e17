#include "Platform/Foundation/WallClockTimer.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace mintaro {
namespace {

using namespace std::chrono_literals;

TEST(WallClockTimerTest, GoesByAClockThatIsYearsOff)
{
    for (const char *start : { "1961-05-01 12:00", "2051-05-01 12:00" }) {
        const OffsetClock clock(at(start));
        WallClockTimer timer(clock);
        QSignalSpy timeouts(&timer, &WallClockTimer::timeout);
        const Date moment = clock.now() + 50ms;
        timer.start(moment);
        ASSERT_TRUE(timeouts.wait());
        EXPECT_GE(clock.now(), moment);
    }
}

TEST(WallClockTimerTest, WaitsForItsLastMomentAlone)
{
    const SystemClock system;
    const FixedClock standing(system.now());
    WallClockTimer moved(system);
    WallClockTimer stopped(system);
    WallClockTimer still(standing);
    int fired = 0;
    for (const WallClockTimer *timer : { &moved, &stopped, &still })
        QObject::connect(timer, &WallClockTimer::timeout, [&fired] { ++fired; });
    moved.start(system.now() - 1h);
    moved.start(system.now() + 1h);
    stopped.start(system.now() - 1h);
    stopped.stop();
    still.start(standing.now() - 1h);

    WallClockTimer last(system);
    QSignalSpy passed(&last, &WallClockTimer::timeout);
    last.start(system.now() - 1h);
    ASSERT_TRUE(passed.wait()) << "what has passed comes at once";
    QCoreApplication::processEvents();
    EXPECT_EQ(fired, 0);
    EXPECT_EQ(passed.size(), 1);
}

} // namespace
} // namespace mintaro
