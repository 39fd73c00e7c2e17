#pragma once

#include "Platform/EventKit/Folders/ChangeBurst.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/Logger.h"

#include <QMutex>
#include <QSet>

#include <atomic>
#include <functional>
#include <limits>
#include <thread>
#include <unordered_map>

struct inotify_event;

namespace mintaro {

/// What a folder is to the store.
struct WatchedFolder
{
    /// The identifier of the collection that it is; empty when it is none.
    QString collection;
    /// Its sub-folders are collections.
    bool isRoot = false;
    /// Names of files in it that say where collections are.
    QSet<QString> configurationFiles {};
};

/// By canonical path. A folder that does not exist is awaited.
using WatchedFolders = std::map<QString, WatchedFolder>;

/// Tells of changes in folders of calendars, by inotify(7) on a thread of its own that sleeps until something happens.
/// Folders that the kernel tells nothing about (no watches left, network file systems) are compared every minute.
/// Thread-safe.
class FolderWatcher
{
public:
    struct Limits
    {
        /// Folders beyond this number are compared instead of watched; the system has a limit of its own.
        std::size_t watches = std::numeric_limits<std::size_t>::max();
        std::chrono::milliseconds rescanInterval = std::chrono::minutes { 1 };
    };

    explicit FolderWatcher(Logger logger)
        : FolderWatcher(std::move(logger), Limits {})
    {
    }
    FolderWatcher(Logger logger, Limits limits);
    /// Waits for a call of the handler that is under way.
    ~FolderWatcher();

    /// From now on `handler` is called, on the watcher's thread, once for each burst of changes. To be called once.
    void start(std::function<void(const StoreChanges &)> handler);
    /// Replaces the folders. When this returns, no later change in them is missed.
    void setFolders(WatchedFolders folders);

private:
    struct Watch
    {
        QString path;
        WatchedFolder folder;
        /// Names of entries that have to appear on the way to a folder that does not exist.
        QSet<QString> awaited;
        std::uint32_t mask = 0;
    };
    struct Compared
    {
        WatchedFolder folder;
        std::size_t fingerprint = 0;
    };

    [[nodiscard]] std::map<QString, Watch> wantedWatches() const;
    void placeWatches();
    /// The watch's number; -1 with errno set where there is none, ENOSPC when no more can be had.
    [[nodiscard]] int place(const Watch &watch, std::size_t alreadyPlaced) const;
    void setCompared(std::map<QString, Compared> compared);

    void run();
    void waitForEvents();
    void followMounts();
    [[nodiscard]] int millisecondsToWait();
    void readEvents();
    void handle(const inotify_event &event, ChangeBurst::TimePoint now);
    void handleEntry(const Watch &watch, const QString &name, std::uint32_t what, ChangeBurst::TimePoint now);
    void handleObject(const Watch &watch, const QString &name, std::uint32_t what, ChangeBurst::TimePoint now);
    void compareFolders();
    void tell();

    const Logger m_logger;
    const Limits m_limits;
    const FileDescriptor m_inotify;
    const FileDescriptor m_wake;
    /// Becomes readable out of band when a file system is mounted (proc(5)): a mount gives no inotify event.
    const FileDescriptor m_mounts;
    std::function<void(const StoreChanges &)> m_handler;
    std::thread m_thread;
    std::atomic<bool> m_isStopping = false;

    QMutex m_mutex;
    WatchedFolders m_folders;
    std::unordered_map<int, Watch> m_watches;
    std::map<QString, Compared> m_compared;
    ChangeBurst::TimePoint m_nextComparison;
    ChangeBurst m_burst;
};

} // namespace mintaro
