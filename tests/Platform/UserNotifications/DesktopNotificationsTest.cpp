#include "Platform/UserNotifications/DesktopNotifications.h"

#include "Platform/AppKit/Bus.h"
#include "support/FakePresenter.h"
#include "support/Printers.h"

#include <gmock/gmock.h>

#include <QDBusContext>
#include <QDBusError>
#include <QDBusVirtualObject>
#include <QSignalSpy>
#include <QTest>

namespace mintaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A notification daemon, as it answers over the bus.
class Daemon : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Shown
    {
        uint replaces;
        QString summary;
        QString body;
        QStringList actions;
        QVariantMap hints;
    };
    QStringList capabilities { u"body"_qs, u"actions"_qs, u"body-markup"_qs };
    bool fails = false;
    int asked = 0;
    std::vector<Shown> shown;
    QList<uint> closed;

    explicit Daemon(const QString &program = u"daemon"_qs)
        : m_bus(program)
    {
        m_bus.connection().registerObject(
            u"/org/freedesktop/Notifications"_qs, this, QDBusConnection::ExportScriptableContents);
        EXPECT_TRUE(m_bus.connection().registerService(u"org.freedesktop.Notifications"_qs));
    }
    ~Daemon() override { m_bus.connection().unregisterService(u"org.freedesktop.Notifications"_qs); }

public Q_SLOTS:
    Q_SCRIPTABLE QStringList GetCapabilities()
    {
        ++asked;
        return capabilities;
    }
    Q_SCRIPTABLE uint Notify(const QString &, uint replaces, const QString &, const QString &summary,
        const QString &body, const QStringList &actions, const QVariantMap &hints, int)
    {
        if (fails)
            sendErrorReply(QDBusError::Failed);
        shown.push_back({ replaces, summary, body, actions, hints });
        return replaces ? replaces : ++m_last;
    }
    Q_SCRIPTABLE void CloseNotification(uint number) { closed.append(number); }

Q_SIGNALS:
    Q_SCRIPTABLE void ActionInvoked(uint number, const QString &action);
    Q_SCRIPTABLE void ActivationToken(uint number, const QString &token);
    Q_SCRIPTABLE void NotificationClosed(uint number, uint reason);

private:
    test::Bus m_bus;
    uint m_last = 10;
};

class KeptSounds final : public SoundPlayer
{
public:
    QStringList names;
    void play(const QString &name) override { names.append(name); }
};

class DesktopNotificationsTest : public testing::Test
{
protected:
    DesktopNotificationsTest() { notifications.setFallback(&fallback); }

    static PresentedNotification notification(const QString &identifier)
    {
        return { .identifier = identifier,
            .title = u"<b>Tom & Ann</b>"_qs,
            .body = u"1 < 2 & %1"_qs,
            .hasSound = true,
            .actions = { { u"JOIN"_qs, u"Join"_qs } } };
    }

    void present(const QString &identifier) { notifications.present(notification(identifier)); }

    template <typename Condition>
    static bool comes(Condition condition)
    {
        return QTest::qWaitFor(condition);
    }

    [[nodiscard]] bool fallsBack()
    {
        return comes([this] { return !fallback.onScreen.empty(); });
    }

    KeptSounds sounds;
    FakePresenter fallback;
    test::Bus bus { u"program"_qs };
    DesktopNotifications notifications { bus.connection(), sounds };
};

TEST_F(DesktopNotificationsTest, SaysAllToTheDaemon)
{
    Daemon daemon;
    daemon.capabilities.append(u"sound"_qs);
    present(u"a"_qs);
    present(u"b"_qs);
    ASSERT_TRUE(comes([&] { return daemon.shown.size() == 2; }));
    const Daemon::Shown &first = daemon.shown.front();
    EXPECT_EQ(first.summary, u"<b>Tom & Ann</b>"_qs) << "a summary is never markup";
    EXPECT_EQ(first.body, u"1 &lt; 2 &amp; %1"_qs);
    EXPECT_THAT(first.actions, ElementsAre(u"default"_qs, u"Open"_qs, u"JOIN"_qs, u"Join"_qs));
    EXPECT_EQ(first.hints.value(u"urgency"_qs), QVariant::fromValue(uchar { 1 }));
    EXPECT_EQ(first.hints.value(u"desktop-entry"_qs), u"dev.velmora.mintaro"_qs);
    EXPECT_TRUE(first.hints.contains(u"sound-name"_qs) && first.hints.contains(u"category"_qs));
    QSignalSpy activated(&notifications, &NotificationPresenter::activated);
    Q_EMIT daemon.ActionInvoked(12, u"JOIN"_qs);
    ASSERT_TRUE(activated.wait()) << "by now the daemon's answers are here";
    present(u"a"_qs);
    ASSERT_TRUE(comes([&] { return daemon.shown.size() == 3; }));
    EXPECT_EQ(daemon.shown.back().replaces, 11U);
    EXPECT_EQ(daemon.asked, 1);
    EXPECT_THAT(sounds.names, IsEmpty()) << "the daemon plays it";
    EXPECT_THAT(fallback.titles, IsEmpty());
}

TEST_F(DesktopNotificationsTest, TellsOfItsOwnAlone)
{
    Daemon daemon;
    daemon.capabilities.removeOne(u"body-markup"_qs);
    present(u"a"_qs);
    ASSERT_TRUE(comes([&] { return sounds.names.size() == 1; })) << "the daemon has no sound";
    EXPECT_EQ(daemon.shown.front().body, u"1 < 2 & %1"_qs);

    QSignalSpy activated(&notifications, &NotificationPresenter::activated);
    QSignalSpy closed(&notifications, &NotificationPresenter::closed);
    Q_EMIT daemon.ActionInvoked(99, u"JOIN"_qs);
    Q_EMIT daemon.NotificationClosed(99, 1);
    Q_EMIT daemon.ActivationToken(11, u"token"_qs);
    Q_EMIT daemon.ActionInvoked(11, u"JOIN"_qs);
    Q_EMIT daemon.NotificationClosed(11, 2);
    ASSERT_TRUE(closed.wait());
    ASSERT_EQ(activated.size(), 1);
    EXPECT_THAT(activated.front(), ElementsAre(u"a"_qs, u"JOIN"_qs, u"token"_qs));
    EXPECT_EQ(closed.size(), 1);
    present(u"a"_qs);
    ASSERT_TRUE(comes([&] { return daemon.shown.size() == 2; }));
    EXPECT_EQ(daemon.shown.back().replaces, 0U) << "the number may be another's by now";
}

TEST_F(DesktopNotificationsTest, WithdrawsAlsoWhatTheDaemonIsStillBeingTold)
{
    Daemon daemon;
    present(u"never"_qs);
    notifications.withdraw(u"never"_qs);
    present(u"shown"_qs);
    ASSERT_TRUE(comes([&] { return sounds.names.size() == 1; }));
    present(u"told"_qs);
    notifications.withdraw(u"told"_qs);
    notifications.withdraw(u"shown"_qs);
    ASSERT_TRUE(comes([&] { return daemon.closed.size() == 2; }));
    EXPECT_THAT(daemon.closed, testing::UnorderedElementsAre(11U, 12U));
    EXPECT_EQ(daemon.shown.size(), 2U);
}

TEST_F(DesktopNotificationsTest, ADaemonThatComesAnewIsAskedAnew)
{
    QSignalSpy closed(&notifications, &NotificationPresenter::closed);
    auto before = std::make_unique<Daemon>();
    present(u"a"_qs);
    ASSERT_TRUE(comes([&] { return sounds.names.size() == 1; }));
    before.reset();
    ASSERT_TRUE(closed.wait());
    present(u"b"_qs);
    EXPECT_TRUE(fallsBack());

    Daemon after(u"other daemon"_qs);
    after.capabilities.removeOne(u"body-markup"_qs);
    present(u"a"_qs);
    ASSERT_TRUE(comes([&] { return after.shown.size() == 1; }));
    EXPECT_EQ(after.shown.front().replaces, 0U);
    EXPECT_EQ(after.shown.front().body, u"1 < 2 & %1"_qs);
}

struct FallbackCase
{
    const char *name;
    std::function<void(std::optional<Daemon> &)> spoil;
    std::size_t triedByDaemon = 0;
};

class FallbackTest : public DesktopNotificationsTest, public testing::WithParamInterface<FallbackCase>
{
};

TEST_P(FallbackTest, IsShownByUsAndNotByBoth)
{
    std::optional<Daemon> daemon(std::in_place);
    GetParam().spoil(daemon);
    present(u"a"_qs);
    ASSERT_TRUE(fallsBack());
    EXPECT_EQ(fallback.onScreen.front().body, u"1 < 2 & %1"_qs);
    EXPECT_EQ(sounds.names.size(), 1);
    EXPECT_EQ(daemon ? daemon->shown.size() : 0, GetParam().triedByDaemon);
    QSignalSpy activated(&notifications, &NotificationPresenter::activated);
    Q_EMIT fallback.activated(u"a"_qs, u"JOIN"_qs, {});
    EXPECT_EQ(activated.size(), 1);
    notifications.withdraw(u"a"_qs);
    EXPECT_THAT(fallback.onScreen, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, FallbackTest,
    testing::Values(FallbackCase { "Absent", [](auto &daemon) { daemon.reset(); } },
        FallbackCase { "CannotOfferActions", [](auto &daemon) { daemon->capabilities.removeOne(u"actions"_qs); } },
        FallbackCase { "Fails", [](auto &daemon) { daemon->fails = true; }, 1 }),
    kRowName);

TEST(NoSessionBusTest, IsSaidAndAllFallsBack)
{
    KeptSounds sounds;
    FakePresenter fallback;
    DesktopNotifications notifications(QDBusConnection(u"nowhere"_qs), sounds);
    notifications.setFallback(&fallback);
    EXPECT_THROW(notifications.requestAuthorization(), std::runtime_error);
    notifications.present({ .identifier = u"a"_qs, .title = u"a"_qs, .body = {}, .hasSound = false, .actions = {} });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fallback.onScreen.empty(); }));
}

TEST(HangingDaemonTest, IsNotWaitedForLong)
{
    test::Bus silent(u"silent"_qs);
    ASSERT_TRUE(silent.connection().registerService(u"org.freedesktop.Notifications"_qs));
    class Mute : public QDBusVirtualObject
    {
    public:
        [[nodiscard]] QString introspect(const QString &) const override { return {}; }
        bool handleMessage(const QDBusMessage &, const QDBusConnection &) override { return true; }
    } mute;
    silent.connection().registerVirtualObject(u"/org/freedesktop/Notifications"_qs, &mute);
    KeptSounds sounds;
    FakePresenter fallback;
    test::Bus bus(u"program"_qs);
    DesktopNotifications notifications(bus.connection(), sounds, std::chrono::milliseconds { 50 });
    notifications.setFallback(&fallback);
    notifications.present({ .identifier = u"a"_qs, .title = u"a"_qs, .body = {}, .hasSound = false, .actions = {} });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fallback.onScreen.empty(); }));
}

} // namespace
} // namespace mintaro

#include "DesktopNotificationsTest.moc"
