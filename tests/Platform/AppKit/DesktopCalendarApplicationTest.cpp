#include "Platform/AppKit/DesktopCalendarApplication.h"

#include "Platform/AppKit/Bus.h"
#include "Platform/AppKit/DesktopEntry.h"
#include "Platform/AppKit/InstalledPrograms.h"

#include <gmock/gmock.h>

#include <QCoroTask>
#include <QTest>

namespace mintaro {

namespace {

const QDate kDay(2026, 3, 8);

/// The program that shows the day, on the bus.
class Organizer : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.Korganizer.Calendar")

public:
    QDate shown;

public Q_SLOTS:
    Q_SCRIPTABLE void showDate(const QDate &day) { shown = day; }
};

class DesktopCalendarApplicationTest : public InstalledPrograms
{
protected:
    DesktopCalendarApplicationTest() { install("program", "echo \"$*\" >part; cat part >>started\n"); }

    void setHandler(const QByteArray &entry)
    {
        install("xdg-mime", "[ \"$*\" = 'query default text/calendar' ] && echo " + entry + "\n");
    }

    /// Whether just that was started so far: a line for each start, with its arguments.
    [[nodiscard]] bool hasStarted(const QByteArray &lines) const
    {
        return QTest::qWaitFor([&] { return content("started") == lines; });
    }
};

TEST_F(DesktopCalendarApplicationTest, EachProgramIsStartedOnceAndAskedInItsWay)
{
    struct Row
    {
        const char *entry;
        QByteArray exec;
        QByteArray activation;
        QByteArray day; ///< empty: it cannot be told of one
    };
    const std::vector<Row> rows {
        { "org.gnome.Calendar", "program %u", "\n", "--date 2026-03-08\n" },
        { "org.gnome.Evolution", "program %U", "-c calendar\n", "calendar:///?startdate=20260308\n" },
        { "thunderbird", "program %u", "-calendar\n", "" },
        { "some.Other", "program --new \"a b\" %f", "--new a b\n", "" },
    };
    for (const Row &row : rows) {
        QFile::remove(folder.filePath(QStringLiteral("started")));
        addEntry(row.entry, row.exec);
        setHandler(QByteArray(row.entry) + ".desktop");
        DesktopCalendarApplication application;
        EXPECT_EQ(QCoro::waitFor(application.activate()), std::nullopt);
        EXPECT_TRUE(hasStarted(row.activation)) << row.entry << content("started").data();
        EXPECT_EQ(QCoro::waitFor(application.activate()), std::nullopt);
        EXPECT_EQ(QCoro::waitFor(application.show(kDay)), std::nullopt);
        EXPECT_TRUE(hasStarted(row.activation + row.day)) << row.entry << content("started").data();
    }
}

TEST_F(DesktopCalendarApplicationTest, WaitsForKOrganizerToTakeTheDay)
{
    addEntry("org.kde.korganizer", "program");
    addEntry("korganizer-import", "wrong");
    setHandler("korganizer-import.desktop");
    DesktopCalendarApplication application;
    std::optional<bool> isShown;
    auto show = [&]() -> QCoro::Task<> { isShown = !co_await application.show(kDay); };
    const auto task = show();
    ASSERT_TRUE(hasStarted("\n"));
    test::Bus bus(QStringLiteral("korganizer"));
    Organizer organizer;
    ASSERT_TRUE(bus.connection().registerService(QStringLiteral("org.kde.korganizer")));
    ASSERT_TRUE(bus.connection().registerObject(
        QStringLiteral("/Calendar"), &organizer, QDBusConnection::ExportScriptableSlots));
    EXPECT_TRUE(QTest::qWaitFor([&] { return isShown.has_value(); }));
    EXPECT_EQ(isShown, true);
    EXPECT_EQ(organizer.shown, kDay);
}

TEST_F(DesktopCalendarApplicationTest, TellsThatNoProgramIsThereAndLooksAgain)
{
    DesktopCalendarApplication application;
    for (const char *const handler : { "", "gone.desktop", "../evil.desktop" }) {
        setHandler(handler);
        EXPECT_TRUE(QCoro::waitFor(application.activate())) << handler;
    }
    addEntry("org.gnome.Calendar", "program");
    setHandler("org.gnome.Calendar.desktop");
    EXPECT_EQ(QCoro::waitFor(application.activate()), std::nullopt);
    EXPECT_TRUE(hasStarted("\n"));
}

TEST_F(DesktopCalendarApplicationTest, ReadsDesktopEntries)
{
    using testing::ElementsAre;
    EXPECT_THAT(execArguments(QStringLiteral(R"(a "b \"c\$" %c %% "" %i "%f" x%uy)"), QStringLiteral("N n")),
        ElementsAre(QStringLiteral("a"), QStringLiteral("b \"c$"), QStringLiteral("N n"), QStringLiteral("%"),
            QString(), QStringLiteral("%f"), QStringLiteral("xy")));
    EXPECT_THAT(execArguments(QStringLiteral("a \"b"), {}), ElementsAre());
    addEntry("fine", "program \"a\\\\\\\\b\" %U");
    const auto entry = DesktopEntry::find(QStringLiteral("fine.desktop"));
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, QStringLiteral("A name"));
    EXPECT_THAT(entry->command, ElementsAre(QStringLiteral("program"), QStringLiteral("a\\b")));
    addEntry(QStringLiteral("terminal"), "program", "Terminal=true");
    addEntry("missing", "no-such-program");
    for (const char *const name : { "terminal", "missing", "none" })
        EXPECT_FALSE(DesktopEntry::find(QLatin1String(name) + QStringLiteral(".desktop"))) << name;
}

} // namespace

} // namespace mintaro

#include "DesktopCalendarApplicationTest.moc"
