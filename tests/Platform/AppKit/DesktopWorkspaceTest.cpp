#include "Platform/AppKit/DesktopWorkspace.h"

#include "Platform/AppKit/InstalledPrograms.h"

#include <QCoroTask>
#include <QTest>

namespace mintaro {

namespace {

class DesktopWorkspaceTest : public InstalledPrograms
{
protected:
    bool ask(const char *scheme) { return QCoro::waitFor(workspace.hasHandler(QLatin1String(scheme))); }

    DesktopWorkspace workspace { QStringLiteral("/nowhere") };
};

TEST_F(DesktopWorkspaceTest, AsksOncePerScheme)
{
    install("xdg-mime", "echo \"$*\" >>asked; [ \"$3\" = x-scheme-handler/known ] && echo some.desktop; exit 0\n");
    EXPECT_TRUE(ask("known"));
    EXPECT_TRUE(ask("KNOWN"));
    EXPECT_FALSE(ask("unknown"));
    EXPECT_FALSE(ask("unknown"));
    EXPECT_EQ(content("asked"), "query default x-scheme-handler/known\nquery default x-scheme-handler/unknown\n");
}

TEST_F(DesktopWorkspaceTest, WhatIsNoSchemeIsNotAsked)
{
    install("xdg-mime", "touch asked; echo some.desktop\n");
    for (const char *text : { "", "a b", "9p", "-x", "http://x" }) {
        EXPECT_FALSE(ask(text)) << text;
    }
    EXPECT_EQ(QFile::exists(folder.filePath(QStringLiteral("asked"))), false);
}

TEST_F(DesktopWorkspaceTest, WithoutTheToolNothingHasAHandler)
{
    qputenv("PATH", folder.path().toLocal8Bit());
    EXPECT_FALSE(ask("https"));
}

TEST_F(DesktopWorkspaceTest, OpensTheAddressUnharmedAndNothingWithoutAScheme)
{
    install("xdg-open", "printf '%s\\n' \"$@\" >part; cat part >>opened\n");
    workspace.open(*URL::fromString(QStringLiteral("--help")));
    workspace.open(*URL::fromString(QStringLiteral("https://example.org/j/1?pwd=a&b=$(id)#c'd")));
    ASSERT_TRUE(QTest::qWaitFor([this] { return content("opened").endsWith('\n'); }));
    EXPECT_EQ(content("opened"), "https://example.org/j/1?pwd=a&b=$(id)#c'd\n");
}

TEST_F(DesktopWorkspaceTest, OpensTheProgramForTasksThatIsInstalled)
{
    const URL reminders = *URL::fromString(QStringLiteral("x-apple-reminderkit://"));
    EXPECT_FALSE(workspace.open(reminders));
    install("evolution", "echo \"evolution $*\" >>opened\n");
    addEntry("org.gnome.Evolution", "evolution %U");
    EXPECT_TRUE(workspace.open(reminders));
    ASSERT_TRUE(QTest::qWaitFor([this] { return content("opened") == "evolution task:///\n"; }))
        << content("opened").data();
    install("endeavour", "echo \"endeavour $*\" >>opened\n");
    addEntry("org.gnome.Todo", "endeavour");
    EXPECT_TRUE(workspace.open(reminders));
    ASSERT_TRUE(QTest::qWaitFor([this] { return content("opened").endsWith("endeavour \n"); }));
}

} // namespace

} // namespace mintaro
