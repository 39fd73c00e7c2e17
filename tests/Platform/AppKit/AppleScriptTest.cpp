#include "Platform/AppKit/AppleScript.h"

#include <gmock/gmock.h>

#include <QCoroTask>

namespace mintaro {
namespace {

class NotedApplication final : public CalendarApplication
{
public:
    QByteArray asked;
    std::optional<QString> failure;
    [[nodiscard]] QCoro::Task<std::optional<QString>> activate() override
    {
        asked += "activate ";
        co_return std::optional(failure);
    }
    [[nodiscard]] QCoro::Task<std::optional<QString>> show(QDate day) override
    {
        asked += day.toString(Qt::ISODate).toLatin1() + ' ';
        co_return std::optional(failure);
    }
};

/// `asked` is null for a script that is an error.
struct ScriptCase
{
    const char *source;
    const char *asked;
};

const ScriptCase kCases[] = {
    { "tell application \"Calendar\" to activate", "activate " },
    { "set d to current date\nset day of d to 31\nset month of d to 3\nset year of d to 2027\n"
      "tell application \"Calendar\"\n    activate\n    switch view to day view\n    view calendar at d\nend tell",
        "activate 2027-03-31 " },
    { "Set D to Current Date\n\nTELL Application \"calendar\"\n\tview calendar at d\nend tell\n", "2026-02-15 " },
    { "", "" },
    { "tell application \"Finder\" to activate", nullptr },
    { "tell application \"Calendar\" to quit", nullptr },
    { "tell application \"Calendar\" to activate activate", nullptr },
    { "tell application \"Calendar\"\nactivate\n", nullptr },
    { "tell application \"Calendar\"\nactivate\nview calendar at d\nend tell", nullptr },
    { "tell application \"Calendar\" to activate\ndo shell script \"id\"", nullptr },
    { "tell application \"Calendar\" to activate\nset day of d to 3", nullptr },
    { "set d to current date\nset day of d to 30\ntell application \"Calendar\"\nactivate\nview calendar at d\nend "
      "tell",
        nullptr },
    { "set d to current date\nset year of d to 99999\ntell application \"Calendar\" to view calendar at d", nullptr },
    { "set d to current date\nset day of d to 99999999999", nullptr },
    { "set 5 to current date", nullptr },
    { "set d to current date\nset day of d to -1", nullptr },
    { "activate", nullptr },
    { "tell application \"Calendar", nullptr },
};

TEST(AppleScriptTest, DoesWhatItUnderstandsAndElseNothing)
{
    for (const ScriptCase &each : kCases) {
        NotedApplication application;
        const auto failure
            = QCoro::waitFor(AppleScript(QString::fromLatin1(each.source)).execute(application, QDate(2026, 2, 15)));
        EXPECT_EQ(failure.has_value(), each.asked == nullptr) << each.source;
        EXPECT_EQ(application.asked, QByteArray(each.asked)) << each.source;
    }
}

TEST(AppleScriptTest, EndsWhereTheApplicationFails)
{
    NotedApplication application;
    application.failure = QStringLiteral("none");
    const AppleScript script(QStringLiteral("tell application \"Calendar\"\nactivate\nactivate\nend tell"));
    EXPECT_EQ(QCoro::waitFor(script.execute(application, QDate(2026, 2, 15))), application.failure);
    EXPECT_EQ(application.asked, "activate ");
}

} // namespace
} // namespace mintaro
