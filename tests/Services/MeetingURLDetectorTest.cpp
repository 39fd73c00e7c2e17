#include "Services/MeetingURLDetector.h"

#include <gtest/gtest.h>

#include <ostream>

namespace mintaro {
namespace {

std::optional<MeetingInfo> meetingIn(const QString &notes)
{
    return MeetingURLDetector().detectMeetingURL({ .notes = notes });
}

QString serviceIn(const QString &notes)
{
    const auto meeting = meetingIn(notes);
    return meeting ? meeting->service : QString();
}

struct ServiceCase
{
    const char *name;
    QString text;
    QString service; ///< empty: no meeting
};

void PrintTo(const ServiceCase &row, std::ostream *out)
{
    *out << row.text.toStdString();
}

class MeetingServiceTest : public testing::TestWithParam<ServiceCase>
{
};

TEST_P(MeetingServiceTest, IsRecognised)
{
    EXPECT_EQ(serviceIn(GetParam().text), GetParam().service);
}

INSTANTIATE_TEST_SUITE_P(Rows, MeetingServiceTest,
    testing::Values(ServiceCase { "Zoom", QStringLiteral("https://zoom.us/j/1"), QStringLiteral("Zoom") },
        ServiceCase { "ZoomOfACompany", QStringLiteral("https://acme.zoom.us/my/anna"), QStringLiteral("Zoom") },
        ServiceCase { "ZoomGovernment", QStringLiteral("https://acme.zoomgov.com/w/1"), QStringLiteral("Zoom") },
        ServiceCase { "ZoomDialIn", QStringLiteral("https://zoom.us/u/abc"), QString() },
        ServiceCase { "GoogleMeetBare", QStringLiteral("meet.google.com/a-b-c"), QStringLiteral("Google Meet") },
        ServiceCase { "Hangouts", QStringLiteral("https://hangouts.google.com/call/x"), QStringLiteral("Google Meet") },
        ServiceCase { "Teams", QStringLiteral("<https://teams.microsoft.com/l/meetup-join/19%3a/0?context=%7b%7d>"),
            QStringLiteral("Microsoft Teams") },
        ServiceCase { "TeamsOptions", QStringLiteral("https://teams.microsoft.com/meetingOptions/?x"), QString() },
        ServiceCase {
            "TeamsConsumer", QStringLiteral("https://teams.live.com/meet/1"), QStringLiteral("Microsoft Teams") },
        ServiceCase { "WebEx", QStringLiteral("https://acme.webex.com/meet/anna"), QStringLiteral("WebEx") },
        ServiceCase {
            "FaceTime", QStringLiteral("https://facetime.apple.com/join#v=1&k=x"), QStringLiteral("FaceTime") },
        ServiceCase { "Slack", QStringLiteral("https://app.slack.com/huddle/T/C"), QStringLiteral("Slack Huddle") },
        ServiceCase { "Skype", QStringLiteral("https://join.skype.com/abc"), QStringLiteral("Skype") },
        ServiceCase { "GoTo", QStringLiteral("https://global.gotomeeting.com/join/1"), QStringLiteral("GoTo Meeting") },
        ServiceCase {
            "RingCentral", QStringLiteral("https://v.ringcentral.com/join/1"), QStringLiteral("RingCentral") },
        ServiceCase { "BlueJeans", QStringLiteral("https://bluejeans.com/1"), QStringLiteral("BlueJeans") },
        ServiceCase { "Jitsi", QStringLiteral("https://meet.jit.si/Room"), QStringLiteral("Jitsi") },
        ServiceCase { "Whereby", QStringLiteral("https://acme.whereby.com/room"), QStringLiteral("Whereby") },
        ServiceCase { "Around", QStringLiteral("https://meet.around.co/r/x"), QStringLiteral("Around") },
        ServiceCase { "Dialpad", QStringLiteral("https://meetings.dialpad.com/room"), QStringLiteral("Dialpad") },
        ServiceCase { "EightByEight", QStringLiteral("https://8x8.vc/acme/room"), QStringLiteral("8x8") },
        ServiceCase { "Chime", QStringLiteral("https://app.chime.aws/meetings/1"), QStringLiteral("Amazon Chime") },
        ServiceCase {
            "BigBlueButtonOwnServer", QStringLiteral("https://bbb.uni.de/b/a"), QStringLiteral("BigBlueButton") },
        ServiceCase { "Workplace", QStringLiteral("https://acme.workplace.com/meet/x"), QStringLiteral("Workplace") },
        ServiceCase { "Discord", QStringLiteral("https://discord.com/channels/1/2"), QStringLiteral("Discord") },
        ServiceCase { "Loom", QStringLiteral("https://www.loom.com/share/1"), QStringLiteral("Loom") },
        ServiceCase {
            "MiddleOfALabel", QStringLiteral("https://bloom.com/ notzoom.us/j/1 https://abbb.org/"), QString() },
        ServiceCase { "InAQuery", QStringLiteral("https://a.com/?u=https://zoom.us/j/1"), QStringLiteral("Zoom") },
        ServiceCase { "BehindAnEscape", QStringLiteral("https://a.com/?u=%2F%2Fzoom.us/j/1"), QStringLiteral("Zoom") },
        ServiceCase { "MiddleOfALabelInAQuery", QStringLiteral("https://a.com/?u=bloom.com/x"), QString() },
        ServiceCase { "HostWithoutLink", QStringLiteral("zoom us j 1"), QString() }),
    [](const testing::TestParamInfo<ServiceCase> &row) { return std::string(row.param.name); });

TEST(MeetingURLDetector, SearchesLocationThenUrlThenNotes)
{
    const QString zoom = QStringLiteral("https://zoom.us/j/1");
    const QString meet = QStringLiteral("https://meet.google.com/x");
    const QString jitsi = QStringLiteral("https://meet.jit.si/x");
    const MeetingURLDetector detector;
    EXPECT_EQ(detector.detectMeetingURL({ zoom, meet, jitsi })->url.absoluteString(), zoom);
    EXPECT_EQ(
        detector.detectMeetingURL({ QStringLiteral("https://example.com"), meet, jitsi })->url.absoluteString(), meet);
    EXPECT_EQ(detector.detectMeetingURL({ std::nullopt, std::nullopt, jitsi })->url.absoluteString(), jitsi);
    EXPECT_FALSE(detector.detectMeetingURL({}));
}

TEST(MeetingURLDetector, PrefersTheEarlierLinkToTheEarlierService)
{
    EXPECT_EQ(serviceIn(QStringLiteral("https://loom.com/x https://zoom.us/j/1")), QStringLiteral("Loom"));
}

TEST(MeetingURLDetector, KeepsTheCaseOfTheLink)
{
    const auto meeting = meetingIn(QStringLiteral("HTTPS://Acme.ZOOM.us/J/1?Pwd=Ab"));
    ASSERT_TRUE(meeting);
    EXPECT_EQ(meeting->url.absoluteString(), QStringLiteral("HTTPS://Acme.ZOOM.us/J/1?Pwd=Ab"));
    EXPECT_EQ(meeting->systemImage, QStringLiteral("video.fill"));
}

struct DeepLinkCase
{
    const char *name;
    QString web;
    QString deep; ///< empty: none
};

void PrintTo(const DeepLinkCase &row, std::ostream *out)
{
    *out << row.web.toStdString();
}

class DeepLinkTest : public testing::TestWithParam<DeepLinkCase>
{
};

TEST_P(DeepLinkTest, IsBuiltAndTurnedBack)
{
    const auto meeting = meetingIn(GetParam().web);
    ASSERT_TRUE(meeting);
    ASSERT_EQ(meeting->deepLinkURL.value_or(URL()).absoluteString(), GetParam().deep);
    if (meeting->deepLinkURL) {
        EXPECT_EQ(MeetingURLDetector::webLink(*meeting->deepLinkURL), meeting->url);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, DeepLinkTest,
    testing::Values(DeepLinkCase { "ZoomNumber", QStringLiteral("https://us02.zoom.us/j/123?pwd=a%2Bb.1"),
                        QStringLiteral("zoommtg://us02.zoom.us/join?pwd=a%2Bb.1&confno=123") },
        DeepLinkCase { "ZoomWithoutQuery", QStringLiteral("https://zoom.us/j/123"),
            QStringLiteral("zoommtg://zoom.us/join?confno=123") },
        DeepLinkCase {
            "ZoomPersonal", QStringLiteral("https://zoom.us/my/anna"), QStringLiteral("zoommtg://zoom.us/my/anna") },
        DeepLinkCase {
            "ZoomWithoutNumber", QStringLiteral("https://zoom.us/j/"), QStringLiteral("zoommtg://zoom.us/j/") },
        DeepLinkCase { "Teams", QStringLiteral("https://teams.live.com/meet/1?p=x"),
            QStringLiteral("msteams://teams.live.com/meet/1?p=x") },
        DeepLinkCase { "FaceTime", QStringLiteral("https://facetime.apple.com/join#v=1"),
            QStringLiteral("facetime://facetime.apple.com/join#v=1") },
        DeepLinkCase { "GoogleMeetHasNone", QStringLiteral("https://meet.google.com/a"), QString() }),
    [](const testing::TestParamInfo<DeepLinkCase> &row) { return std::string(row.param.name); });

TEST(MeetingURLDetector, TurnsOnlyItsOwnSchemesBack)
{
    EXPECT_FALSE(MeetingURLDetector::webLink(*URL::fromString(QStringLiteral("https://zoom.us/j/1"))));
    EXPECT_FALSE(MeetingURLDetector::webLink(*URL::fromString(QStringLiteral("vlc://zoom.us/j/1"))));
    EXPECT_FALSE(MeetingURLDetector::webLink(URL()));
}

} // namespace
} // namespace mintaro
