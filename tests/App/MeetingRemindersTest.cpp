#include "support/FakePresenter.h"
#include "support/World.h"

#include <gmock/gmock.h>

namespace mintaro {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// The program from the store to the screen; only the clock and the screen are ours.
class MeetingRemindersTest : public testing::Test
{
protected:
    MeetingRemindersTest()
    {
        world.addCalendar("work");
        world.userNotifications = &center;
    }

    void addMeeting(const char *uid, const char *start, const char *end, const QByteArray &more = {})
    {
        world.addEvent("work", uid, during(start, end) + "\nURL:https://zoom.us/j/1" + more);
    }

    /// The machine sleeps until that moment, or its clock is set to it.
    void comeTo(const char *moment)
    {
        world.clock.moment = at(moment);
        Q_EMIT world.environment.significantTimeChange();
        settle();
    }

    /// The label's ticks up to that moment, five minutes apart: the machine stays awake and nobody touches it.
    void tickTo(const char *moment)
    {
        while (world.clock.moment < at(moment)) {
            world.clock.moment += 5min;
            (void)center.pendingNotificationRequests(); // the timer, for whoever is due
            QCoreApplication::processEvents();
            world.state().updateCountdown();
        }
    }

    void change()
    {
        world.tellOfChange();
        settle();
    }

    /// Until all that was begun has ended.
    void settle()
    {
        QCoreApplication::processEvents();
        QCoro::waitFor(world.state().refreshAll());
        QCoreApplication::processEvents();
    }

    [[nodiscard]] QStringList pending()
    {
        QStringList lines;
        for (const UNNotificationRequest &request : center.pendingNotificationRequests())
            lines.append(request.identifier + u' ' + text(*request.trigger.date()));
        return lines;
    }

    [[nodiscard]] QStringList onScreen() const
    {
        QStringList titles;
        for (const PresentedNotification &each : screen.onScreen)
            titles.append(each.title);
        return titles;
    }

    World world { "2026-03-07 08:00" };
    FakePresenter screen;
    UNUserNotificationCenter center { world.environment, screen, world.log };
};

TEST_F(MeetingRemindersTest, ComeOnceEachAndNeverAgain)
{
    addMeeting("a", "20260307T100000Z", "20260307T110000Z");
    addMeeting("b", "20260307T100000Z", "20260307T103000Z");
    world.loaded();
    comeTo("2026-03-07 09:54");
    EXPECT_THAT(screen.titles, IsEmpty());
    comeTo("2026-03-07 09:55");
    EXPECT_THAT(onScreen(), testing::UnorderedElementsAre(u"Zoom: a in 5 minutes"_qs, u"Zoom: b in 5 minutes"_qs));
    comeTo("2026-03-07 09:50"); // the clock was fast
    EXPECT_THAT(pending(), IsEmpty());
    comeTo("2026-03-07 09:56");
    EXPECT_EQ(screen.titles.size(), 2);
    comeTo("2026-03-07 10:30");
    EXPECT_THAT(onScreen(), ElementsAre(u"Zoom: a in 5 minutes"_qs)) << "what is over goes";
}

TEST_F(MeetingRemindersTest, AreNotLostToAClockThatWasFast)
{
    addMeeting("a", "20260307T100000Z", "20260307T110000Z");
    world.loaded();
    comeTo("2026-03-08 10:00");
    EXPECT_THAT(pending(), IsEmpty());
    comeTo("2026-03-07 08:30");
    EXPECT_THAT(screen.titles, IsEmpty());
    EXPECT_EQ(pending().size(), 1);
}

TEST_F(MeetingRemindersTest, PassedInSleepComeAtWakeUnlessAllIsOver)
{
    addMeeting("over", "20260307T090000Z", "20260307T093000Z");
    addMeeting("running", "20260307T090000Z", "20260307T110000Z");
    world.loaded();
    world.clock.moment = at("2026-03-07 10:00");
    world.state().updateCountdown(); // the label's tick may be the first to wake
    settle();
    ASSERT_THAT(onScreen(), ElementsAre(u"running"_qs));
    EXPECT_EQ(screen.onScreen.front().body, u"09:00 - 11:00"_qs) << "minutes would be wrong by now";
}

TEST_F(MeetingRemindersTest, FollowWhatHappensToTheMeeting)
{
    addMeeting("a", "20260307T100000Z", "20260307T110000Z");
    world.loaded();
    addMeeting("a", "20260307T090000Z", "20260307T110000Z");
    change();
    EXPECT_THAT(pending(), ElementsAre(u"meeting-work/a 2026-03-07T08:55:00Z"_qs));
    comeTo("2026-03-07 08:55");
    EXPECT_EQ(onScreen().size(), 1);

    addMeeting("a", "20260307T093000Z", "20260307T110000Z");
    change();
    EXPECT_THAT(onScreen(), IsEmpty()) << "shown, but moved";
    comeTo("2026-03-07 09:25");
    EXPECT_EQ(onScreen().size(), 1) << "at its new time it comes again";

    addMeeting("a", "20260307T093000Z", "20260307T110000Z", "\nSTATUS:CANCELLED");
    change();
    EXPECT_THAT(onScreen(), IsEmpty()) << "called off";
}

TEST_F(MeetingRemindersTest, DoNotDependOnTheMonthThatIsBrowsed)
{
    addMeeting("tonight", "20260307T200000Z", "20260307T210000Z");
    world.loaded();
    const QStringList before = pending();
    EXPECT_EQ(before.size(), 1);
    AppState &state = world.state();
    // A pass in the middle of a refresh, when the other month is there and the coming week is not yet.
    QObject::connect(&state.eventsVM(), &EventsViewModel::dayEventsChanged, &state, [&] {
        state.setMeetingNotificationMinutes(6);
        state.setMeetingNotificationMinutes(5);
        EXPECT_EQ(pending(), before);
    });
    for (const int months : { 3, -6, 3 }) {
        state.navigateMonth(months);
        QCoro::waitFor(state.refreshAll());
        EXPECT_EQ(pending(), before) << months;
    }
}

TEST_F(MeetingRemindersTest, OfASeriesComeEachInTurn)
{
    // Two of them lie in the same 24 hours.
    addMeeting("s", "20260307T100000Z", "20260307T103000Z", "\nRRULE:FREQ=HOURLY;INTERVAL=23;COUNT=3");
    world.loaded();
    EXPECT_THAT(pending(), ElementsAre(u"meeting-work/s 2026-03-07T09:55:00Z"_qs));
    tickTo("2026-03-07 09:55");
    EXPECT_EQ(screen.titles.size(), 1);
    EXPECT_THAT(pending(), ElementsAre(u"meeting-work/s 2026-03-08T08:55:00Z"_qs));
    tickTo("2026-03-10 00:00");
    EXPECT_EQ(screen.titles.size(), 3);
}

TEST_F(MeetingRemindersTest, ComeInAWeekThatNobodyTouches)
{
    for (const char *day : { "08", "09", "10", "11", "12", "13" })
        addMeeting(day, (QByteArray("202603") + day + "T000600Z").constData(),
            (QByteArray("202603") + day + "T010000Z").constData());
    world.loaded();
    tickTo("2026-03-14 00:00");
    EXPECT_EQ(screen.titles.size(), 6);
}

TEST_F(MeetingRemindersTest, StandAtTheirMomentWhenTheZoneChanges)
{
    addMeeting("a", "20260307T100000Z", "20260307T110000Z");
    world.loaded();
    world.environment.setTimeZone(zone("Asia/Kolkata"));
    EXPECT_THAT(pending(), ElementsAre(u"meeting-work/a 2026-03-07T09:55:00Z"_qs)) << "before anything is fetched";
    settle();
    EXPECT_THAT(pending(), ElementsAre(u"meeting-work/a 2026-03-07T09:55:00Z"_qs));
}

TEST_F(MeetingRemindersTest, FollowThePreferencesAtOnce)
{
    addMeeting("a", "20260307T100000Z", "20260307T110000Z");
    AppState &state = world.loaded();
    state.setMeetingNotificationMinutes(15);
    EXPECT_THAT(pending(), ElementsAre(u"meeting-work/a 2026-03-07T09:45:00Z"_qs));
    state.setMeetingNotificationMinutes(-3);
    EXPECT_THAT(pending(), ElementsAre(u"meeting-work/a 2026-03-07T09:55:00Z"_qs));
    state.setMeetingNotificationsEnabled(false);
    EXPECT_THAT(pending(), IsEmpty());
    settle();
    EXPECT_THAT(pending(), IsEmpty());
    state.setMeetingNotificationsEnabled(true);
    EXPECT_EQ(pending().size(), 1);
}

TEST_F(MeetingRemindersTest, AreSetWhereTheDesktopCannotBeAsked)
{
    screen.isReachable = false;
    addMeeting("a", "20260307T100000Z", "20260307T110000Z");
    world.loaded();
    EXPECT_THAT(
        world.takeLog(), testing::Contains(u"error Notifications: Notification permission error: nobody is there"_qs));
    EXPECT_EQ(pending().size(), 1);
}

} // namespace
} // namespace mintaro
