#include "Platform/EventKit/Folders/FolderWatcher.h"

#include "Platform/EventKit/Folders/FoldersBackend.h"
#include "StoreFixture.h"

#include <gmock/gmock.h>

#include <condition_variable>
#include <cstdio>
#include <future>
#include <mutex>

#include <sys/stat.h>
#include <unistd.h>

namespace mintaro {

namespace {

class FolderWatcherTest : public StoreFixture
{
protected:
    /// Waits until all that was told together satisfies `isEnough`.
    template <typename Condition>
    [[nodiscard]] bool await(Condition isEnough)
    {
        std::unique_lock lock(m_mutex);
        return m_condition.wait_for(lock, std::chrono::seconds { 20 }, [&] { return isEnough(m_told); });
    }

    [[nodiscard]] bool awaitCollections()
    {
        return await([](const StoreChanges &told) { return told.collections; });
    }

    [[nodiscard]] std::function<void(const StoreChanges &)> handler()
    {
        return [this](const StoreChanges &changes) {
            const std::lock_guard lock(m_mutex);
            m_told.collections = m_told.collections || changes.collections;
            for (const auto &[collection, names] : changes.objects)
                m_told.objects[collection] += names;
            m_condition.notify_all();
        };
    }

    void forget()
    {
        const std::lock_guard lock(m_mutex);
        m_told = {};
    }

    /// Looks at a root as the engine does.
    void follow(const QString &root)
    {
        m_backend = std::make_unique<FoldersBackend>(baseFolders(), path(root), logger());
        ASSERT_TRUE(m_backend->requestAccess());
        m_backend->watch(handler());
        (void)m_backend->collections();
    }

    StoreChanges m_told;
    std::unique_ptr<FoldersBackend> m_backend;

private:
    std::mutex m_mutex;
    std::condition_variable m_condition;
};

void rename(const QString &from, const QString &to)
{
    ASSERT_EQ(std::rename(from.toUtf8().constData(), to.toUtf8().constData()), 0);
}

TEST_F(FolderWatcherTest, AnItemInTheMakingIsToldOfWhenItIsComplete)
{
    putFolder(u"r/c"_qs);
    follow(u"r"_qs);
    const QString collection = path(u"r/c"_qs);
    QFile slow(collection + u"/slow.ics"_qs);
    ASSERT_TRUE(slow.open(QIODevice::WriteOnly));
    ASSERT_TRUE(await([&](const StoreChanges &told) { return told.objects.contains(collection); }));
    forget();
    slow.write("text");
    slow.close();
    EXPECT_TRUE(await([&](const StoreChanges &told) { return told.objects.contains(collection); }));
}

TEST_F(FolderWatcherTest, HearsOfCollections)
{
    const struct
    {
        const char *rule;
        std::function<void()> act;
    } cases[] = {
        { "made", [&] { putFolder(u"r/new"_qs); } },
        { "looks changed", [&] { put(u"r/new/color"_qs, "#fff"); } },
        { "mode changed", [&] { ::chmod(path(u"r/new"_qs).toUtf8().constData(), 0700); } },
        { "renamed", [&] { rename(path(u"r/new"_qs), path(u"r/renamed"_qs)); } },
        { "linked", [&] { QFile::link(path(u"elsewhere"_qs), path(u"r/linked"_qs)); } },
        { "link removed", [&] { QFile::remove(path(u"r/linked"_qs)); } },
        { "removed", [&] { QDir(path(u"r/renamed"_qs)).removeRecursively(); } },
        { "an item in the root itself", [&] { put(u"r/x.ics"_qs, "text"); } },
        { "the root removed", [&] { QDir(path(u"r"_qs)).removeRecursively(); } },
    };
    putFolder(u"r"_qs);
    putFolder(u"elsewhere"_qs);
    follow(u"r"_qs);
    for (const auto &row : cases) {
        SCOPED_TRACE(row.rule);
        forget();
        row.act();
        ASSERT_TRUE(awaitCollections());
        (void)m_backend->collections();
    }
}

TEST_F(FolderWatcherTest, HearsOfOurOwnWritingButNotOfTheTemporary)
{
    put(u"r/x.ics"_qs, "base");
    follow(u"r"_qs);
    const QString collection = path(u"r"_qs);
    const std::function<void()> writes[] = {
        [&] { ASSERT_EQ(m_backend->replace(collection, u"x.ics"_qs, "base", "ours"), WriteOutcome::Done); },
        [&] { ASSERT_EQ(m_backend->remove(collection, u"x.ics"_qs, "ours"), WriteOutcome::Done); },
        [&] { ASSERT_TRUE(m_backend->create(collection, u"x.ics"_qs, "base")); },
    };
    for (const auto &write : writes) {
        forget();
        write();
        ASSERT_TRUE(await([](const StoreChanges &told) { return !told.isEmpty(); }));
        EXPECT_FALSE(m_told.collections);
        EXPECT_EQ(m_told.objects[collection], QStringList({ u"x.ics"_qs }));
    }
}

TEST_F(FolderWatcherTest, HearsOfItemsInACollectionThatCameLater)
{
    putFolder(u"r"_qs);
    follow(u"r"_qs);
    putFolder(u"r/late"_qs);
    ASSERT_TRUE(awaitCollections());
    ASSERT_EQ(m_backend->collections().size(), 1U);
    put(u"r/late/x.ics"_qs, "text");
    EXPECT_TRUE(await([&](const StoreChanges &told) { return told.objects.contains(path(u"r/late"_qs)); }));
}

TEST_F(FolderWatcherTest, AwaitsARootThatIsNotThereYet)
{
    follow(u"media/disk/calendars"_qs);
    for (const char *step : { "media", "media/disk", "media/disk/calendars" }) {
        SCOPED_TRACE(step);
        forget();
        putFolder(QString::fromLatin1(step));
        ASSERT_TRUE(awaitCollections());
        EXPECT_TRUE(m_backend->collections().empty());
    }
    put(u"media/disk/calendars/a/x.ics"_qs, "text");
    ASSERT_TRUE(awaitCollections());
    EXPECT_EQ(m_backend->collections().size(), 1U);
}

TEST_F(FolderWatcherTest, ComparesFoldersThatGetNoWatch)
{
    putFolder(u"r/c"_qs);
    FolderWatcher watcher(logger(), { .watches = 1, .rescanInterval = std::chrono::milliseconds { 20 } });
    watcher.start(handler());
    const QString collection = path(u"r/c"_qs);
    watcher.setFolders({ { path(u"r"_qs), { {}, true } }, { collection, { collection, false } } });
    EXPECT_THAT(
        logged(), testing::ElementsAre(u"No change events for %1; looking there once a minute"_qs.arg(collection)));
    put(u"r/c/x.ics"_qs, "text");
    ASSERT_TRUE(await([&](const StoreChanges &told) { return told.objects.contains(collection); }));
    EXPECT_TRUE(m_told.objects[collection].isEmpty());
}

TEST_F(FolderWatcherTest, LooksAtAllWhenTheKernelLostEvents)
{
    QFile limit(u"/proc/sys/fs/inotify/max_queued_events"_qs);
    ASSERT_TRUE(limit.open(QIODevice::ReadOnly));
    const int events = limit.readAll().trimmed().toInt();
    if (events > 200'000)
        GTEST_SKIP() << "the queue is too long to fill";
    put(u"r/c/a.ics"_qs);
    put(u"r/c/b.ics"_qs);
    const QByteArray files[] = { path(u"r/c/a.ics"_qs).toUtf8(), path(u"r/c/b.ics"_qs).toUtf8() };
    std::promise<void> isHeld;
    std::promise<void> mayGoOn;
    m_backend = std::make_unique<FoldersBackend>(baseFolders(), path(u"r"_qs), logger());
    ASSERT_TRUE(m_backend->requestAccess());
    m_backend->watch([&, tell = handler(), isFirst = true](const StoreChanges &changes) mutable {
        if (std::exchange(isFirst, false)) {
            isHeld.set_value();
            mayGoOn.get_future().wait();
        } else {
            tell(changes);
        }
    });
    (void)m_backend->collections();
    ::chmod(files[0].constData(), 0600);
    isHeld.get_future().wait();
    // Equal events in a row are one to the kernel.
    for (int i = 0; i < events + 2; ++i)
        ::chmod(files[i % 2].constData(), 0644);
    mayGoOn.set_value();
    EXPECT_TRUE(awaitCollections());
}

} // namespace

} // namespace mintaro
