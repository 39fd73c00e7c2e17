#include "main/AppDelegate.h"

#include "support/World.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

struct ResponseCase
{
    const char *name;
    const char *action;
    const char *link; ///< null: the user info has none
    const char *opened; ///< null: nothing
    const char *key = "meetingURL";
};

class AppDelegateTest : public testing::TestWithParam<ResponseCase>
{
};

TEST_P(AppDelegateTest, OpensTheMeetingOrNothing)
{
    const ResponseCase &row = GetParam();
    FakeWorkspace workspace;
    AppDelegate delegate(workspace);
    UNNotificationResponse response;
    response.actionIdentifier = QLatin1String(row.action);
    response.activationToken = u"token"_qs;
    if (row.link)
        response.request.content.userInfo.insert(QLatin1String(row.key), QLatin1String(row.link));
    QCoro::waitFor(delegate.didReceive(response));
    EXPECT_EQ(workspace.opened, row.opened ? QStringList { QLatin1String(row.opened) } : QStringList());
    EXPECT_EQ(workspace.tokens, row.opened ? QStringList { u"token"_qs } : QStringList());
}

INSTANTIATE_TEST_SUITE_P(Rows, AppDelegateTest,
    testing::Values(ResponseCase { "Join", "JOIN_MEETING", "https://zoom.us/j/1", "https://zoom.us/j/1" },
        ResponseCase { "TheNotificationItself", "default", "zoommtg://zoom.us/join?confno=1", "https://zoom.us/j/1" },
        ResponseCase { "Update", "SHOW_UPDATE", "https://example.org/", "https://example.org/", "updateURL" },
        ResponseCase { "AnotherAction", "dismiss", "https://zoom.us/j/1", nullptr },
        ResponseCase { "NoLink", "JOIN_MEETING", nullptr, nullptr },
        ResponseCase { "NoURL", "JOIN_MEETING", "not a url", nullptr }),
    kRowName);

} // namespace
} // namespace mintaro
