#include "Services/MeetingOpener.h"

#include "support/World.h"

#include <gmock/gmock.h>

namespace mintaro {
namespace {

struct OpenCase
{
    const char *name;
    const char *deepLink; ///< null: none
    QStringList handledSchemes;
    const char *opened;
};

class MeetingOpenerTest : public testing::TestWithParam<OpenCase>
{
};

TEST_P(MeetingOpenerTest, OpensOneLink)
{
    FakeWorkspace workspace;
    workspace.schemes = GetParam().handledSchemes;
    MeetingInfo meeting { .service = QStringLiteral("Zoom"),
        .url = *URL::fromString(QStringLiteral("https://zoom.us/j/1")),
        .deepLinkURL = std::nullopt,
        .systemImage = QString() };
    if (GetParam().deepLink)
        meeting.deepLinkURL = URL::fromString(QLatin1String(GetParam().deepLink));
    QCoro::waitFor(MeetingOpener(workspace).open(meeting));
    EXPECT_THAT(workspace.opened, testing::ElementsAre(QString::fromLatin1(GetParam().opened)));
}

const QStringList kWeb { QStringLiteral("https") };
const QStringList kWebAndZoom { QStringLiteral("https"), QStringLiteral("zoommtg") };

INSTANTIATE_TEST_SUITE_P(Rows, MeetingOpenerTest,
    testing::Values(OpenCase { "DeepLinkWithHandler", "zoommtg://zoom.us/join", kWebAndZoom, "zoommtg://zoom.us/join" },
        OpenCase { "DeepLinkWithoutHandler", "zoommtg://zoom.us/join", kWeb, "https://zoom.us/j/1" },
        OpenCase { "NoDeepLink", nullptr, kWebAndZoom, "https://zoom.us/j/1" }),
    kRowName);

struct LinkCase
{
    const char *name;
    const char *link;
    QStringList handledSchemes;
    const char *opened;
};

class MeetingLinkTest : public testing::TestWithParam<LinkCase>
{
};

TEST_P(MeetingLinkTest, IsOpenedWithItsToken)
{
    FakeWorkspace workspace;
    workspace.schemes = GetParam().handledSchemes;
    QCoro::waitFor(MeetingOpener(workspace).open(*URL::fromString(QLatin1String(GetParam().link)), u"token"_qs));
    EXPECT_THAT(workspace.opened, testing::ElementsAre(QString::fromLatin1(GetParam().opened)));
    EXPECT_THAT(workspace.tokens, testing::ElementsAre(u"token"_qs));
}

INSTANTIATE_TEST_SUITE_P(Rows, MeetingLinkTest,
    testing::Values(LinkCase { "DeepLinkWithHandler", "zoommtg://zoom.us/join?confno=1", kWebAndZoom,
                        "zoommtg://zoom.us/join?confno=1" },
        LinkCase { "DeepLinkWithoutHandler", "zoommtg://zoom.us/join?confno=1", kWeb, "https://zoom.us/j/1" },
        LinkCase { "WebLink", "https://meet.google.com/abc", {}, "https://meet.google.com/abc" }),
    kRowName);

} // namespace
} // namespace mintaro
