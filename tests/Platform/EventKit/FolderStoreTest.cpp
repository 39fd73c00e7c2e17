#include "FolderStoreFixture.h"

#include <QTest>

#include <cstdio>
#include <functional>

#include <unistd.h>

namespace mintaro {

namespace {

/// A calendar program that other programs' writes have to reach.
class FolderStore : public FolderStoreFixture
{
protected:
    void SetUp() override
    {
        observation = notifications.addObserver(QLatin1String(kEKEventStoreChangedNotification), [this] { ++posted; });
    }

    void follow(const std::optional<QString> &root)
    {
        open(root);
        database->follow();
        (void)titles();
    }

    void forget()
    {
        reads = 0;
        posted = 0;
    }

    /// Looks after each notification, as the program does, until `answer` gives what is expected.
    void await(const std::function<QStringList()> &answer, const QStringList &expected)
    {
        for (int seen = 0;;) {
            const bool isTold = QTest::qWaitFor([&] { return posted != seen; }, 20'000);
            seen = posted;
            const QStringList given = answer();
            if (given == expected)
                return;
            ASSERT_TRUE(isTold) << given.join(u' ').toStdString();
        }
    }

    int posted = 0;
    std::unique_ptr<NotificationCenter::Observation> observation;
};

void rename(const QString &from, const QString &to)
{
    ASSERT_EQ(std::rename(from.toUtf8().constData(), to.toUtf8().constData()), 0);
}

TEST_F(FolderStore, ShowsEveryWayOfWritingAnItem)
{
    const QString collection = path(u"r/c/"_qs);
    const struct
    {
        const char *rule;
        std::function<void()> act;
        QStringList titles;
        int reads;
    } cases[] = {
        { "new by link and unlink",
            [&] {
                put(u"r/c/tmpab12cd34"_qs, eventCalled("linked"));
                ::link((collection + u"tmpab12cd34"_qs).toUtf8().constData(),
                    (collection + u"linked.ics"_qs).toUtf8().constData());
                QFile::remove(collection + u"tmpab12cd34"_qs);
            },
            { u"linked"_qs, u"old"_qs }, 1 },
        { "update by temporary and rename",
            [&] {
                put(u"r/c/tmpab12cd34"_qs, eventCalled("updated"));
                rename(collection + u"tmpab12cd34"_qs, collection + u"linked.ics"_qs);
            },
            { u"old"_qs, u"updated"_qs }, 1 },
        { "new by a rename from .tmp",
            [&] {
                put(u"r/c/x.ics.tmp"_qs, eventCalled("renamed"));
                rename(collection + u"x.ics.tmp"_qs, collection + u"x.ics"_qs);
            },
            { u"old"_qs, u"renamed"_qs, u"updated"_qs }, 1 },
        { "new in place", [&] { put(u"r/c/placed.ics"_qs, eventCalled("placed")); },
            { u"old"_qs, u"placed"_qs, u"renamed"_qs, u"updated"_qs }, 1 },
        { "changed in place", [&] { put(u"r/c/placed.ics"_qs, eventCalled("palced")); },
            { u"old"_qs, u"palced"_qs, u"renamed"_qs, u"updated"_qs }, 1 },
        { "moved in from elsewhere",
            [&] {
                put(u"aside"_qs, eventCalled("aside"));
                rename(path(u"aside"_qs), collection + u"aside.ics"_qs);
            },
            { u"aside"_qs, u"old"_qs, u"palced"_qs, u"renamed"_qs, u"updated"_qs }, 1 },
        { "moved away", [&] { rename(collection + u"x.ics"_qs, path(u"away"_qs)); },
            { u"aside"_qs, u"old"_qs, u"palced"_qs, u"updated"_qs }, 0 },
        { "another name", [&] { rename(collection + u"aside.ics"_qs, collection + u"named.ics"_qs); },
            { u"aside"_qs, u"old"_qs, u"palced"_qs, u"updated"_qs }, 1 },
        { "mode changed",
            [&] { QFile::setPermissions(collection + u"old.ics"_qs, QFile::ReadOwner | QFile::ExeOwner); },
            { u"aside"_qs, u"old"_qs, u"palced"_qs, u"updated"_qs }, 1 },
        { "removed", [&] { QFile::remove(collection + u"old.ics"_qs); }, { u"aside"_qs, u"palced"_qs, u"updated"_qs },
            0 },
    };
    put(u"r/c/old.ics"_qs, eventCalled("old"));
    awaitSettledFiles();
    follow(u"r"_qs);
    for (const auto &row : cases) {
        SCOPED_TRACE(row.rule);
        forget();
        row.act();
        ASSERT_NO_FATAL_FAILURE(await([this] { return titles(); }, row.titles));
        EXPECT_EQ(reads, row.reads);
        EXPECT_EQ(posted, 1);
    }
}

TEST_F(FolderStore, FollowsCollectionsAndTheirRoot)
{
    const struct
    {
        const char *rule;
        std::function<void()> act;
        QStringList calendars;
        int reads;
    } cases[] = {
        { "the root comes", [&] { put(u"disk/r/a/x.ics"_qs, eventCalled("x")); }, { u"a"_qs }, 1 },
        { "made", [&] { putFolder(u"disk/r/b"_qs); }, { u"a"_qs, u"b"_qs }, 0 },
        { "named", [&] { put(u"disk/r/b/displayname"_qs, "Z"); }, { u"Z"_qs, u"a"_qs }, 0 },
        { "renamed", [&] { rename(path(u"disk/r/a"_qs), path(u"disk/r/c"_qs)); }, { u"Z"_qs, u"c"_qs }, 1 },
        { "moved in with its items",
            [&] {
                put(u"aside/x.ics"_qs, eventCalled("y"));
                rename(path(u"aside"_qs), path(u"disk/r/d"_qs));
            },
            { u"Z"_qs, u"c"_qs, u"d"_qs }, 1 },
        { "removed", [&] { QDir(path(u"disk/r/c"_qs)).removeRecursively(); }, { u"Z"_qs, u"d"_qs }, 0 },
        { "the root goes", [&] { rename(path(u"disk/r"_qs), path(u"ejected"_qs)); }, {}, 0 },
        { "and comes back", [&] { rename(path(u"ejected"_qs), path(u"disk/r"_qs)); }, { u"Z"_qs, u"d"_qs }, 1 },
    };
    follow(u"disk/r"_qs);
    for (const auto &row : cases) {
        SCOPED_TRACE(row.rule);
        awaitSettledFiles();
        forget();
        row.act();
        ASSERT_NO_FATAL_FAILURE(await([this] { return calendars(); }, row.calendars));
        EXPECT_EQ(reads, row.reads);
    }
}

TEST_F(FolderStore, ABurstIsToldOnceAndReadsWhatChanged)
{
    constexpr int kItems = 10'000;
    const auto item = [this](const char *folder, int number) {
        return path(u"%1/%2.ics"_qs.arg(QLatin1String(folder)).arg(number));
    };
    putFolder(u"aside"_qs);
    for (int i = 0; i < kItems; ++i)
        put(u"aside/%1.ics"_qs.arg(i), eventCalled(QByteArray::number(i)));
    for (int i = 0; i < 20; ++i)
        put(u"r/c/%1.ics"_qs.arg(i), eventCalled("old " + QByteArray::number(i)));
    awaitSettledFiles();
    follow(u"r"_qs);
    forget();
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 10; i < kItems; ++i)
        rename(item("aside", i), item("r/c", i));
    const auto lasted = std::chrono::steady_clock::now() - begin;
    await([this] { return QStringList(QString::number(titles().size())); }, { QString::number(kItems) });
    EXPECT_EQ(reads, kItems - 10);
    EXPECT_LE(posted, 1 + lasted / std::chrono::milliseconds { 100 }) << "each ends with 100 ms of quiet at the least";
    EXPECT_TRUE(logged().isEmpty());
}

TEST_F(FolderStore, FollowsTheConfiguration)
{
    const auto rootAt = [this](const char *folder) { return "root = " + path(QLatin1String(folder)).toUtf8() + '\n'; };
    const QString file = u"config/mintaro/store.conf"_qs;
    const struct
    {
        const char *rule;
        std::function<void()> act;
        QStringList calendars;
    } cases[] = {
        { "the first one, with its folder", [&] { put(file, rootAt("one")); }, { u"a"_qs } },
        { "changed in place", [&] { put(file, rootAt("one") + rootAt("two")); }, { u"a"_qs, u"b"_qs } },
        { "changed by a rename",
            [&] {
                put(u"config/mintaro/.store.conf.new"_qs, rootAt("two"));
                rename(path(u"config/mintaro/.store.conf.new"_qs), path(file));
            },
            { u"b"_qs } },
        { "without sense: as before",
            [&] {
                put(file, "root\n");
                putFolder(u"two/c"_qs);
            },
            { u"b"_qs, u"c"_qs } },
        { "a link",
            [&] {
                put(u"dotfiles/store.conf"_qs, rootAt("one"));
                QFile::remove(path(file));
                ASSERT_TRUE(QFile::link(path(u"dotfiles/store.conf"_qs), path(file)));
            },
            { u"a"_qs } },
        { "what the link leads to", [&] { put(u"dotfiles/store.conf"_qs, rootAt("two")); }, { u"b"_qs, u"c"_qs } },
        { "removed", [&] { QFile::remove(path(file)); }, { u"Calendar"_qs, u"Reminders"_qs } },
        { "another program's comes",
            [&] { put(u"config/khal/config"_qs, "[calendars]\n[[a]]\npath = " + path(u"one/a"_qs).toUtf8() + '\n'); },
            { u"a"_qs } },
    };
    putFolder(u"one/a"_qs);
    putFolder(u"two/b"_qs);
    follow(std::nullopt);
    EXPECT_EQ(calendars(), QStringList({ u"Calendar"_qs, u"Reminders"_qs }));
    for (const auto &row : cases) {
        SCOPED_TRACE(row.rule);
        forget();
        row.act();
        ASSERT_NO_FATAL_FAILURE(await([this] { return calendars(); }, row.calendars));
    }
    ASSERT_EQ(logged().size(), 1) << logged().join(u'\n').toStdString();
    EXPECT_TRUE(logged().first().startsWith(path(file) + u":1: "_qs));
}

TEST_F(FolderStore, ItsOwnWritingIsToldOnce)
{
    put(u"r/c/a.ics"_qs, eventCalled("a"));
    put(u"r/d/b.ics"_qs, eventCalled("b"));
    awaitSettledFiles();
    follow(u"r"_qs);
    const auto event = [this](const char *title) {
        for (const EKEvent &each : database->events({ utc("2026-01-01T00:00:00Z"), utc("2027-01-01T00:00:00Z") })) {
            if (each.title() == QLatin1String(title))
                return each;
        }
        return EKEvent();
    };
    const struct
    {
        const char *what;
        std::function<void()> act;
        QStringList titles;
        int reads;
    } cases[] = {
        { "changed",
            [&] {
                EKEvent changed = event("a");
                changed.setTitle(u"new"_qs);
                static_cast<void>(database->save(changed, EKSpan::ThisEvent));
            },
            { u"b"_qs, u"new"_qs }, 3 },
        { "moved",
            [&] {
                EKEvent moved = event("b");
                moved.setCalendar(event("new").calendar());
                static_cast<void>(database->save(moved, EKSpan::ThisEvent));
            },
            { u"b"_qs, u"new"_qs }, 3 },
        { "removed", [&] { database->remove(event("new"), EKSpan::ThisEvent); }, { u"b"_qs }, 1 },
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.what);
        forget();
        row.act();
        EXPECT_EQ(titles(), row.titles);
        EXPECT_EQ(posted, 1);
        // Longer than a burst of changes lasts.
        QTest::qWait(1'000);
        EXPECT_EQ(posted, 1);
        EXPECT_EQ(titles(), row.titles);
        // For the change, for what it became, and to know it again.
        EXPECT_LE(reads, row.reads);
    }
}

} // namespace

} // namespace mintaro
