#include "Platform/Foundation/UserDefaults.h"

#include "support/Printers.h"
#include "support/WithoutPrivileges.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace mintaro {

class UserDefaultsTest : public testing::Test
{
protected:
    void write(const QByteArray &bytes)
    {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(bytes);
    }
    QByteArray content()
    {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }
    [[nodiscard]] Logger logger()
    {
        return Logger(QStringLiteral("UserDefaults"), [this](const LogMessage &message) { log.append(message.text); });
    }

    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("sub/mintaro.conf"));
    QStringList log;
};

TEST_F(UserDefaultsTest, ReadsWhatPeopleWriteByHand)
{
    ASSERT_TRUE(QDir().mkpath(folder.filePath(QStringLiteral("sub"))));
    write("# my settings\n\n[General]\nWeekStartsOnMonday = Yes\nShowWeekNumbers=0\nMenuBarMaxTitleLength = 12 \n"
          "MenuBarDateFormat=EEE, d MMM; HH:mm\nEventFontSize=13.5\nEmpty=\nOdd=perhaps\n");
    const UserDefaults defaults(file, logger());

    EXPECT_EQ(defaults.boolForKey(QStringLiteral("WeekStartsOnMonday")), true);
    EXPECT_EQ(defaults.boolForKey(QStringLiteral("ShowWeekNumbers")), false);
    EXPECT_EQ(defaults.boolForKey(QStringLiteral("Odd")), std::nullopt);
    EXPECT_EQ(defaults.boolForKey(QStringLiteral("Absent")), std::nullopt);
    EXPECT_EQ(defaults.integerForKey(QStringLiteral("MenuBarMaxTitleLength")), 12);
    EXPECT_EQ(defaults.integerForKey(QStringLiteral("Odd")), 0);
    EXPECT_EQ(defaults.doubleForKey(QStringLiteral("EventFontSize")), 13.5);
    EXPECT_EQ(defaults.stringForKey(QStringLiteral("MenuBarDateFormat")), QStringLiteral("EEE, d MMM; HH:mm"));
    EXPECT_TRUE(defaults.hasObjectForKey(QStringLiteral("Empty")));
    EXPECT_EQ(defaults.stringArrayForKey(QStringLiteral("Odd")), QStringList());
}

TEST_F(UserDefaultsTest, EveryTypeComesBackFromTheFile)
{
    const QStringList texts { QStringLiteral("plain"), QStringLiteral(" spaces "), QStringLiteral("two\nlines"),
        QStringLiteral("@array [\"no list\"]"), QStringLiteral("a=b;c,d\"e"), QStringLiteral("è 🎂") };
    {
        UserDefaults defaults(file, logger());
        for (const QString &text : texts)
            defaults.setString(text, QStringLiteral("Text%1").arg(texts.indexOf(text)));
        defaults.setStringArray(texts, QStringLiteral("List"));
        defaults.setStringArray({}, QStringLiteral("None"));
        defaults.setData(QByteArray("\0\1\xff", 3), QStringLiteral("Data"));
        defaults.setBool(false, QStringLiteral("Off"));
        defaults.setInteger(-3, QStringLiteral("Number"));
        defaults.setString(QStringLiteral("gone"), QStringLiteral("Gone"));
        defaults.removeObjectForKey(QStringLiteral("Gone"));
    }
    const UserDefaults defaults(file, logger());
    for (const QString &text : texts)
        EXPECT_EQ(defaults.stringForKey(QStringLiteral("Text%1").arg(texts.indexOf(text))), text);
    EXPECT_EQ(defaults.stringArrayForKey(QStringLiteral("List")), texts);
    EXPECT_TRUE(defaults.hasObjectForKey(QStringLiteral("None")));
    EXPECT_EQ(defaults.dataForKey(QStringLiteral("Data")), QByteArray("\0\1\xff", 3));
    EXPECT_EQ(defaults.boolForKey(QStringLiteral("Off")), false);
    EXPECT_EQ(defaults.integerForKey(QStringLiteral("Number")), -3);
    EXPECT_FALSE(defaults.hasObjectForKey(QStringLiteral("Gone")));
}

TEST_F(UserDefaultsTest, TellsOfChangesOnceForEachKey)
{
    UserDefaults defaults(file, logger());
    QSignalSpy told(&defaults, &UserDefaults::changed);
    defaults.setBool(true, QStringLiteral("A"));
    defaults.setBool(true, QStringLiteral("A"));
    defaults.removeObjectForKey(QStringLiteral("B"));
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told.first().first().toString(), QStringLiteral("A"));
}

TEST_F(UserDefaultsTest, FollowsChangesFromOutside)
{
    UserDefaults defaults(file, logger());
    defaults.follow();
    defaults.setString(QStringLiteral("kept"), QStringLiteral("Kept"));
    QSignalSpy told(&defaults, &UserDefaults::changed);

    write("Kept=kept\nShowWeekNumbers=true\n");

    ASSERT_TRUE(told.wait());
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(defaults.boolForKey(QStringLiteral("ShowWeekNumbers")), true);
    defaults.setInteger(1, QStringLiteral("Mine"));
    EXPECT_THAT(content().toStdString(), testing::HasSubstr("ShowWeekNumbers=true"));
}

TEST_F(UserDefaultsTest, BringsChangesAlongWhenTheFolderCanBeWrittenAgain)
{
    ASSERT_TRUE(QDir().mkpath(folder.filePath(QStringLiteral("sub"))));
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x7755)));
    write("A=1\n");
    UserDefaults defaults(file, logger());
    const QSignalSpy tellings(&defaults, &UserDefaults::hasUnsavedChangesChanged);
    {
        const WithoutPrivileges asNobody;
        ASSERT_TRUE(asNobody.isActive());
        defaults.setInteger(2, QStringLiteral("A"));
        defaults.setInteger(3, QStringLiteral("B"));
        EXPECT_EQ(content(), "A=1\n");
        EXPECT_EQ(defaults.integerForKey(QStringLiteral("A")), 2);
        EXPECT_TRUE(defaults.hasUnsavedChanges());
    }
    defaults.setInteger(4, QStringLiteral("C"));
    EXPECT_EQ(content(), "A=2\nB=3\nC=4\n");
    EXPECT_FALSE(defaults.hasUnsavedChanges());
    EXPECT_EQ(tellings.size(), 2);
}

TEST_F(UserDefaultsTest, NeverWritesOverAFileItCannotRead)
{
    ASSERT_TRUE(QDir().mkpath(folder.filePath(QStringLiteral("sub"))));
    for (const QByteArray &broken :
        { QByteArray("no equals sign\n"), QByteArray("A=\xff\xfe\n"), QByteArray("A=\0B", 4) }) {
        write(broken);
        log.clear();
        UserDefaults defaults(file, logger());
        EXPECT_FALSE(defaults.hasObjectForKey(QStringLiteral("A")));
        defaults.setBool(true, QStringLiteral("Mine"));
        EXPECT_EQ(defaults.boolForKey(QStringLiteral("Mine")), true);
        EXPECT_EQ(content(), broken);
        EXPECT_EQ(log.size(), 1) << broken.constData();
    }
}

} // namespace mintaro
