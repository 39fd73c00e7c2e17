#include "Services/NotificationService.h"

#include "Platform/Foundation/Translations.h"
#include "support/FakePresenter.h"
#include "support/World.h"

#include <gmock/gmock.h>

namespace mintaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Screen
{
    explicit Screen(const char *now, const TimeZone &timeZone = TimeZone())
        : clock(at(now))
        , environment(clock, Locale(), timeZone)
    {
        service.registerCategories();
    }

    /// "20260307T095500Z" of each that is pending.
    QStringList pending()
    {
        QStringList moments;
        for (const UNNotificationRequest &request : center.pendingNotificationRequests())
            moments.append(request.identifier + u' ' + text(*request.trigger.date()));
        return moments;
    }

    QStringList lines;
    const LogSink log = [this](const LogMessage &message) { lines.append(message.text); };
    FakeClock clock;
    Environment environment;
    FakePresenter presenter;
    UNUserNotificationCenter center { environment, presenter, log };
    NotificationService service { center, environment, log };
};

CalendarEvent event(const QString &id, Date start, Date end)
{
    CalendarEvent event;
    event.id = id;
    event.title = id;
    event.startDate = start;
    event.endDate = end;
    return event;
}

CalendarEvent meeting(const QString &id, Date start, const char *link = "https://meet.google.com/abc")
{
    CalendarEvent result = event(id, start, start + std::chrono::hours { 1 });
    result.meetingInfo = MeetingURLDetector().detectMeetingURL({ .location = QLatin1String(link) });
    return result;
}

struct ReminderCase
{
    const char *name;
    std::function<void(CalendarEvent &)> change;
    const char *pending; ///< empty: none
    int counted = 1;
    int minutesBefore = 5;
    const char *zoneName = "UTC";
};

class ReminderTest : public testing::TestWithParam<ReminderCase>
{
};

TEST_P(ReminderTest, IsPendingForItsMinute)
{
    Screen screen("2026-10-24 12:00", zone(GetParam().zoneName));
    CalendarEvent subject = meeting(u"e"_qs, at("2026-10-24 15:00"));
    GetParam().change(subject);
    screen.service.scheduleUpcomingMeetingNotifications({ subject }, GetParam().minutesBefore);
    const QString moment = QLatin1String(GetParam().pending);
    EXPECT_EQ(screen.pending(), moment.isEmpty() ? QStringList() : QStringList { u"meeting-e "_qs + moment });
    EXPECT_THAT(
        screen.lines, ElementsAre(QStringLiteral("Scheduled %1 meeting notifications").arg(GetParam().counted)));
}

std::function<void(CalendarEvent &)> startsAt(const char *start)
{
    return [start](CalendarEvent &event) { event.startDate = at(start); };
}

INSTANTIATE_TEST_SUITE_P(Rows, ReminderTest,
    testing::Values(ReminderCase { "Ahead", [](CalendarEvent &) {}, "2026-10-24T14:55:00Z" },
        ReminderCase { "InTwentyThreeHours", startsAt("2026-10-25 11:00"), "2026-10-25T10:55:00Z" },
        ReminderCase { "InTwentyFourHours", startsAt("2026-10-25 12:00"), "", 0 },
        ReminderCase {
            "InADayOfTwentyFiveHours", startsAt("2026-10-25 12:30"), "2026-10-25T12:25:00Z", 1, 5, "Europe/Rome" },
        ReminderCase { "Running", startsAt("2026-10-24 12:00"), "", 0 },
        ReminderCase { "WithinTheLead", startsAt("2026-10-24 12:04"), "", 1 },
        ReminderCase { "NowIsTheLead", startsAt("2026-10-24 12:05"), "", 1 },
        ReminderCase { "SecondsAreDropped",
            [](CalendarEvent &event) { event.startDate += std::chrono::seconds { 30 }; }, "2026-10-24T14:55:00Z" },
        ReminderCase { "LongBefore", [](CalendarEvent &) {}, "2026-10-24T13:30:00Z", 1, 90 },
        ReminderCase {
            "HourThatClocksShowTwice", startsAt("2026-10-25 01:35"), "2026-10-25T01:30:00Z", 1, 5, "Europe/Rome" },
        ReminderCase { "WholeDay", [](CalendarEvent &event) { event.isAllDay = true; }, "", 0 },
        ReminderCase { "WithoutALink", [](CalendarEvent &event) { event.meetingInfo.reset(); }, "", 0 }),
    kRowName);

TEST(NotificationServiceTest, ReplacesItsOwnAndLeavesOthers)
{
    Screen screen("2026-03-07 09:00");
    const UNNotificationRequest other { .identifier = u"other"_qs,
        .content = {},
        .lateContent = {},
        .trigger = UNCalendarNotificationTrigger::atMinute(at("2026-03-07 09:30"), screen.environment.calendar()),
        .occasion = { at("2026-03-07 09:30"), at("2026-03-07 10:30") } };
    screen.center.add(other);
    const CalendarEvent late = meeting(u"e"_qs, at("2026-03-07 11:00"));
    const CalendarEvent early = meeting(u"e"_qs, at("2026-03-07 10:00"));
    for (int pass = 0; pass < 2; ++pass) {
        screen.service.scheduleUpcomingMeetingNotifications({ late, early }, 5);
        EXPECT_THAT(
            screen.pending(), ElementsAre(u"meeting-e 2026-03-07T09:55:00Z"_qs, u"other 2026-03-07T09:30:00Z"_qs))
            << "of one series the reminder that comes first";
    }
    screen.service.scheduleMeetingReminder(late, 5);
    EXPECT_EQ(screen.pending().front(), u"meeting-e 2026-03-07T10:55:00Z"_qs);
    screen.service.removeAllPendingMeetingNotifications();
    EXPECT_THAT(screen.pending(), ElementsAre(u"other 2026-03-07T09:30:00Z"_qs));
}

struct ContentCase
{
    const char *name;
    const char *language;
    const char *link; ///< empty: no meeting
    int minutesBefore;
    const char *title;
    const char *body;
    const char *meetingURL;
};

class ReminderContentTest : public testing::TestWithParam<ContentCase>
{
};

TEST_P(ReminderContentTest, SaysWhatIsDueAsItWasTyped)
{
    const ContentCase &row = GetParam();
    const auto texts = installTranslations(Locale::fromIdentifier(QLatin1String(row.language)));
    Screen screen("2026-03-07 09:00");
    CalendarEvent subject = meeting(u"e"_qs, at("2026-03-07 10:00"), row.link);
    subject.title = u"<b>%1 & %n"_qs;
    screen.service.scheduleMeetingReminder(subject, row.minutesBefore);
    const auto requests = screen.center.pendingNotificationRequests();
    ASSERT_EQ(requests.size(), 1U);
    const UNNotificationContent &content = requests.front().content;
    EXPECT_EQ(content.title, QString::fromUtf8(row.title));
    EXPECT_EQ(content.body, QString::fromUtf8(row.body));
    EXPECT_EQ(content.userInfo.value(u"eventId"_qs), u"e"_qs);
    EXPECT_EQ(content.userInfo.value(u"meetingURL"_qs), QLatin1String(row.meetingURL));
    EXPECT_EQ(content.categoryIdentifier.isEmpty(), !*row.link) << "without a meeting there is nothing to join";
}

INSTANTIATE_TEST_SUITE_P(Rows, ReminderContentTest,
    testing::Values(ContentCase { "DeepLink", "en_GB", "https://zoom.us/j/12?pwd=x", 5, "Zoom: <b>%1 & %n in 5 minutes",
                        "<b>%1 & %n starts in 5 minutes", "zoommtg://zoom.us/join?pwd=x&confno=12" },
        ContentCase { "WebLinkOneMinute", "en_GB", "https://meet.google.com/abc", 1,
            "Google Meet: <b>%1 & %n in 1 minute", "<b>%1 & %n starts in 1 minute", "https://meet.google.com/abc" },
        ContentCase { "NoMeeting", "en_GB", "", 5, "Event starting soon", "<b>%1 & %n starts in 5 minutes", "" },
        ContentCase { "Italian", "it_IT", "https://meet.google.com/abc", 10, "Google Meet: <b>%1 & %n tra 10 minuti",
            "<b>%1 & %n inizia tra 10 minuti", "https://meet.google.com/abc" },
        ContentCase { "ItalianOneMinute", "it_IT", "https://meet.google.com/abc", 1,
            "Google Meet: <b>%1 & %n tra 1 minuto", "<b>%1 & %n inizia tra 1 minuto", "https://meet.google.com/abc" }),
    kRowName);

} // namespace
} // namespace mintaro
