#include "Platform/AppKit/DesktopWorkspace.h"

#include <gtest/gtest.h>

#include <QCoroTask>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace mintaro {

namespace {

/// A folder of programs that stands first in the search path.
class DesktopWorkspaceTest : public testing::Test
{
protected:
    DesktopWorkspaceTest() { qputenv("PATH", folder.path().toLocal8Bit() + ":/bin:/usr/bin"); }
    ~DesktopWorkspaceTest() override { qputenv("PATH", m_path); }

    void install(const char *program, const char *body)
    {
        QFile file(folder.filePath(QLatin1String(program)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("#!/bin/sh\ncd ") + folder.path().toLocal8Bit() + "\n" + body);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QByteArray content(const char *name) const
    {
        QFile file(folder.filePath(QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    bool ask(const char *scheme) { return QCoro::waitFor(workspace.hasHandler(QLatin1String(scheme))); }

    QTemporaryDir folder;
    DesktopWorkspace workspace { QStringLiteral("/nowhere") };

private:
    const QByteArray m_path = qgetenv("PATH");
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

} // namespace

} // namespace mintaro
