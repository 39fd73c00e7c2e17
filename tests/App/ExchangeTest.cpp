#include "support/World.h"

#include <gmock/gmock.h>

#include <QTest>

namespace mintaro {
namespace {

using testing::ElementsAre;

CalendarEvent lunch()
{
    CalendarEvent event;
    event.title = u"Lunch"_qs;
    event.startDate = at("2026-03-07 12:00");
    event.endDate = at("2026-03-07 13:30");
    return event;
}

struct CopyCase
{
    const char *what;
    std::function<void(AppState &)> copy;
    QString text;
};

TEST(ExchangeTest, LaysOneTextOnThePasteboard)
{
    const auto event = [](auto change) {
        return [change](AppState &state) {
            CalendarEvent copied = lunch();
            change(copied);
            state.copyEventDetails(copied);
        };
    };
    const MeetingInfo meeting { u"Zoom"_qs, *URL::fromString(u"https://zoom.us/j/1?pwd=A%20b"_qs),
        URL::fromString(u"zoommtg://zoom.us/join?confno=1"_qs), u"video.fill"_qs };
    const std::vector<CopyCase> cases {
        { "in the zone's time", event([](auto &) {}), u"Lunch\n13:00 - 14:30"_qs },
        { "without an empty location", event([](auto &e) { e.location = u""_qs; }), u"Lunch\n13:00 - 14:30"_qs },
        { "with a location", event([](auto &e) { e.location = u"Roma"_qs; }), u"Lunch\n13:00 - 14:30\nRoma"_qs },
        { "without the notes", event([](auto &e) { e.notes = u"secret"_qs; }), u"Lunch\n13:00 - 14:30"_qs },
        { "a whole day", event([](auto &e) { e.isAllDay = true; }), u"Lunch\nAll Day"_qs },
        { "a reminder", [](AppState &s) { s.copyReminderDetails(u"Bike"_qs, {}); }, u"Bike"_qs },
        { "a reminder that is due", [](AppState &s) { s.copyReminderDetails(u"Bike"_qs, at("2026-03-07 20:05")); },
            u"Bike\n7 mar, 21:05"_qs },
        { "a meeting's web link", [&](AppState &s) { s.copyMeetingLink(meeting); },
            u"https://zoom.us/j/1?pwd=A%20b"_qs },
    };
    World world("2026-03-07 12:00", "it_IT", "Europe/Rome");
    for (const CopyCase &each : cases) {
        each.copy(world.state());
        EXPECT_THAT(world.pasteboard.contents, ElementsAre(each.text)) << each.what;
    }
}

TEST(ExchangeTest, ShowsTheDayOfAnEventInTheCalendarProgram)
{
    World world("2026-02-15 12:00", "it_IT", "Europe/Rome");
    CalendarEvent night = lunch();
    night.startDate = at("2026-03-30 22:30"); // the 31st in Rome, a day that the present month lacks
    world.state().openInCalendarApp(night);
    EXPECT_THAT(world.calendarApplication.asked, ElementsAre(u"activate"_qs));
    ASSERT_TRUE(QTest::qWaitFor([&] { return world.calendarApplication.asked.size() == 3; }));
    EXPECT_THAT(world.calendarApplication.asked, ElementsAre(u"activate"_qs, u"activate"_qs, u"2026-03-31"_qs));
    EXPECT_EQ(world.state().errorMessage(), QString());
}

TEST(ExchangeTest, TellsThatThereIsNoProgram)
{
    World world("2026-03-07 12:00");
    world.calendarApplication.failure = u"none"_qs;
    world.state().openInCalendarApp(lunch());
    EXPECT_EQ(world.state().errorMessage(), u"none"_qs);
    world.state().openInReminders();
    EXPECT_EQ(world.state().errorMessage(), u"none"_qs);
    world.workspace.canOpen = false;
    world.state().openInReminders();
    EXPECT_NE(world.state().errorMessage(), u"none"_qs);
    EXPECT_EQ(world.workspace.opened.last(), u"x-apple-reminderkit://"_qs);
}

} // namespace
} // namespace mintaro
