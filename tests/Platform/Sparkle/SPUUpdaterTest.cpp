#include "Platform/Sparkle/SPUUpdater.h"

#include "Update/SparkleUpdater.h"
#include "support/HttpServer.h"
#include "support/Printers.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace mintaro {
namespace {

using namespace std::chrono_literals;
using Kind = SPUUpdateCheck::Kind;

const QString kPath = QStringLiteral("/appcast.xml");
const QString kAutomatic = QStringLiteral("SUEnableAutomaticChecks");
const QString kLastCheck = QStringLiteral("SULastCheckTime");

QByteArray item(const QByteArray &version, const QByteArray &more = "<link>https://example.org/new</link>")
{
    return "<item><title>Mintaro</title><sparkle:version>" + version + "</sparkle:version>" + more + "</item>";
}

QByteArray feed(const QByteArray &items)
{
    return "<?xml version='1.0' encoding='utf-8'?>\n<!-- made by hand -->\n<rss version='2.0' "
           "xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel><title>News</title>"
        + items + "</channel></rss>";
}

QByteArray enclosure(const QByteArray &attributes, const QByteArray &url = "https://example.org/mintaro.tar.xz")
{
    return "<enclosure url='" + url + "' " + attributes + "/>";
}

/// Goes with the machine's, but can be moved.
class MovedClock final : public Clock
{
public:
    Date::duration ahead {};
    [[nodiscard]] Date now() const override { return m_clock.now() + ahead; }
    [[nodiscard]] std::optional<std::chrono::milliseconds> offset() const override { return *m_clock.offset() + ahead; }

private:
    OffsetClock m_clock { at("2026-11-23 10:00") };
};

class SPUUpdaterTest : public testing::Test
{
protected:
    std::unique_ptr<SPUUpdater> makeUpdater(const QString &from)
    {
        auto made = std::make_unique<SPUUpdater>(session, defaults, environment, from, u"1.2"_qs,
            [this](const LogMessage &message) { log.append(message.category + u": "_qs + message.text); });
        QObject::connect(
            made.get(), &SPUUpdater::finished, [this](const SPUUpdateCheck &check) { told.push_back(check); });
        return made;
    }

    SPUUpdateCheck checkByUser(const QString &from)
    {
        updater = makeUpdater(from);
        updater->checkForUpdates();
        if (!QTest::qWaitFor([&] { return !told.empty(); }))
            throw std::runtime_error("the check does not end");
        return told.back();
    }

    /// Lets the clock show a moment; how often the feed was asked until shortly after it.
    qsizetype askedUntil(Date moment)
    {
        clock.ahead += moment - 50ms - clock.now();
        // Nobody tells the timer that this clock was set.
        defaults.setBool(false, kAutomatic);
        defaults.removeObjectForKey(kAutomatic);
        WallClockTimer after(clock);
        QSignalSpy passed(&after, &WallClockTimer::timeout);
        after.start(moment + 50ms);
        EXPECT_TRUE(passed.wait());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !updater || updater->canCheckForUpdates(); }));
        return server.requested.size();
    }

    HttpServer server;
    const QTemporaryDir folder;
    UserDefaults defaults { folder.filePath(u"mintaro.conf"_qs) };
    MovedClock clock;
    Environment environment { clock, Locale(), zone("Europe/Rome") };
    URLSession session { "mintaro/1.2", 2s };
    QStringList log;
    std::vector<SPUUpdateCheck> told;
    const QString address = server.base() + kPath;
    std::unique_ptr<SPUUpdater> updater;
};

struct FeedCase
{
    const char *name;
    QByteArray answer;
    Kind kind;
    QString version = {}; ///< that is offered
    QByteArray status = "200 OK";
};

class FeedTest : public SPUUpdaterTest, public testing::WithParamInterface<FeedCase>
{
};

TEST_P(FeedTest, IsJudged)
{
    const FeedCase &row = GetParam();
    server.answer(kPath, row.answer, row.status);
    const SPUUpdateCheck check = checkByUser(address);
    EXPECT_EQ(check.kind, row.kind);
    EXPECT_EQ(check.item ? check.item->versionString : QString(), row.version);
    EXPECT_TRUE(check.isByUser);
}

INSTANTIATE_TEST_SUITE_P(Rows, FeedTest,
    testing::Values(FeedCase { "Newer", feed(item("1.10")), Kind::Available, u"1.10"_qs },
        FeedCase { "Same", feed(item("1.2.0")), Kind::UpToDate },
        FeedCase { "Older", feed(item("1.1")), Kind::UpToDate },
        FeedCase { "BeforeTheHost", feed(item("1.2b3")), Kind::UpToDate },
        FeedCase {
            "OutOfOrder", feed(item("1.3") + item("1.10") + item("1.4b1") + item("1.9")), Kind::Available, u"1.10"_qs },
        FeedCase { "VersionOfTheEnclosure",
            feed("<item>" + enclosure("sparkle:version='1.3' sparkle:os='linux'") + "</item>"), Kind::Available,
            u"1.3"_qs },
        FeedCase { "OtherSystemIsNewer",
            feed(item("1.2", enclosure("")) + item("1.3", enclosure("sparkle:os='windows'"))), Kind::UpToDate },
        FeedCase { "OneSystemOfSeveral",
            feed(item("1.3", enclosure("sparkle:os='macos'") + enclosure("sparkle:os='linux'"))), Kind::Available,
            u"1.3"_qs },
        FeedCase { "ForOtherSystemsOnly", feed(item("1.3", enclosure("sparkle:os='macos'"))), Kind::Malformed },
        FeedCase { "ChannelIsNewer",
            feed(item("1.2") + item("1.3", "<link>https://example.org</link><sparkle:channel>beta</sparkle:channel>")),
            Kind::UpToDate },
        FeedCase { "LinkByPlainHttp", feed(item("1.3", "<link>http://example.org/new</link>")), Kind::Malformed },
        FeedCase { "LinkToAFile", feed(item("1.3", "<link>file:///etc/passwd</link>")), Kind::Malformed },
        FeedCase {
            "LinkLikeLoopback", feed(item("1.3", "<link>http://127.0.0.1.example.org/</link>")), Kind::Malformed },
        FeedCase {
            "LinkToLoopback", feed(item("1.3", "<link>http://127.0.0.1:8000/</link>")), Kind::Available, u"1.3"_qs },
        FeedCase { "NoVersion", feed("<item><link>https://example.org</link></item>"), Kind::Malformed },
        FeedCase { "NoItem", feed({}), Kind::Malformed }, FeedCase { "Nothing", {}, Kind::Malformed },
        FeedCase { "Cut", feed(item("1.3")).chopped(9), Kind::Malformed },
        FeedCase { "Html", "<!DOCTYPE html><html><body><p>Sign in to use this network</body></html>", Kind::Malformed },
        FeedCase { "Xhtml", "<html><body><item>1.3</item></body></html>", Kind::Malformed },
        FeedCase { "Json", R"({"version": "1.3"})", Kind::Malformed },
        FeedCase { "Binary",
            QByteArray("\x7f"
                       "ELF\0\0\xff\xfe",
                8),
            Kind::Malformed },
        FeedCase { "Entities", "<!DOCTYPE rss [<!ENTITY v '1.3'>]>" + feed(item("&v;")).mid(60), Kind::Malformed },
        FeedCase { "Deep", feed(QByteArray("<a>").repeated(100'000)), Kind::Malformed },
        FeedCase { "TooLong", feed(item("1.3")) + QByteArray(1 << 20, ' '), Kind::Unreachable },
        FeedCase { "ServerFails", feed(item("1.3")), Kind::Unreachable, {}, "500 Internal Server Error" },
        FeedCase { "NotFound", feed(item("1.3")), Kind::Unreachable, {}, "404 Not Found" }),
    kRowName);

TEST_F(SPUUpdaterTest, TellsWhatTheItemIs)
{
    server.answer(kPath,
        feed("<item><title> Version\n two </title><sparkle:shortVersionString>2 (spring)</sparkle:shortVersionString>"
            + enclosure("sparkle:version='2.0'") + "<description><b>New</b></description></item>"));
    const SUAppcastItem expected { u"2.0"_qs, u"2 (spring)"_qs, u"Version two"_qs,
        *URL::fromString(u"https://example.org/mintaro.tar.xz"_qs), {} };
    EXPECT_EQ(checkByUser(address).item, expected);
}

TEST_F(SPUUpdaterTest, FollowsARedirectAndNotesAServerThatIsGone)
{
    server.answer(u"/old"_qs, "301 Moved Permanently", "Location: /appcast.xml\r\nContent-Length: 0\r\n", {});
    server.answer(kPath, feed(item("1.3")));
    EXPECT_EQ(checkByUser(server.base() + u"/old"_qs).kind, Kind::Available);
    const QString gone = HttpServer().base() + kPath;
    told.clear();
    EXPECT_EQ(checkByUser(gone).kind, Kind::Unreachable);
}

TEST_F(SPUUpdaterTest, AsksNobodyWithoutASafeAddress)
{
    for (const QString &feed : { QString(), u"http://updates.example.org/feed.xml"_qs, u"file:///tmp/feed"_qs,
             u"https://"_qs, u"no address"_qs }) {
        updater = makeUpdater(feed);
        EXPECT_FALSE(updater->canCheckForUpdates()) << feed.toStdString();
        updater->checkForUpdates();
        updater->startUpdater();
    }
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(log.filter(u"HTTPS is needed"_qs).size(), 4);
}

TEST_F(SPUUpdaterTest, OneCheckAtATime)
{
    server.keepSilent(kPath);
    SparkleUpdater sparkle(session, defaults, environment, address, u"1.2"_qs);
    const QSignalSpy changes(&sparkle, &SparkleUpdater::canCheckForUpdatesChanged);
    QSignalSpy finished(&sparkle.updaterController()->updater(), &SPUUpdater::finished);
    EXPECT_TRUE(sparkle.canCheckForUpdates());
    for (int i = 0; i < 2; ++i) {
        sparkle.updaterController()->checkForUpdates();
        EXPECT_FALSE(sparkle.canCheckForUpdates());
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return !server.requested.isEmpty(); }));
    server.answerLate(kPath, feed(item("1.3")));
    ASSERT_TRUE(finished.wait());
    EXPECT_TRUE(sparkle.canCheckForUpdates());
    EXPECT_EQ(changes.size(), 2);
    EXPECT_EQ(server.requested, QStringList { kPath });
}

TEST_F(SPUUpdaterTest, MayGoWhileItAsks)
{
    server.keepSilent(kPath);
    updater = makeUpdater(address);
    updater->checkForUpdates();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !server.requested.isEmpty(); }));
    updater.reset();
    server.answerLate(kPath, feed(item("1.3")));
    EXPECT_EQ(QCoro::waitFor(session.data(*URL::fromString(address), 1 << 20))->statusCode, 200);
    EXPECT_TRUE(told.empty());
}

struct RhythmCase
{
    const char *name;
    const char *lastCheck; ///< null: absent
    Date::duration due; ///< after the launch at 10:00 UTC
};

class RhythmTest : public SPUUpdaterTest, public testing::WithParamInterface<RhythmCase>
{
};

TEST_P(RhythmTest, ChecksOnceADay)
{
    const RhythmCase &row = GetParam();
    server.answer(kPath, feed(item("1.2")));
    if (row.lastCheck)
        defaults.setString(QLatin1String(row.lastCheck), kLastCheck);
    updater = makeUpdater(address);
    const Date first = clock.now() + row.due;
    updater->startUpdater();
    EXPECT_EQ(askedUntil(first - 5s), 0);
    EXPECT_EQ(askedUntil(first + 5s), 1);
    EXPECT_EQ(askedUntil(first + 24h - 5s), 1);
    EXPECT_EQ(askedUntil(first + 24h + 5s), 2);
    EXPECT_TRUE(told.empty());
}

INSTANTIATE_TEST_SUITE_P(Rows, RhythmTest,
    testing::Values(RhythmCase { "Never", nullptr, 1min }, RhythmCase { "LongAgo", "2025-01-01T00:00:00Z", 1min },
        RhythmCase { "Yesterday", "2026-11-22T13:00:00Z", 3h },
        RhythmCase { "ByAnotherZone", "2026-11-22T13:00:00+02:00", 1h },
        RhythmCase { "JustNow", "2026-11-23T09:59:59Z", 24h - 1s },
        RhythmCase { "InTheFuture", "2031-01-01T00:00:00Z", 1min }, RhythmCase { "Garbage", "yesterday", 1min }),
    kRowName);

TEST_F(SPUUpdaterTest, WaitsAnHourAfterAFailureAndOnlyLogsIt)
{
    server.answer(kPath, {}, "503 Service Unavailable");
    updater = makeUpdater(address);
    const Date launch = clock.now();
    updater->startUpdater();
    EXPECT_EQ(askedUntil(launch + 70s), 1);
    EXPECT_EQ(askedUntil(launch + 60min), 1);
    EXPECT_EQ(askedUntil(launch + 62min), 2);
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(defaults.hasObjectForKey(kLastCheck));
    EXPECT_EQ(log.filter(u"Updates: The feed cannot be reached"_qs).size(), 2);
}

TEST_F(SPUUpdaterTest, FollowsThePreferenceAndAClockThatIsSetBack)
{
    server.answer(kPath, feed(item("1.2")));
    updater = makeUpdater(address);
    const Date launch = clock.now();
    updater->startUpdater();
    defaults.setBool(false, kAutomatic);
    clock.ahead += 2h;
    WallClockTimer after(clock);
    QSignalSpy passed(&after, &WallClockTimer::timeout);
    after.start(clock.now() + 50ms);
    ASSERT_TRUE(passed.wait());
    EXPECT_TRUE(server.requested.isEmpty());
    EXPECT_EQ(askedUntil(launch + 2h), 1) << "at once when it is on again";
    EXPECT_EQ(askedUntil(launch - 48h), 1);
    EXPECT_EQ(askedUntil(launch - 46h), 2) << "not after two days more";
}

TEST_F(SPUUpdaterTest, OffersAVersionOnceByItself)
{
    server.answer(kPath, feed(item("1.3")));
    updater = makeUpdater(address);
    const Date launch = clock.now();
    updater->startUpdater();
    EXPECT_EQ(askedUntil(launch + 2min), 1);
    EXPECT_EQ(told.size(), 1U);
    EXPECT_EQ(askedUntil(launch + 25h), 2);
    EXPECT_EQ(told.size(), 1U);
    updater->checkForUpdates();
    ASSERT_TRUE(QTest::qWaitFor([&] { return told.size() == 2; }));
    EXPECT_TRUE(told.back().isByUser);
    server.answer(kPath, feed(item("1.4") + item("1.3")));
    EXPECT_EQ(askedUntil(launch + 50h), 4);
    ASSERT_EQ(told.size(), 3U);
    EXPECT_EQ(told.back().item->versionString, u"1.4"_qs);
    EXPECT_FALSE(told.back().isByUser);
}

} // namespace
} // namespace mintaro
