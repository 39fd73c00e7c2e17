#include "support/World.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace mintaro {
namespace {

struct NextCase
{
    const char *name;
    std::function<void(World &)> fill;
    const char *title; ///< empty: there is none
    const char *countdown;
    const char *format = "relative";
};

class NextEventTest : public testing::TestWithParam<NextCase>
{
};

QString titleOf(const std::optional<CalendarEvent> &event)
{
    return event ? event->title : QString();
}

TEST_P(NextEventTest, IsChosen)
{
    World world("2026-03-07 12:00", "en_US");
    world.addCalendar("work");
    world.defaults.setString(QLatin1String(GetParam().format), u"CountdownFormat"_qs);
    GetParam().fill(world);
    AppState &state = world.loaded();
    EXPECT_EQ(titleOf(state.nextEvent()), QLatin1String(GetParam().title));
    EXPECT_EQ(state.countdownText(), QLatin1String(GetParam().countdown));
}

void addRunningAndLater(World &world)
{
    world.addEvent("work", "later", during("20260307T130000Z", "20260307T140000Z"));
    world.addEvent("work", "running", during("20260307T113000Z", "20260307T123000Z"));
}

void addLater(World &world)
{
    world.addEvent("work", "later", during("20260307T133000Z", "20260307T140000Z"));
}

INSTANTIATE_TEST_SUITE_P(Rows, NextEventTest,
    testing::Values(NextCase { "Nothing", [](World &) {}, "", "" },
        NextCase { "WholeDaysNever", [](World &world) { world.addEvent("work", "day", allDay("20260308")); }, "", "" },
        NextCase { "RunningStays", addRunningAndLater, "running", "now" },
        NextCase { "EndedNowIsGone",
            [](World &world) {
                world.addEvent("work", "over", during("20260307T110000Z", "20260307T120000Z"));
                addLater(world);
            },
            "later", "in 1 h 30 min" },
        NextCase { "FromAnEarlierDayAndStillRunning",
            [](World &world) {
                addLater(world);
                world.addEvent("work", "long", during("20260301T110000Z", "20260309T120000Z"));
            },
            "long", "now" },
        NextCase { "Compact", addLater, "later", "1h30", "compact" },
        NextCase { "Absolute", addLater, "later", "13:30", "absolute" },
        NextCase { "UnknownFormat", addLater, "later", "in 1 h 30 min", "weekly" },
        NextCase {
            "ReminderNever", [](World &world) { world.addReminder("work", "milk", "DUE:20260307T130000Z"); }, "", "" }),
    kRowName);

struct BrowseCase
{
    const char *name;
    int months;
};

class BrowsingTest : public testing::TestWithParam<BrowseCase>
{
};

TEST_P(BrowsingTest, LeavesTheNextEventAlone)
{
    World world("2026-03-07 12:00");
    world.addCalendar("work");
    world.addEvent("work", "coming", during("20260309T100000Z", "20260309T110000Z"));
    world.addEvent("work", "running", during("20260307T110000Z", "20260307T130000Z"));
    world.addEvent("work", "far", during("20260610T100000Z", "20260610T110000Z"));
    AppState &state = world.loaded();
    state.navigateMonth(GetParam().months);
    QCoro::waitFor(state.refreshAll());
    EXPECT_EQ(titleOf(state.nextEvent()), u"running"_qs);
    world.clock.moment = at("2026-03-07 13:00");
    state.updateCountdown();
    EXPECT_EQ(titleOf(state.nextEvent()), u"coming"_qs);
}

INSTANTIATE_TEST_SUITE_P(Rows, BrowsingTest,
    testing::Values(
        BrowseCase { "Here", 0 }, BrowseCase { "NextMonth", 1 }, BrowseCase { "Future", 3 }, BrowseCase { "Past", -4 }),
    kRowName);

TEST(UpcomingEventsTest, AreThereOnceWhereMonthAndWeekOverlap)
{
    // The window of February ends at 7 March, in the middle of the coming week.
    World world("2026-03-04 12:00");
    world.addCalendar("work");
    world.addEvent("work", "daily", during("20260305T100000Z", "20260305T110000Z") + "\nRRULE:FREQ=DAILY;COUNT=5");
    AppState &state = world.loaded();
    state.navigateMonth(-1);
    QCoro::waitFor(state.refreshAll());
    const auto upcoming = state.upcomingEvents();
    ASSERT_EQ(upcoming.size(), 5U);
    EXPECT_EQ(upcoming.back().startDate, at("2026-03-09 10:00"));
    EXPECT_TRUE(std::ranges::is_sorted(upcoming, {}, &CalendarEvent::startDate));
}

TEST(CountdownTextTest, ChangesItsFormatAtTheNextTick)
{
    World world("2026-03-07 12:00", "en_US");
    world.addCalendar("work");
    addLater(world);
    AppState &state = world.loaded();
    const QSignalSpy texts(&state, &AppState::countdownTextChanged);
    state.setCountdownFormat(CountdownFormat::Compact);
    EXPECT_EQ(texts.size(), 0);
    for (int tick = 0; tick < 2; ++tick) {
        state.updateCountdown();
        EXPECT_EQ(state.countdownText(), u"1h30"_qs);
        EXPECT_EQ(texts.size(), 1);
    }
}

} // namespace
} // namespace mintaro
