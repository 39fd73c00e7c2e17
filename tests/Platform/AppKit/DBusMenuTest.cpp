#include "Platform/AppKit/DBusMenu.h"

#include "Platform/AppKit/Bus.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDBusArgument>
#include <QSignalSpy>

namespace mintaro {

namespace {

using testing::ElementsAre;

const QString kInterface = QStringLiteral("com.canonical.dbusmenu");

class DBusMenuTest : public testing::Test
{
protected:
    MenuItem entry(const char *title)
    {
        return { .title = QLatin1String(title), .action = [this, title] { chosen.emplace_back(title); } };
    }
    [[nodiscard]] static MenuItem separator() { return { .title = {}, .isSeparator = true, .action = {} }; }

    [[nodiscard]] QList<int> ids()
    {
        DBusMenuLayout layout;
        menu.GetLayout(0, -1, {}, layout);
        QList<int> result;
        for (const DBusMenuLayout &child : layout.children) {
            result.append(child.id);
        }
        return result;
    }

    void click(int id)
    {
        menu.Event(id, QStringLiteral("clicked"), QDBusVariant(0), 0);
        QCoreApplication::processEvents();
    }

    DBusMenu menu;
    std::vector<std::string> chosen;
};

TEST_F(DBusMenuTest, AHostReadsTheLayoutOverTheBus)
{
    test::Bus server(QStringLiteral("menu"));
    test::Bus host(QStringLiteral("host"));
    server.connection().registerObject(QStringLiteral("/MenuBar"), &menu, QDBusConnection::ExportScriptableContents);
    menu.setItems(
        { entry("Show_Calendar"), separator(), { .title = QStringLiteral("Off"), .enabled = false, .action = {} } });

    const QDBusMessage reply = host.call(server.connection().baseService(), QStringLiteral("/MenuBar"), kInterface,
        QStringLiteral("GetLayout"), { 0, -1, QStringList() });

    ASSERT_EQ(reply.signature(), QStringLiteral("u(ia{sv}av)")) << reply.errorMessage().toStdString();
    const auto layout = qdbus_cast<DBusMenuLayout>(reply.arguments().at(1));
    EXPECT_EQ(layout.properties.value(QStringLiteral("children-display")), QStringLiteral("submenu"));
    ASSERT_EQ(layout.children.size(), 3);
    EXPECT_EQ(layout.children[0].properties.value(QStringLiteral("label")), QStringLiteral("Show__Calendar"));
    EXPECT_EQ(layout.children[1].properties.value(QStringLiteral("type")), QStringLiteral("separator"));
    EXPECT_EQ(layout.children[2].properties.value(QStringLiteral("enabled")), false);
}

TEST_F(DBusMenuTest, AGroupOfEventsRunsActionsAndNamesUnknownIds)
{
    test::Bus server(QStringLiteral("menu"));
    test::Bus host(QStringLiteral("host"));
    server.connection().registerObject(QStringLiteral("/MenuBar"), &menu, QDBusConnection::ExportScriptableContents);
    menu.setItems({ entry("Join") });
    const QString clicked = QStringLiteral("clicked");
    const QList<DBusMenuEvent> events { { ids().at(0), clicked, QDBusVariant(0), 0 },
        { 99, clicked, QDBusVariant(0), 0 } };

    const QDBusMessage reply = host.call(server.connection().baseService(), QStringLiteral("/MenuBar"), kInterface,
        QStringLiteral("EventGroup"), { QVariant::fromValue(events) });

    ASSERT_EQ(reply.signature(), QStringLiteral("ai")) << reply.errorMessage().toStdString();
    EXPECT_EQ(qdbus_cast<QList<int>>(reply.arguments().at(0)), QList<int> { 99 });
    EXPECT_THAT(chosen, ElementsAre("Join"));
}

TEST_F(DBusMenuTest, AClickInAMenuThatIsStillOpenMeansTheEntryThatWasSeen)
{
    menu.setItems({ entry("Join A"), entry("Quit") });
    const QList<int> seen = ids();
    menu.setItems({ entry("Join B"), entry("Join C"), entry("Quit") });
    click(seen.at(0));
    click(ids().at(1));
    EXPECT_THAT(chosen, ElementsAre("Join A", "Join C"));
}

TEST_F(DBusMenuTest, EntriesThatCannotBeChosenDoNothing)
{
    MenuItem disabled = entry("Disabled");
    disabled.enabled = false;
    menu.setItems({ disabled, separator(), { .title = QStringLiteral("No action"), .action = {} } });
    for (const int id : ids()) {
        click(id);
    }
    click(0);
    click(-5);
    EXPECT_THAT(chosen, ElementsAre());
}

TEST_F(DBusMenuTest, OnlyAChangeOfLooksIsAnnounced)
{
    menu.setItems({ entry("Join") });
    const QSignalSpy updates(&menu, &DBusMenu::LayoutUpdated);
    menu.setItems({ { .title = QStringLiteral("Join"), .action = [this] { chosen.emplace_back("newer"); } } });
    EXPECT_EQ(updates.count(), 0);
    click(ids().at(0));
    EXPECT_THAT(chosen, ElementsAre("newer"));
    menu.setItems({ entry("Join"), entry("Quit") });
    EXPECT_EQ(updates.count(), 1);
}

TEST_F(DBusMenuTest, TheRootTellsOfTracking)
{
    const QSignalSpy began(&menu, &DBusMenu::trackingBegan);
    const QSignalSpy ended(&menu, &DBusMenu::trackingEnded);
    menu.Event(0, QStringLiteral("opened"), QDBusVariant(0), 0);
    EXPECT_EQ(began.count(), 1);
    EXPECT_EQ(ended.count(), 0);
    menu.Event(0, QStringLiteral("closed"), QDBusVariant(0), 0);
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(DBusMenuTest, PropertiesAreLimitedToTheNamedOnes)
{
    menu.setItems({ entry("Join") });
    const QList<DBusMenuProperties> group = menu.GetGroupProperties(ids(), { QStringLiteral("enabled") });
    ASSERT_EQ(group.size(), 1);
    EXPECT_EQ(group[0].properties, (QVariantMap { { QStringLiteral("enabled"), true } }));
    EXPECT_EQ(menu.GetProperty(ids().at(0), QStringLiteral("label")).variant(), QStringLiteral("Join"));
}

} // namespace

} // namespace mintaro
