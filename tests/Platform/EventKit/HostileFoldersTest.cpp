#include "FolderStoreFixture.h"
#include "Platform/EventKit/Folders/Folder.h"
#include "support/WithoutPrivileges.h"

#include <functional>
#include <span>
#include <thread>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mintaro {

namespace {

constexpr char kLoop[] = "Too many levels of symbolic links";
constexpr char kNoFile[] = "no regular file";
constexpr char kTooLarge[] = "larger than 8388608 bytes";

struct HostileCase
{
    const char *rule;
    QByteArray name;
    /// Gets the whole path.
    std::function<void(const QByteArray &path)> make;
    const char *problem;
    /// The name in the log, where it is another.
    QByteArray escapedName = {};
};

QString textFor(const HostileCase &row, const QString &folder)
{
    const QByteArray &name = row.escapedName.isEmpty() ? row.name : row.escapedName;
    return folder + u'/' + QString::fromUtf8(name) + u": "_qs + QString::fromUtf8(row.problem);
}

class HostileFolders : public FolderStoreFixture
{
protected:
    void TearDown() override
    {
        // QTemporaryDir cannot remove what it cannot name.
        for (const QByteArray &name : m_nameless)
            ::remove(name.constData());
    }

    void link(const char *target, const QByteArray &name)
    {
        ASSERT_EQ(::symlink(target, name.constData()), 0);
        if (!fileName(name))
            m_nameless.push_back(name);
    }

    /// Makes each of them in this folder of a root with a good calendar beside.
    void expectALineForEach(std::span<const HostileCase> cases, const QString &place)
    {
        qsizetype lines = 0;
        for (const HostileCase &row : cases) {
            SCOPED_TRACE(row.rule);
            const QString root = u"%1"_qs.arg(lines);
            put(root + u"/c/good.ics"_qs, eventCalled("good"));
            row.make(path(root + place).toUtf8() + '/' + row.name);
            open(root);
            EXPECT_EQ(titles(), QStringList({ u"good"_qs }));
            ASSERT_EQ(logged().size(), ++lines) << logged().join(u'\n').toStdString();
            EXPECT_EQ(logged().last(), textFor(row, path(root + place)));
        }
    }

    std::vector<QByteArray> m_nameless;
};

TEST_F(HostileFolders, AnItemCostsALineAndNothingElse)
{
    const auto linkTo
        = [this](const char *target) { return [this, target](const QByteArray &path) { link(target, path); }; };
    const auto fileOf = [](qint64 size) {
        return [size](const QByteArray &path) {
            QFile file(QString::fromUtf8(path));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(size));
        };
    };
    const auto node = [](mode_t kind) {
        return [kind](const QByteArray &path) { ASSERT_EQ(::mknod(path.constData(), kind | 0644, 0), 0); };
    };
    const HostileCase cases[] = {
        { "a link to itself", "x.ics", linkTo("x.ics"), kLoop },
        { "a link to nothing", "x.ics", linkTo("nowhere"), "a link that leads nowhere" },
        { "a link to its folder", "x.ics", linkTo("."), kNoFile },
        { "a device without an end", "x.ics", linkTo("/dev/zero"), kNoFile },
        { "a device without content", "x.ics", linkTo("/dev/null"), kNoFile },
        { "a FIFO that nobody writes to", "x.ics", node(S_IFIFO), kNoFile },
        { "a socket", "x.ics", node(S_IFSOCK), kNoFile },
        { "a folder", "x.ics", [](const QByteArray &path) { ASSERT_EQ(::mkdir(path.constData(), 0755), 0); }, kNoFile },
        { "a byte too large", "x.ics", fileOf(8 * 1024 * 1024 + 1), kTooLarge },
        { "two gigabytes of nothing", "x.ics", fileOf(2LL * 1024 * 1024 * 1024), kTooLarge },
        { "an empty file", "x.ics", fileOf(0), "no iCalendar object" },
        { "a name with a line break", "x\n.ics", linkTo("/dev/zero"), kNoFile, "x\\x0a.ics" },
        { "a name with an escape sequence", "\033[2J.ics", linkTo("/dev/zero"), kNoFile, "\\x1b[2J.ics" },
        { "a name of other bytes than UTF-8", "caf\xe9.ics", linkTo("good.ics"), "the name is not UTF-8",
            "caf\\xe9.ics" },
        { "a name of an encoded surrogate", "\xed\xa0\x80.ics", linkTo("good.ics"), "the name is not UTF-8",
            "\\xed\\xa0\\x80.ics" },
    };
    expectALineForEach(cases, u"/c"_qs);
    rusage usage {};
    ::getrusage(RUSAGE_SELF, &usage);
    EXPECT_LT(usage.ru_maxrss, 1024 * 1024) << "kilobytes";
}

TEST_F(HostileFolders, ACollectionCostsALineAndNothingElse)
{
    const auto fifoIn = [](const char *name) {
        return [name](const QByteArray &path) {
            ASSERT_EQ(::mkdir(path.constData(), 0755), 0);
            ASSERT_EQ(::mkfifo((path + name).constData(), 0644), 0);
        };
    };
    const HostileCase cases[] = {
        { "a link to itself", "x", [this](const QByteArray &path) { link("x", path); }, kLoop },
        { "a link to nothing", "x", [this](const QByteArray &path) { link("gone", path); },
            "a link that leads nowhere" },
        { "a name of other bytes than UTF-8", "caf\xe9",
            [this](const QByteArray &path) {
                ASSERT_EQ(::mkdir(path.constData(), 0755), 0);
                m_nameless.push_back(path);
            },
            "the path is not UTF-8", "caf\\xe9" },
        { "a colour that nobody writes", "x", fifoIn("/color"), kNoFile, "x/color" },
    };
    expectALineForEach(cases, QString());
}

TEST_F(HostileFolders, ARootThatIsALinkToItselfIsDenied)
{
    link("root", path(u"root"_qs).toUtf8());
    open(u"root"_qs);
    EXPECT_FALSE(database->requestAccess());
    EXPECT_EQ(logged(), QStringList({ path(u"root: "_qs) + QLatin1String(kLoop) }));
}

TEST_F(HostileFolders, WhatMayNotBeReadCostsALineUntilItMay)
{
    put(u"r/c/good.ics"_qs, eventCalled("good"));
    put(u"r/c/locked.ics"_qs, eventCalled("locked"));
    putFolder(u"r/locked"_qs);
    const QByteArray file = path(u"r/c/locked.ics"_qs).toUtf8();
    const QByteArray folder = path(u"r/locked"_qs).toUtf8();
    ASSERT_EQ(::chmod(path().toUtf8().constData(), 0755), 0);
    ASSERT_EQ(::chmod(file.constData(), 0), 0);
    ASSERT_EQ(::chmod(folder.constData(), 0), 0);
    awaitSettledFiles();
    {
        const WithoutPrivileges nobody;
        if (!nobody.isActive() || ::access(path(u"r/c"_qs).toUtf8().constData(), R_OK) != 0)
            GTEST_SKIP() << "cannot give up the superuser's privileges here";
        open(u"r"_qs);
        EXPECT_EQ(titles(), QStringList({ u"good"_qs }));
        QStringList lines = logged();
        lines.sort();
        EXPECT_EQ(lines,
            QStringList({ path(u"r/c/locked.ics: Permission denied"_qs), path(u"r/locked: Permission denied"_qs) }));
    }
    ASSERT_EQ(::chmod(file.constData(), 0644), 0);
    ASSERT_EQ(::chmod(folder.constData(), 0755), 0);
    database->follow();
    EXPECT_EQ(titles(), QStringList({ u"good"_qs, u"locked"_qs }));
    EXPECT_EQ(calendars(), QStringList({ u"c"_qs, u"locked"_qs }));
}

TEST_F(HostileFolders, AFileThatHasMoreThanItsSizeToldIsReadUpToTheLimit)
{
    const QString maps = u"/proc/self/maps"_qs;
    ASSERT_EQ(QFileInfo(maps).size(), 0);
    EXPECT_EQ(readFile(maps, 100).problem, u"larger than 100 bytes"_qs);
    EXPECT_TRUE(readFile(maps, 8 * 1024 * 1024).bytes.value_or(QByteArray()).endsWith('\n'));
}

TEST_F(HostileFolders, SeveralThreadsMayAskAtOnce)
{
    putFolder(u"r/c"_qs);
    for (int i = 0; i < 100; ++i)
        link("/dev/zero", path(u"r/c/%1.ics"_qs.arg(i)).toUtf8());
    FoldersBackend backend(baseFolders(), path(u"r"_qs), logger());
    ASSERT_TRUE(backend.requestAccess());
    std::atomic<int> found = 0;
    const auto ask = [&](std::size_t number) {
        const QString name = u"%1.ics"_qs.arg(number % 100);
        found += static_cast<int>(backend.objects(path(u"r/c"_qs)).size());
        found += backend.object(path(u"r/c"_qs), name) || backend.read(path(u"r/c"_qs), name) ? 1 : 0;
    };
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < 4; ++i)
        threads.emplace_back(ask, i);
    threads.clear();
    EXPECT_EQ(found, 0);
    EXPECT_EQ(logged().size(), 100);
}

TEST_F(HostileFolders, ManyFoldersWithoutAWatchCostOneLine)
{
    constexpr int kFolders = 50;
    putFolder(u"r"_qs);
    WatchedFolders folders { { path(u"r"_qs), { {}, true } } };
    for (int i = 0; i < kFolders; ++i) {
        putFolder(u"r/%1"_qs.arg(i));
        folders[path(u"r/%1"_qs.arg(i))] = { path(u"r/%1"_qs.arg(i)), false };
    }
    FolderWatcher watcher(logger(), { .watches = 10 });
    watcher.start([](const StoreChanges &) {});
    watcher.setFolders(folders);
    watcher.setFolders(folders);
    ASSERT_EQ(logged().size(), 1) << logged().join(u'\n').toStdString();
    EXPECT_TRUE(logged().first().contains(u" and 40 more;"));
}

} // namespace

} // namespace mintaro
