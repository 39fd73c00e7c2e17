#include "support/World.h"

#include <gmock/gmock.h>

#include <QPointer>
#include <QSignalSpy>

namespace mintaro {
namespace {

using testing::ElementsAre;

class AppStateTest : public testing::Test
{
protected:
    AppStateTest()
    {
        world.addCalendar("work");
        world.addEvent("work", "meeting", during("20260308T100000Z", "20260308T110000Z"));
        world.addReminder("work", "milk", "DUE:20260310T100000Z");
    }

    [[nodiscard]] std::size_t days() { return world.state().eventsVM().dayEvents().size(); }

    World world { "2026-03-07 12:00" };
};

TEST_F(AppStateTest, IsBuiltWithoutTouchingTheStore)
{
    int requests = 0;
    world.backend->onRequestAccess = [&] { ++requests; };
    const AppState &state = world.state();
    QCoreApplication::processEvents();
    EXPECT_EQ(requests + world.backend->reads, 0);
    EXPECT_EQ(state.selectedDate(), world.clock.moment);
    EXPECT_EQ(state.monthDate(), world.clock.moment);
    EXPECT_FALSE(state.hasCalendarAccess() || state.nextEvent());
}

TEST_F(AppStateTest, RefreshesInOrder)
{
    QStringList steps;
    AppState &state = world.state();
    const auto step = [&](const char *name) { return [&steps, name] { steps.append(QLatin1String(name)); }; };
    QObject::connect(&state, &AppState::hasCalendarAccessChanged, step("access"));
    QObject::connect(&state.eventsVM(), &EventsViewModel::dayEventsChanged, step("events"));
    QObject::connect(state.calendarVM(), &CalendarViewModel::rowsInserted, step("grid"));
    QObject::connect(&state.remindersVM(), &RemindersViewModel::remindersChanged, step("reminders"));
    QObject::connect(&state, &AppState::nextEventChanged, step("next"));
    world.loaded();
    EXPECT_THAT(steps, ElementsAre(u"access"_qs, u"events"_qs, u"grid"_qs, u"reminders"_qs, u"next"_qs));
    EXPECT_EQ(state.calendarVM()->dayItems()[13].eventColors.size(), 1U) << "the grid knows the events just fetched";
}

TEST_F(AppStateTest, FetchesTheMonthWithSevenDaysOnEachSide)
{
    for (const char *day : { "20260221", "20260222", "20260407", "20260408" })
        world.addEvent("work", day, allDay(day));
    world.loaded();
    QStringList keys = world.state().eventsVM().eventColorsByDay().keys();
    keys.sort();
    EXPECT_THAT(keys, ElementsAre(u"2026-2-22"_qs, u"2026-3-8"_qs, u"2026-4-7"_qs));
}

TEST_F(AppStateTest, RefusedCalendarsLeaveTheReminders)
{
    world.backend->isAccessible = false;
    world.backend->onRequestAccess
        = [this, first = true]() mutable { world.backend->isAccessible = !std::exchange(first, false); };
    const AppState &state = world.loaded();
    EXPECT_FALSE(state.hasCalendarAccess());
    EXPECT_EQ(days(), 0U);
    EXPECT_TRUE(world.state().calendarVM()->isEmpty());
    EXPECT_FALSE(state.nextEvent());
    EXPECT_EQ(world.state().remindersVM().reminders().size(), 1U);
}

TEST_F(AppStateTest, RefusalOfAllShowsNothingAndComesBackAtTheNextOpening)
{
    world.backend->isAccessible = false;
    EXPECT_FALSE(world.loaded().hasCalendarAccess());
    EXPECT_TRUE(world.state().remindersVM().reminders().empty());
    world.backend->isAccessible = true;
    EXPECT_TRUE(world.loaded().hasCalendarAccess());
    EXPECT_EQ(days(), 1U);
}

TEST_F(AppStateTest, StoreThatThrowsIsNoAccess)
{
    world.backend->onRequestAccess = [] { throw EKError("no root"); };
    const QSignalSpy access(&world.state(), &AppState::hasCalendarAccessChanged);
    EXPECT_FALSE(world.loaded().hasCalendarAccess());
    EXPECT_EQ(access.size(), 0);
    EXPECT_TRUE(world.state().remindersVM().reminders().empty());
}

TEST_F(AppStateTest, OneStoreChangeIsOneRefresh)
{
    AppState &state = world.loaded();
    const auto first = state.watchStoreChanges();
    const auto second = state.watchStoreChanges();
    EXPECT_FALSE(first.isReady());
    EXPECT_TRUE(second.isReady());

    const QSignalSpy fetches(&state.eventsVM(), &EventsViewModel::dayEventsChanged);
    QSignalSpy refreshes(&state, &AppState::nextEventChanged);
    world.addEvent("work", "second", during("20260309T100000Z", "20260309T110000Z"));
    world.tellOfChange();
    ASSERT_TRUE(refreshes.wait());
    EXPECT_EQ(days(), 2U);
    QCoro::waitFor(state.refreshAll());
    EXPECT_EQ(fetches.size(), 2);
    EXPECT_EQ(refreshes.size(), 2);
}

TEST_F(AppStateTest, OverlappingRefreshesEndWithTheMonthAskedLast)
{
    world.addEvent("work", "summer", during("20260610T100000Z", "20260610T110000Z"));
    AppState &state = world.loaded();
    const auto first = state.refreshAll();
    const auto loading = state.requestAccessAndLoad();
    state.navigateMonth(3);
    const auto last = state.refreshAll();
    for (const auto *task : { &first, &loading, &last })
        QCoro::waitFor(*task);
    ASSERT_EQ(days(), 1U);
    EXPECT_EQ(state.eventsVM().dayEvents()[0].date, at("2026-06-10"));
    EXPECT_EQ(state.calendarVM()->dayItems()[0].date, at("2026-06-01"));
    EXPECT_FALSE(state.eventsVM().isLoading() || state.remindersVM().isLoading());
    EXPECT_EQ(state.nextEvent()->title, u"meeting"_qs);
}

TEST_F(AppStateTest, MonthStepsClamp)
{
    world.clock.moment = at("2026-01-31 10:00");
    AppState &state = world.state();
    const QSignalSpy changes(&state, &AppState::monthDateChanged);
    const Date selected = state.selectedDate();
    state.navigateMonth(1);
    EXPECT_EQ(state.monthDate(), at("2026-02-28 10:00"));
    state.navigateMonth(-1);
    EXPECT_EQ(state.monthDate(), at("2026-01-28 10:00"));
    state.navigateMonth(0);
    EXPECT_EQ(changes.size(), 2);
    EXPECT_EQ(state.selectedDate(), selected);
}

TEST_F(AppStateTest, TapSelectsWithoutFetchingOrMoving)
{
    AppState &state = world.loaded();
    const QSignalSpy fetches(&state.eventsVM(), &EventsViewModel::isLoadingChanged);
    const Date month = state.monthDate();
    state.selectDay(at("2026-03-20"));
    EXPECT_TRUE(state.calendarVM()->dayItems()[25].isSelected);
    state.selectDay(at("2026-04-02"));
    EXPECT_EQ(std::ranges::count(state.calendarVM()->dayItems(), true, &DayItem::isSelected), 0);
    EXPECT_EQ(state.monthDate(), month);
    EXPECT_EQ(fetches.size(), 0);
}

TEST_F(AppStateTest, TodayIsSelectedAndMarkedFromAnyDay)
{
    AppState &state = world.loaded();
    state.selectDay(at("2026-03-20"));
    state.showToday();
    EXPECT_EQ(state.selectedDate(), world.clock.moment);
    EXPECT_TRUE(state.calendarVM()->dayItems()[12].isSelected) << "also where the month stays";
}

TEST_F(AppStateTest, SelectionOfCalendarsHoldsFromTheNextRefreshOn)
{
    AppState &state = world.loaded();
    for (const auto &[selection, count] : { std::pair { QStringList { u"other"_qs }, 0U }, { QStringList(), 1U } }) {
        const std::size_t before = days();
        world.defaults.setStringArray(selection, u"SelectedCalendars"_qs);
        EXPECT_EQ(days(), before);
        QCoro::waitFor(state.refreshAll());
        EXPECT_EQ(days(), count);
    }
}

struct DayTurnCase
{
    const char *name;
    const char *selected;
    const char *month;
    const char *selectedAfter;
    const char *monthAfter;
    const char *after = "2026-04-01 00:00";
};

class DayTurnTest : public testing::TestWithParam<DayTurnCase>
{
protected:
    DayTurnTest()
    {
        world.state().setSelectedDate(at(GetParam().selected));
        world.state().setMonthDate(at(GetParam().month));
    }

    void turn()
    {
        world.clock.moment = at(GetParam().after);
        Q_EMIT world.environment.significantTimeChange();
    }

    World world { "2026-03-31 12:00" };
};

TEST_P(DayTurnTest, MovesOnWhatShowedTheOldToday)
{
    turn();
    EXPECT_EQ(text(world.state().selectedDate()), text(at(GetParam().selectedAfter)));
    EXPECT_EQ(text(world.state().monthDate()), text(at(GetParam().monthAfter)));
}

TEST_P(DayTurnTest, LeavesAnOpenPopoverAlone)
{
    world.state().setPopoverVisible(true);
    turn();
    EXPECT_EQ(world.state().selectedDate(), at(GetParam().selected));
    EXPECT_EQ(world.state().monthDate(), at(GetParam().month));
}

INSTANTIATE_TEST_SUITE_P(Rows, DayTurnTest,
    testing::Values(DayTurnCase { "Both", "2026-03-31 09:00", "2026-03-01", "2026-04-01", "2026-04-01" },
        DayTurnCase { "OtherDaySelected", "2026-03-30", "2026-03-15", "2026-03-30", "2026-04-01" },
        DayTurnCase { "OtherMonthBrowsed", "2026-03-31", "2026-06-15", "2026-04-01", "2026-06-15" },
        DayTurnCase {
            "SameDay", "2026-03-31 09:00", "2026-03-01", "2026-03-31 09:00", "2026-03-01", "2026-03-31 23:59" }),
    kRowName);

TEST_F(AppStateTest, DayThatTurnedWhileOpenIsCaughtUpWithAfterClosing)
{
    AppState &state = world.state();
    state.setPopoverVisible(true);
    world.clock.moment = at("2026-03-08 08:00");
    Q_EMIT world.environment.significantTimeChange();
    state.setPopoverVisible(false);
    EXPECT_EQ(state.selectedDate(), world.clock.moment);
}

TEST_F(AppStateTest, DayThatTurnedUnnoticedIsCaughtUpWithAtTheOpening)
{
    AppState &state = world.loaded();
    const QSignalSpy fetches(&state.eventsVM(), &EventsViewModel::isLoadingChanged);
    world.clock.moment = at("2026-04-01 08:00");
    state.setPopoverVisible(true);
    EXPECT_EQ(state.selectedDate(), world.clock.moment);
    EXPECT_EQ(state.monthDate(), world.clock.moment);
    EXPECT_EQ(fetches.size(), 0) << "the opening itself fetches";
}

TEST_F(AppStateTest, EachLaterOpeningFetchesOnce)
{
    AppState &state = world.loaded();
    QSignalSpy events(&state.eventsVM(), &EventsViewModel::isLoadingChanged);
    QSignalSpy reminders(&state.remindersVM(), &RemindersViewModel::isLoadingChanged);
    state.setPopoverVisible(true);
    QCoro::waitFor(state.requestAccessAndLoad());
    EXPECT_EQ(events.size(), 2);
    EXPECT_EQ(reminders.size(), 2);
    events.clear();
    state.navigateMonth(1);
    ASSERT_TRUE(events.wait());
    EXPECT_EQ(events.size(), 2) << "the month that is shown now";
}

/// How far a load has come when the state goes, in rounds of the event loop.
class DestructionTest : public testing::TestWithParam<int>
{
};

TEST_P(DestructionTest, InTheMiddleOfALoadIsQuiet)
{
    World world("2026-03-07 12:00");
    world.addCalendar("work");
    world.addEvent("work", "meeting", during("20260308T100000Z", "20260308T110000Z"));
    const auto watching = world.state().watchStoreChanges();
    const auto loading = world.state().requestAccessAndLoad();
    for (int round = 0; round < GetParam() && !loading.isReady(); ++round)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    world.destroyState();
    EXPECT_TRUE(watching.isReady());
    QCoreApplication::processEvents();
    world.notifications.post(QLatin1String(kEKEventStoreChangedNotification));
    QCoreApplication::processEvents();
}

INSTANTIATE_TEST_SUITE_P(Rows, DestructionTest, testing::Range(0, 8));

} // namespace
} // namespace mintaro
