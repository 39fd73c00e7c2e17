#include "Views/Settings/SettingsScene.h"

#include "support/Controls.h"
#include "support/HttpServer.h"
#include "support/KeptWarnings.h"
#include "support/World.h"

#include <gmock/gmock.h>

#include <QDir>

namespace mintaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString kStandUp = u"Stand-up"_qs;

/// The settings as the user has them, in windows of their own, beside the label and the month that they change.
class SettingsTest : public testing::Test
{
protected:
    SettingsTest()
    {
        addCalendar("work", "Office", "#ff0000");
        addCalendar("Zoo", "Home", "#00ff00");
        addCalendar("attic", "Home", "#0000ff");
        world.addEvent("work", "Stand-up", during("20260307T123000Z", "20260307T130000Z"));
        world.addEvent("attic", "Piano lesson", during("20260307T180000Z", "20260307T190000Z"));
        addCalendar("tasks", "Home", "#888888").isReminderList = true;
        world.addReminder("tasks", "Milk", "DUE:20260308T080000Z");
        world.loaded();
    }

    StoreCollection &addCalendar(const char *identifier, const char *source, const char *color)
    {
        world.addCalendar(identifier, color);
        world.backend->held.back().sourceTitle = QLatin1String(source);
        // Two accounts may bear one name.
        world.backend->held.back().sourceIdentifier = QLatin1String(identifier);
        return world.backend->held.back();
    }

    QQuickWindow &open(const char *tab = "General")
    {
        scene.open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(scene.window()));
        press(tab);
        return *scene.window();
    }

    /// Gives it the keyboard, which scrolls to it.
    QQuickItem *focus(const char *name)
    {
        QQuickItem *item = nullptr;
        EXPECT_TRUE(QTest::qWaitFor([&] { return (item = control(*scene.window(), QString::fromUtf8(name))); }))
            << name;
        if (item)
            item->forceActiveFocus(Qt::TabFocusReason);
        return item;
    }

    void press(const char *name)
    {
        if (QQuickItem *item = focus(name))
            QTest::mouseClick(scene.window(), Qt::LeftButton, {}, middle(item));
    }

    void key(Qt::Key key, int times = 1, Qt::KeyboardModifiers modifiers = {})
    {
        while (times-- > 0)
            QTest::keyClick(scene.window(), key, modifiers);
    }

    /// In place of what the field holds.
    void type(const char *field, const char *text)
    {
        press(field);
        key(Qt::Key_A, 1, Qt::ControlModifier);
        key(Qt::Key_Backspace);
        for (; *text; ++text)
            QTest::keyClick(scene.window(), *text);
    }

    [[nodiscard]] bool has(const char *name) { return control(*scene.window(), QLatin1String(name)); }
    [[nodiscard]] QString stored(const char *key)
    {
        return defaults.stringForKey(QLatin1String(key)).value_or(u"-"_qs);
    }
    void tick() { Q_EMIT world.environment.significantTimeChange(); }

    [[nodiscard]] QStringList agenda()
    {
        QStringList titles;
        for (const DayEvents &day : world.state().agendaEvents()) {
            for (const CalendarEvent &event : day.events)
                titles.append(event.title);
        }
        return titles;
    }

    /// Of the dots on the day, as #rrggbb.
    [[nodiscard]] QStringList dots(int day)
    {
        QStringList colors;
        for (const DayItem &item : world.state().calendarVM()->dayItems()) {
            if (item.isCurrentMonth && item.number == QString::number(day)) {
                for (const Color &color : item.eventColors)
                    colors.append(color.hex());
            }
        }
        return colors;
    }

    [[nodiscard]] QStringList zones()
    {
        QStringList names;
        for (const auto &entry : decodedWorldClockEntries(defaults.dataForKey(u"WorldClockEntries"_qs)))
            names.append(entry.timezoneID + u'=' + entry.displayName);
        return names;
    }

    SparkleUpdater &updater(const QString &feed = {})
    {
        m_updater.emplace(session, defaults, world.environment, feed, u"1.2"_qs);
        return *m_updater;
    }

    KeptWarnings warnings;
    World world { "2026-03-07 12:00" };
    UserDefaults &defaults = world.defaults;
    const QString autostart = world.folder.filePath(u"autostart"_qs);
    SMAppService loginItem { { autostart, {}, u"/bin/true"_qs } };
    URLSession session { QByteArray() };
    std::optional<SparkleUpdater> m_updater;
    const Bundle bundle { {} };
    Appearance appearance { QDBusConnection(u"none"_qs) };
    MenuBarLabel label { world.state() };
    ViewEngine views { world.state(), label, appearance };
    SettingsScene scene { { world.state(), loginItem, updater(), bundle, u"https://mintaro.example/about"_qs }, views };
};

TEST_F(SettingsTest, ThereIsOneWindowWhichReopensOnTheFirstTab)
{
    open("About");
    TitledWindow *const window = scene.window();
    scene.open();
    EXPECT_EQ(scene.window(), window);
    EXPECT_EQ(window->size(), QSize(450, 350));
    EXPECT_TRUE(has("mintaro.example"));
    key(Qt::Key_W, 1, Qt::ControlModifier);
    EXPECT_FALSE(scene.window());
    open();
    EXPECT_TRUE(has("Launch at login"));
    scene.window()->close();
    EXPECT_FALSE(scene.window());
}

TEST_F(SettingsTest, EveryControlIsNamedAndReachedByTab)
{
    for (const char *tab : { "General", "Appearance", "Calendars", "Shortcuts", "World Clock", "About" }) {
        open(tab);
        QSet<QQuickItem *> reached;
        for (int i = 0; i < 30; ++i) {
            key(Qt::Key_Tab);
            reached.insert(scene.window()->activeFocusItem());
        }
        for (QQuickItem *item : controls(*scene.window())) {
            if (!item->activeFocusOnTab())
                continue;
            EXPECT_FALSE(accessibleName(item).isEmpty()) << item->metaObject()->className();
            EXPECT_TRUE(!item->isEnabled() || reached.contains(item)) << accessibleName(item).toStdString();
        }
    }
    key(Qt::Key_Tab, 1, Qt::ControlModifier);
    EXPECT_TRUE(has("Launch at login")) << "Ctrl+Tab goes round";
}

TEST_F(SettingsTest, TheLabelFollowsAtTheMomentOfEachPreference)
{
    open();
    ASSERT_EQ(label.text(), u"7 Mar · Stand-up in 30 min"_qs);
    type("Date format", "EEEE");
    EXPECT_EQ(label.text(), u"Saturday · Stand-up in 30 min"_qs);
    press("Show date in panel");
    EXPECT_EQ(label.text(), u"Stand-up in 30 min"_qs);

    defaults.setInteger(4, u"MenuBarMaxTitleLength"_qs);
    tick();
    EXPECT_EQ(label.text(), u"Sta… in 30 min"_qs);
    focus("Max title length: 4");
    key(Qt::Key_Up);
    EXPECT_EQ(stored("MenuBarMaxTitleLength"), u"10"_qs) << "a step ends inside the range";
    EXPECT_EQ(label.text(), u"Sta… in 30 min"_qs);
    press("Countdown format");
    key(Qt::Key_Down, 2);
    key(Qt::Key_Return);
    EXPECT_EQ(stored("CountdownFormat"), u"absolute"_qs);
    EXPECT_EQ(label.text(), u"Sta… in 30 min"_qs);
    tick();
    EXPECT_EQ(label.text(), u"Stand-up 12:30"_qs);

    press("Show next event in panel");
    EXPECT_EQ(label.text(), u""_qs);
    for (const char *name : { "Show meeting icon", "Countdown format", "Max title length: 10" })
        EXPECT_FALSE(has(name)) << name;
    EXPECT_TRUE(has("Date format"));
}

TEST_F(SettingsTest, SteppersStayInTheirRanges)
{
    open();
    focus("Max title length: 20");
    key(Qt::Key_Up, 40);
    EXPECT_EQ(stored("MenuBarMaxTitleLength"), u"50"_qs);
    focus("Max title length: 50");
    key(Qt::Key_Down, 50);
    EXPECT_EQ(stored("MenuBarMaxTitleLength"), u"10"_qs);
    focus("5 min before");
    key(Qt::Key_Down, 9);
    EXPECT_EQ(stored("MeetingNotificationMinutes"), u"1"_qs);
    focus("1 min before");
    key(Qt::Key_Up, 40);
    EXPECT_EQ(stored("MeetingNotificationMinutes"), u"30"_qs);
    press("Meeting reminders");
    EXPECT_EQ(stored("MeetingNotificationsEnabled"), u"false"_qs);
    EXPECT_FALSE(has("30 min before"));
    press("Hourly chime");
    EXPECT_EQ(stored("HourlyChimeEnabled"), u"true"_qs);
}

TEST_F(SettingsTest, LanguageHoldsFromTheNextLaunch)
{
    defaults.setString(u"it"_qs, u"AppLanguage"_qs);
    open();
    const auto choose = [this](Qt::Key where, int times) {
        press("Language");
        key(where, times);
        key(Qt::Key_Return);
    };
    choose(Qt::Key_Up, 1);
    EXPECT_EQ(defaults.stringArrayForKey(u"AppleLanguages"_qs), QStringList { u"en"_qs });
    EXPECT_EQ(stored("AppLanguage"), u"en"_qs);
    choose(Qt::Key_Up, 1);
    EXPECT_EQ(stored("AppLanguage"), u"system"_qs);
    EXPECT_FALSE(defaults.hasObjectForKey(u"AppleLanguages"_qs));
}

TEST_F(SettingsTest, RestartIsToldOfAfterAChangeUntilTheWindowGoes)
{
    GeneralSettingsViewController general(world.state(), loginItem, *m_updater);
    const QSignalSpy notices(&general, &GeneralSettingsViewController::showLanguageRestartChanged);
    general.setLanguage(0);
    EXPECT_FALSE(general.showLanguageRestart()) << "it was that already";
    general.setLanguage(2);
    general.setLanguage(0);
    EXPECT_TRUE(general.showLanguageRestart());
    EXPECT_EQ(notices.size(), 1);
    EXPECT_FALSE(GeneralSettingsViewController(world.state(), loginItem, *m_updater).showLanguageRestart());
    defaults.setString(u"xx"_qs, u"AppLanguage"_qs);
    EXPECT_EQ(general.language(), -1);
}

TEST_F(SettingsTest, LaunchAtLoginWritesAnEntryOrGoesBack)
{
    open();
    QQuickItem *const toggle = control(*scene.window(), u"Launch at login"_qs);
    press("Launch at login");
    EXPECT_TRUE(toggle->property("checked").toBool());
    EXPECT_TRUE(QFile::exists(autostart + u"/dev.velmora.mintaro.desktop"_qs));
    press("Launch at login");
    EXPECT_THAT(QDir(autostart).entryList(QDir::Files), IsEmpty());

    ASSERT_TRUE(QDir(autostart).removeRecursively());
    QFile(autostart).open(QIODevice::WriteOnly); // no folder can be there now
    press("Launch at login");
    EXPECT_FALSE(toggle->property("checked").toBool());
    EXPECT_EQ(loginItem.status(), SMAppService::Status::NotRegistered);
    ASSERT_TRUE(QFile::remove(autostart));
    press("Launch at login");
    EXPECT_TRUE(toggle->property("checked").toBool()) << "it follows again";
}

TEST_F(SettingsTest, CalendarsCountFromTheNextRefreshAndListsAtOnce)
{
    open("Calendars");
    EXPECT_FALSE(has("attic")) << "groups are closed at first";
    ASSERT_THAT(agenda(), ElementsAre(kStandUp, u"Piano lesson"_qs, u"Milk"_qs));
    press("Office");
    press("work");
    EXPECT_THAT(defaults.stringArrayForKey(u"SelectedCalendars"_qs), ElementsAre(u"Zoo"_qs, u"attic"_qs));
    EXPECT_THAT(agenda(), ElementsAre(kStandUp, u"Piano lesson"_qs, u"Milk"_qs));
    EXPECT_THAT(dots(7), ElementsAre(u"#ff0000"_qs, u"#0000ff"_qs));
    QCoro::waitFor(world.state().refreshAll());
    EXPECT_THAT(agenda(), ElementsAre(u"Piano lesson"_qs, u"Milk"_qs));
    EXPECT_THAT(dots(7), ElementsAre(u"#0000ff"_qs));
    EXPECT_EQ(label.text(), u"7 Mar · Piano lesson in 6 h"_qs);

    const QSignalSpy reminders(&world.state().remindersVM(), &RemindersViewModel::remindersChanged);
    defaults.setStringArray({ u"gone"_qs }, u"SelectedReminderLists"_qs);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !agenda().contains(u"Milk"_qs); })) << "nothing but a list that is gone";
    press("tasks");
    EXPECT_THAT(defaults.stringArrayForKey(u"SelectedReminderLists"_qs), ElementsAre(u"gone"_qs, u"tasks"_qs));
    EXPECT_TRUE(QTest::qWaitFor([&] { return agenda().contains(u"Milk"_qs); }));
}

TEST_F(SettingsTest, CalendarsFollowTheStoreUnderTheirSources)
{
    CalendarsSettingsViewController controller(world.state());
    CalendarChecklist &list = *controller.calendars();
    const auto rows = [&list] {
        QStringList titles;
        for (int row = 0; row < list.rowCount(); ++row)
            titles.append(list.index(row).data(CalendarChecklist::TitleRole).toString());
        return titles;
    };
    controller.appear();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !list.isEmpty(); }));
    ASSERT_THAT(rows(), ElementsAre(u"Home"_qs, u"Office"_qs));
    list.setExpanded(1, true);
    const QSignalSpy changes(&list, &QAbstractItemModel::dataChanged);
    defaults.setStringArray({ u"work"_qs }, u"SelectedCalendars"_qs);
    EXPECT_EQ(changes.size(), 1);
    list.setOn(2, false);
    EXPECT_TRUE(defaults.hasObjectForKey(u"SelectedCalendars"_qs));
    EXPECT_TRUE(list.index(2).data(CalendarChecklist::IsOnRole).toBool()) << "the last one off means all";
    list.setExpanded(1, false);
    list.setExpanded(0, true);
    EXPECT_THAT(rows(), ElementsAre(u"Home"_qs, u"Zoo"_qs, u"attic"_qs, u"Office"_qs)) << "capitals first";
    list.setExpanded(3, true);
    list.setExpanded(0, false);
    EXPECT_THAT(rows(), ElementsAre(u"Home"_qs, u"Office"_qs, u"work"_qs));

    world.state().watchStoreChanges();
    addCalendar("new", "Cellar", "#ffffff");
    world.tellOfChange();
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows().contains(u"Cellar"_qs); }));
    EXPECT_THAT(rows(), ElementsAre(u"Cellar"_qs, u"Home"_qs, u"Office"_qs, u"work"_qs)) << "what is open stays";
    world.backend->held.clear();
    world.tellOfChange();
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.isEmpty(); }));
    EXPECT_THAT(rows(), IsEmpty());
}

TEST(CalendarsSettingsTest, CalendarsComeWithAccess)
{
    World world("2026-03-07 12:00");
    world.addCalendar("work");
    world.backend->onRequestAccess = [] { throw EKError("line 1 makes no sense"); };
    QCoro::waitFor(world.state().requestAccessAndLoad());
    CalendarsSettingsViewController controller(world.state());
    EXPECT_EQ(controller.accessFailure(), u"line 1 makes no sense"_qs);
    world.backend->onRequestAccess = [] {};
    const QSignalSpy failures(&controller, &CalendarsSettingsViewController::accessFailureChanged);
    controller.appear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !controller.calendars()->isEmpty() && !failures.isEmpty(); }));
    EXPECT_EQ(controller.accessFailure(), u""_qs);
}

TEST_F(SettingsTest, AccentAndFontSize)
{
    open("Appearance");
    EXPECT_FALSE(has("Accent color (hex)"));
    press("Use system accent color");
    type("Accent color (hex)", "#ab12");
    EXPECT_EQ(stored("AccentColorHex"), u"#ab12"_qs) << "any text";
    press("Use system accent color");
    EXPECT_EQ(stored("AccentColorHex"), u"#ab12"_qs);
    focus("Event font size: 13pt");
    key(Qt::Key_Right, 9);
    EXPECT_EQ(stored("EventFontSize"), u"18"_qs);
    EXPECT_TRUE(has("Event font size: 18pt"));
}

TEST_F(SettingsTest, ZonesAreAddedFromThePickerAndRemoved)
{
    open("World Clock");
    const auto pick = [this](const char *text, Qt::Key end) {
        press("Add Timezone…");
        ASSERT_TRUE(QTest::qWaitForWindowActive(scene.picker()));
        EXPECT_EQ(scene.picker()->transientParent(), scene.window());
        for (; *text; ++text)
            QTest::keyClick(scene.picker(), *text);
        QTest::keyClick(scene.picker(), end);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !scene.picker(); }));
    };
    pick("buenos", Qt::Key_Return);
    pick("utc", Qt::Key_Return);
    pick("new_y", Qt::Key_Return);
    pick("UTC", Qt::Key_Return);
    pick("rome", Qt::Key_Escape);
    EXPECT_THAT(zones(),
        ElementsAre(u"America/Argentina/Buenos_Aires=Buenos Aires"_qs, u"UTC=UTC"_qs, u"America/New_York=New York"_qs,
            u"UTC=UTC"_qs));
    press("Remove UTC");
    EXPECT_THAT(
        zones(), ElementsAre(u"America/Argentina/Buenos_Aires=Buenos Aires"_qs, u"America/New_York=New York"_qs));

    press("Add Timezone…");
    ASSERT_TRUE(scene.picker());
    for (const char c : "new y")
        QTest::keyClick(scene.picker(), c ? c : ' ');
    QTest::keyClick(scene.picker(), Qt::Key_Return);
    EXPECT_TRUE(scene.picker()) << "there is nothing to take";
    EXPECT_TRUE(click(*scene.picker(), u"Cancel"_qs));
    EXPECT_FALSE(scene.picker());
    press("Add Timezone…");
    scene.window()->close();
    EXPECT_FALSE(scene.picker()) << "it goes with its window";
    QCoreApplication::processEvents(); // in which both end
    open("World Clock");
}

TEST(WorldClockTest, KeepsNamesAndFollowsTheSeason)
{
    World world("2026-03-07 12:00");
    WorldClockSettingsViewController controller(world.state());
    const auto rows = [&controller] {
        QStringList texts;
        for (const WorldClockRow &row : controller.rows())
            texts.append(row.displayName + u' ' + row.abbreviation);
        return texts;
    };
    world.defaults.setData(R"([{"timezoneID":"Europe/Rome","displayName":"Home"},
        {"timezoneID":"Mars/Base","displayName":"Base"}])",
        u"WorldClockEntries"_qs);
    EXPECT_THAT(rows(), ElementsAre(u"Home CET"_qs, u"Base "_qs));
    world.clock.moment = at("2026-07-01 12:00");
    EXPECT_THAT(rows(), ElementsAre(u"Home CEST"_qs, u"Base "_qs));
    for (const char *broken :
        { "", "{}", "[1]", R"([{"timezoneID":"UTC"}])", R"([{"timezoneID":1,"displayName":""}])" }) {
        world.defaults.setData(broken, u"WorldClockEntries"_qs);
        EXPECT_THAT(rows(), IsEmpty()) << broken;
    }
    controller.add(u"Europe/Rome"_qs);
    EXPECT_EQ(
        world.defaults.dataForKey(u"WorldClockEntries"_qs), R"([{"displayName":"Rome","timezoneID":"Europe/Rome"}])");
}

TEST_F(SettingsTest, UpdatesAreLookedForInAFeed)
{
    GeneralSettingsViewController without(world.state(), loginItem, *m_updater);
    EXPECT_FALSE(without.canCheckForUpdates());
    EXPECT_EQ(without.updateStatus(), u"Update Mintaro the way you installed it."_qs);

    HttpServer server;
    GeneralSettingsViewController general(world.state(), loginItem, updater(server.base() + u"/feed"_qs));
    const QSignalSpy changes(&general, &GeneralSettingsViewController::updatesChanged);
    const auto check = [&](const QByteArray &feed) {
        server.answer(u"/feed"_qs, feed);
        general.checkForUpdates();
        EXPECT_EQ(general.updateStatus(), u"Checking…"_qs);
        EXPECT_FALSE(general.canCheckForUpdates());
        EXPECT_TRUE(QTest::qWaitFor([&] { return general.canCheckForUpdates(); }));
        return general.updateStatus();
    };
    const QByteArray head = "<rss xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel><item>"
                            "<link>https://mintaro.example/get</link><sparkle:version>";
    const QByteArray tail = "</sparkle:version></item></channel></rss>";
    EXPECT_EQ(check(head + "1.2" + tail), u"Mintaro is up to date."_qs);
    EXPECT_FALSE(general.hasUpdate());
    EXPECT_EQ(check(head + "1.10" + tail), u"Mintaro 1.10 is available."_qs);
    general.openUpdate();
    EXPECT_THAT(world.workspace.opened, ElementsAre(u"https://mintaro.example/get"_qs));
    EXPECT_EQ(check("<html></html>"), u"The update server’s answer is not valid."_qs);
}

TEST_F(SettingsTest, AboutShowsADashForWhatTheBuildDoesNotKnow)
{
    const AboutSettingsViewController without(world.state(), bundle, {});
    EXPECT_EQ(without.appVersion() + without.buildNumber() + without.websiteHost(), u"——"_qs);
    const Bundle full { { { u"CFBundleShortVersionString"_qs, u"1.2"_qs }, { u"CFBundleVersion"_qs, u"34"_qs } } };
    const AboutSettingsViewController about(world.state(), full, u"https://mintaro.example/about"_qs);
    EXPECT_EQ(about.appVersion() + u' ' + about.buildNumber(), u"1.2 34"_qs);
    EXPECT_EQ(about.websiteHost(), u"mintaro.example"_qs);
}

} // namespace
} // namespace mintaro
