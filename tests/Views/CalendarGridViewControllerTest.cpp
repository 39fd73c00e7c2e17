#include "Views/Calendar/CalendarGridViewController.h"
#include "Views/Calendar/MonthNavigationBarController.h"

#include "support/World.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

namespace mintaro {
namespace {

using testing::ElementsAre;

struct SwipeCase
{
    const char *name;
    double translation;
    const char *month;
};

class SwipeTest : public testing::TestWithParam<SwipeCase>
{
};

TEST_P(SwipeTest, ChangesTheMonthBeyondItsDistance)
{
    World world("2026-03-07");
    CalendarGridViewController grid;
    grid.setAppState(&world.loaded());
    grid.endSwipe(GetParam().translation);
    EXPECT_EQ(world.state().monthDate(), at(GetParam().month));
}

INSTANTIATE_TEST_SUITE_P(Rows, SwipeTest,
    testing::Values(SwipeCase { "RightTooShort", 50, "2026-03-07" }, SwipeCase { "Right", 51, "2026-02-07" },
        SwipeCase { "LeftTooShort", -50, "2026-03-07" }, SwipeCase { "Left", -51, "2026-04-07" }),
    kRowName);

TEST(CalendarGridTest, HeaderFollowsTheWeekStart)
{
    World world("2026-03-07", "en_US");
    CalendarGridViewController grid;
    grid.setAppState(&world.loaded());
    const QSignalSpy changes(&grid, &CalendarGridViewController::layoutChanged);
    EXPECT_EQ(grid.weekdaySymbols().join(u' '), u"S M T W T F S"_qs);
    world.defaults.setBool(true, u"WeekStartsOnMonday"_qs);
    EXPECT_EQ(grid.weekdaySymbols().join(u' '), u"M T W T F S S"_qs);
    EXPECT_FALSE(grid.showWeekNumbers());
    world.defaults.setBool(true, u"ShowWeekNumbers"_qs);
    EXPECT_TRUE(grid.showWeekNumbers());
    EXPECT_EQ(changes.size(), 2);
}

TEST(CalendarGridTest, TellsWhichWayTheMonthWent)
{
    World world("2026-02-28");
    AppState &state = world.loaded();
    CalendarGridViewController grid;
    grid.setAppState(&state);
    QStringList ways;
    QObject::connect(
        &grid, &CalendarGridViewController::monthShown, [&](int way) { ways.append(QString::number(way)); });
    for (const int delta : { 1, 1, -1, -6, 12 }) {
        state.navigateMonth(delta);
        QCoro::waitFor(state.refreshAll());
    }
    state.selectDay(state.calendarVM()->dayItems()[3].date);
    EXPECT_THAT(ways, ElementsAre(u"1"_qs, u"1"_qs, u"-1"_qs, u"-1"_qs, u"1"_qs));
}

TEST(CalendarGridTest, TapOutsideTheCellsDoesNothing)
{
    World world("2026-03-07");
    CalendarGridViewController grid;
    grid.setAppState(&world.loaded());
    const Date before = world.state().selectedDate();
    grid.selectDay(-1);
    grid.selectDay(42);
    EXPECT_EQ(world.state().selectedDate(), before);
    grid.selectDay(41);
    EXPECT_EQ(world.state().selectedDate(), at("2026-04-05"));
}

TEST(MonthNavigationBarTest, NamesTheMonthInTheLocale)
{
    World world("2026-03-31", "it_IT");
    MonthNavigationBarController bar;
    bar.setAppState(&world.state());
    const QSignalSpy titles(&bar, &MonthNavigationBarController::monthTitleChanged);
    EXPECT_EQ(bar.monthTitle().toLower(), u"marzo 2026"_qs);
    bar.showNextMonth();
    EXPECT_EQ(bar.monthTitle().toLower(), u"aprile 2026"_qs);
    EXPECT_EQ(titles.size(), 1);
    bar.showToday();
    EXPECT_EQ(bar.monthTitle().toLower(), u"marzo 2026"_qs);
}

} // namespace
} // namespace mintaro
