#include "Platform/AppKit/StatusItem.h"

#include "Platform/AppKit/Bus.h"
#include "Platform/AppKit/StatusNotifierItem.h"
#include "Platform/AppKit/StatusNotifierRegistration.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

namespace mintaro {

namespace {

using namespace std::chrono_literals;

const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kItemPath = QStringLiteral("/StatusNotifierItem");
const QString kItem = QStringLiteral("org.kde.StatusNotifierItem");

/// A panel: watcher and host in one, on a connection of its own.
class Panel : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

public:
    explicit Panel(const QString &program, bool withHost = true)
        : bus(program)
        , m_hasHost(withHost)
    {
        bus.connection().registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
            QDBusConnection::ExportScriptableContents | QDBusConnection::ExportAllProperties);
        EXPECT_TRUE(bus.connection().registerService(kWatcher));
    }

    [[nodiscard]] bool hasHost() const { return m_hasHost; }

    QDBusMessage callItem(const QString &interface, const QString &method, const QVariantList &arguments)
    {
        return bus.call(items.last(), kItemPath, interface, method, arguments);
    }

    test::Bus bus;
    QStringList items;

public Q_SLOTS:
    Q_SCRIPTABLE void RegisterStatusNotifierItem(const QString &service)
    {
        items.append(service);
        Q_EMIT registered();
    }

Q_SIGNALS:
    void registered();
    Q_SCRIPTABLE void StatusNotifierHostRegistered();

private:
    bool m_hasHost;
};

/// What a panel hears of an item.
class Listener : public QObject
{
    Q_OBJECT

public:
    QStringList heard;

    explicit Listener(Panel &panel)
    {
        for (const char *name : { "NewIcon", "NewTitle", "NewToolTip", "XAyatanaNewLabel" }) {
            panel.bus.connection().connect(
                QString(), kItemPath, kItem, QLatin1String(name), this, SLOT(hear(QDBusMessage)));
        }
    }

public Q_SLOTS:
    void hear(const QDBusMessage &signal)
    {
        heard.append(signal.member());
        Q_EMIT news();
    }

Q_SIGNALS:
    void news();
};

const StatusItemContent kContent { QStringLiteral("22"), QStringLiteral("22 Nov"), QStringLiteral("Lunch & more"),
    QStringLiteral("<12:30>") };

class StatusItemTest : public testing::Test
{
protected:
    /// Starts the item and waits until the panel has it.
    void start()
    {
        QSignalSpy host(&item, &StatusItem::hostChanged);
        item.setContent(kContent);
        item.start();
        ASSERT_TRUE(host.wait());
        ASSERT_EQ(host.at(0).at(0).value<StatusHost>(), StatusHost::Other); // this process
    }

    Panel panel { QStringLiteral("panel") };
    StatusItem item;
};

TEST_F(StatusItemTest, APanelReadsWhatItShows)
{
    start();
    const QDBusMessage reply
        = panel.callItem(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"), { kItem });
    ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    const auto properties = qdbus_cast<QVariantMap>(reply.arguments().at(0));
    EXPECT_EQ(properties.value(QStringLiteral("Title")), QStringLiteral("Lunch & more"));
    EXPECT_EQ(properties.value(QStringLiteral("XAyatanaLabel")), QStringLiteral("22 Nov"));
    const auto toolTip = qdbus_cast<StatusNotifierToolTip>(properties.value(QStringLiteral("ToolTip")));
    EXPECT_EQ(toolTip.title, QStringLiteral("Lunch & more"));
    EXPECT_EQ(toolTip.text, QStringLiteral("&lt;12:30&gt;"));
    const auto pixmaps = qdbus_cast<QList<StatusNotifierPixmap>>(properties.value(QStringLiteral("IconPixmap")));
    ASSERT_EQ(pixmaps.size(), 5);
    EXPECT_EQ(pixmaps[1].width, 22);
    EXPECT_EQ(pixmaps[1].pixels.size(), 22 * 22 * 4);
}

TEST_F(StatusItemTest, AClickTellsItsPlaceUnlessTheHostKnowsNone)
{
    start();
    std::vector<std::optional<QPoint>> clicks;
    QObject::connect(&item, &StatusItem::activated, [&](std::optional<QPoint> where) { clicks.push_back(where); });
    panel.callItem(kItem, QStringLiteral("Activate"), { 1206, 14 });
    panel.callItem(kItem, QStringLiteral("SecondaryActivate"), { 0, 0 });
    ASSERT_TRUE(QTest::qWaitFor([&] { return clicks.size() == 2; }));
    EXPECT_EQ(clicks.at(0), QPoint(1206, 14));
    EXPECT_EQ(clicks.at(1), std::nullopt);
}

TEST_F(StatusItemTest, OnlyWhatChangedMakesTraffic)
{
    start();
    Listener listener(panel);
    // An answer to this means that the bus has taken the listener's wish, which it was sent before.
    ASSERT_TRUE(panel.bus.connection().interface()->isServiceRegistered(QStringLiteral("org.freedesktop.DBus")));
    QSignalSpy news(&listener, &Listener::news);
    item.setContent(kContent);
    StatusItemContent changed = kContent;
    changed.label = QStringLiteral("23 Nov");
    item.setContent(changed);
    ASSERT_TRUE(!news.isEmpty() || news.wait());
    EXPECT_EQ(listener.heard, QStringList { QStringLiteral("XAyatanaNewLabel") }); // the bus keeps the order
}

TEST_F(StatusItemTest, RegistersAgainWithAnotherPanel)
{
    start();
    panel.bus.connection().unregisterService(kWatcher);
    Panel other(QStringLiteral("other panel"));
    QSignalSpy registered(&other, &Panel::registered);
    ASSERT_TRUE(registered.wait());
    EXPECT_EQ(other.items, panel.items);
}

class StatusNotifierRegistrationTest : public testing::Test
{
protected:
    test::Bus bus { QStringLiteral("item") };
};

TEST_F(StatusNotifierRegistrationTest, NobodyIsToldAndALaterPanelToo)
{
    StatusNotifierRegistration registration(bus.connection(), bus.connection().baseService(), 1ms);
    QSignalSpy host(&registration, &StatusNotifierRegistration::hostChanged);
    registration.start();
    ASSERT_TRUE(host.wait());
    EXPECT_EQ(host.takeFirst().at(0).value<StatusHost>(), StatusHost::None);
    const Panel late(QStringLiteral("late panel"));
    ASSERT_TRUE(host.wait());
    EXPECT_EQ(host.takeFirst().at(0).value<StatusHost>(), StatusHost::Other);
}

TEST_F(StatusNotifierRegistrationTest, AWatcherWithoutAHostIsNoHostUntilOneComes)
{
    Panel watcher(QStringLiteral("watcher"), false);
    StatusNotifierRegistration registration(bus.connection(), bus.connection().baseService(), 1h);
    QSignalSpy registered(&watcher, &Panel::registered);
    QSignalSpy host(&registration, &StatusNotifierRegistration::hostChanged);
    registration.start();
    ASSERT_TRUE(registered.wait());
    EXPECT_EQ(host.count(), 0);
    Q_EMIT watcher.StatusNotifierHostRegistered();
    ASSERT_TRUE(host.wait());
    EXPECT_EQ(host.at(0).at(0).value<StatusHost>(), StatusHost::Other);
}

struct HostRow
{
    const char *process;
    StatusHost host;
    const char *title;
    const char *text;
    bool themedIcon;
};

TEST(StatusHosts, EachGetsWhatItCanShow)
{
    const HostRow rows[] {
        { "panel-3-systray", StatusHost::Xfce, "a & b", "&lt;c&gt;", true },
        { "gnome-shell", StatusHost::Gnome, "a & b", "&lt;c&gt;", true },
        { "kded5", StatusHost::Plasma, "a & b", "<c>", true },
        { "lxqt-panel", StatusHost::Lxqt, "a & b", "<c>", false },
        { "waybar", StatusHost::Waybar, "a &amp; b", "&lt;c&gt;", false },
        { "something", StatusHost::Other, "a & b", "&lt;c&gt;", false },
    };
    StatusNotifierItem item(QDBusObjectPath("/MenuBar"));
    item.setContent({ QStringLiteral("7"), {}, QStringLiteral("a & b"), QStringLiteral("<c>") });
    for (const HostRow &row : rows) {
        SCOPED_TRACE(row.process);
        const StatusHost host = statusHostOfProcess(QString::fromLatin1(row.process));
        EXPECT_EQ(host, row.host);
        item.setHost(host);
        EXPECT_EQ(item.toolTip().title, QLatin1String(row.title));
        EXPECT_EQ(item.toolTip().text, QLatin1String(row.text));
        EXPECT_EQ(!item.iconName().isEmpty(), row.themedIcon);
    }
}

TEST(ThemedDayIcon, EachDayHasFilesWhereHostsLook)
{
    ThemedDayIcon icon;
    icon.setDay(QStringLiteral("7"));
    const QString seventh = icon.name();
    icon.setDay(QStringLiteral("8"));
    EXPECT_NE(icon.name(), seventh);
    for (const char *folder : { "/", "/hicolor/22x22/apps/", "/hicolor/scalable/apps/" }) {
        EXPECT_TRUE(QFileInfo::exists(icon.themePath() + QLatin1String(folder) + seventh + QLatin1String(".svg")));
    }
}

} // namespace

} // namespace mintaro

#include "StatusItemTest.moc"
