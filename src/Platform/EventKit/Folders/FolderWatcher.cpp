#include "Platform/EventKit/Folders/FolderWatcher.h"

#include "Platform/EventKit/Folders/Folder.h"
#include "Platform/Foundation/DurableFolder.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <linux/magic.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <sys/vfs.h>

namespace mintaro {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint32_t kEntryEvents = IN_CREATE | IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_ATTRIB;
constexpr std::uint32_t kLayoutEvents = IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE;
constexpr std::uint32_t kSelfEvents = IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::uint32_t kArrivalEvents = IN_CREATE | IN_MOVED_TO;

bool isFolder(const QString &path)
{
    return QFileInfo(path).isDir();
}

/// The files of a collection that say how it looks.
bool isLooksFile(const QString &name)
{
    return name == QLatin1String("color") || name == QLatin1String("displayname") || name == QLatin1String("order");
}

bool isTemporary(const QString &name)
{
    return name.startsWith(u'.') || name.endsWith(QLatin1String(".tmp"));
}

/// Other hosts' changes on these file systems give no events.
bool isOnNetwork(const QString &path)
{
    constexpr std::uint32_t kCifs = 0xff534d42;
    constexpr std::uint32_t kFuse = 0x65735546;
    struct statfs status = {};
    if (::statfs(path.toUtf8().constData(), &status) != 0)
        return false;
    const auto type = static_cast<std::uint32_t>(status.f_type);
    return type == NFS_SUPER_MAGIC || type == SMB_SUPER_MAGIC || type == SMB2_SUPER_MAGIC || type == AFS_SUPER_MAGIC
        || type == kCifs || type == kFuse;
}

/// Two folders with the same entries in the same states have the same one.
std::size_t fingerprintOf(const QString &path)
{
    const std::optional<Folder> folder = Folder::open(path);
    if (!folder)
        return 0;
    // A sum, since a folder tells its entries in no order.
    std::size_t sum = 1;
    folder->forEach([&](const dirent &entry) {
        if (QByteArrayView(entry.d_name) == DurableFolder::kTemporary)
            return;
        std::size_t hash = qHash(QByteArrayView(entry.d_name));
        if (const std::optional<struct stat> status = folder->status(entry.d_name)) {
            const ObjectRevision revision = revisionOf(*status);
            hash = qHashRange(revision.begin(), revision.end(), hash);
        }
        sum += hash;
    });
    return sum;
}

} // namespace

FolderWatcher::FolderWatcher(Logger logger, Limits limits)
    : m_logger(std::move(logger))
    , m_limits(limits)
    , m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    , m_wake(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
    , m_mounts(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC))
{
}

FolderWatcher::~FolderWatcher()
{
    if (!m_thread.joinable())
        return;
    m_isStopping = true;
    ::eventfd_write(m_wake.get(), 1);
    m_thread.join();
}

void FolderWatcher::start(std::function<void(const StoreChanges &)> handler)
{
    const QMutexLocker lock(&m_mutex);
    m_handler = std::move(handler);
    placeWatches();
    m_thread = std::thread([this] { run(); });
}

void FolderWatcher::setFolders(WatchedFolders folders)
{
    const QMutexLocker lock(&m_mutex);
    m_folders = std::move(folders);
    if (m_thread.joinable())
        placeWatches();
}

std::map<QString, FolderWatcher::Watch> FolderWatcher::wantedWatches() const
{
    std::map<QString, Watch> wanted;
    for (const auto &[path, folder] : m_folders) {
        if (isFolder(path)) {
            Watch &watch = wanted[path];
            watch.folder = folder;
            watch.mask |= kSelfEvents | IN_ATTRIB | (folder.collection.isEmpty() ? kLayoutEvents : kEntryEvents);
            if (!folder.configurationFiles.isEmpty())
                watch.mask |= IN_CLOSE_WRITE;
            continue;
        }
        QString place = path;
        QString missing;
        while (place.size() > 1 && !isFolder(place)) {
            const qsizetype slash = place.lastIndexOf(u'/');
            missing = place.mid(slash + 1);
            place = slash == 0 ? QStringLiteral("/") : place.left(slash);
        }
        Watch &watch = wanted[place];
        watch.awaited.insert(missing);
        watch.mask |= kSelfEvents | kArrivalEvents;
    }
    return wanted;
}

int FolderWatcher::place(const Watch &watch, std::size_t alreadyPlaced) const
{
    if (alreadyPlaced >= m_limits.watches || !m_inotify.isValid()) {
        errno = ENOSPC;
        return -1;
    }
    return ::inotify_add_watch(m_inotify.get(), watch.path.toUtf8().constData(), watch.mask | IN_ONLYDIR);
}

void FolderWatcher::placeWatches()
{
    std::unordered_map<int, Watch> placed;
    std::map<QString, Compared> compared;
    for (auto &[path, watch] : wantedWatches()) {
        watch.path = path;
        const int number = place(watch, placed.size());
        // Of a folder that may not be read, its root's watch tells when that changes.
        if ((number < 0 && errno == ENOSPC) || isOnNetwork(path)) {
            const auto known = m_compared.find(path);
            compared[path]
                = { watch.folder, known != m_compared.end() ? known->second.fingerprint : fingerprintOf(path) };
        }
        // What was awaited may have come while the watch was being placed.
        const auto exists = [&path = path](const QString &name) { return isFolder(path + u'/' + name); };
        if (std::any_of(watch.awaited.begin(), watch.awaited.end(), exists))
            m_burst.addCollections(Clock::now());
        if (number >= 0)
            placed.insert_or_assign(number, watch);
    }
    for (const auto &[number, watch] : m_watches) {
        if (!placed.contains(number))
            ::inotify_rm_watch(m_inotify.get(), number);
    }
    m_watches = std::move(placed);
    setCompared(std::move(compared));
    ::eventfd_write(m_wake.get(), 1);
}

void FolderWatcher::setCompared(std::map<QString, Compared> compared)
{
    std::vector<QString> added;
    for (const auto &[path, folder] : compared) {
        if (!m_compared.contains(path))
            added.push_back(path);
    }
    if (!added.empty()) {
        const QString others = added.size() == 1
            ? QString()
            : QStringLiteral(" and %1 more").arg(static_cast<qulonglong>(added.size() - 1));
        m_logger.error(QStringLiteral("No change events for %1%2; looking there once a minute")
                           .arg(escapedPath(added.front()), others));
    }
    if (m_compared.empty())
        m_nextComparison = Clock::now() + m_limits.rescanInterval;
    m_compared = std::move(compared);
}

void FolderWatcher::run()
{
    while (!m_isStopping) {
        waitForEvents();
        readEvents();
        compareFolders();
        tell();
    }
}

int FolderWatcher::millisecondsToWait()
{
    std::optional<Clock::time_point> next = m_burst.due();
    if (!m_compared.empty() && (!next || m_nextComparison < *next))
        next = m_nextComparison;
    if (!next)
        return -1;
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now()).count();
    return static_cast<int>(std::max<decltype(wait)>(wait, 0));
}

void FolderWatcher::waitForEvents()
{
    m_mutex.lock();
    const int milliseconds = millisecondsToWait();
    m_mutex.unlock();
    pollfd sources[] = { { m_inotify.get(), POLLIN, 0 }, { m_wake.get(), POLLIN, 0 }, { m_mounts.get(), POLLPRI, 0 } };
    if (::poll(sources, std::size(sources), milliseconds) <= 0)
        return;
    eventfd_t count = 0;
    ::eventfd_read(m_wake.get(), &count);
    if (sources[2].revents != 0)
        followMounts();
}

void FolderWatcher::followMounts()
{
    const QMutexLocker lock(&m_mutex);
    const std::unordered_map<int, Watch> before = m_watches;
    placeWatches();
    // The same path leads to another folder now, and so to another watch.
    const auto isNew = [&before](const auto &watch) { return !before.contains(watch.first); };
    if (std::any_of(m_watches.begin(), m_watches.end(), isNew))
        m_burst.addCollections(Clock::now());
}

void FolderWatcher::readEvents()
{
    alignas(inotify_event) char buffer[16 * 1024];
    ssize_t size = 0;
    while ((size = ::read(m_inotify.get(), buffer, sizeof buffer)) > 0) {
        const QMutexLocker lock(&m_mutex);
        const Clock::time_point now = Clock::now();
        for (const char *at = buffer; at < buffer + size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(at);
            handle(*event, now);
            at += sizeof(inotify_event) + event->len;
        }
    }
}

void FolderWatcher::handle(const inotify_event &event, ChangeBurst::TimePoint now)
{
    const auto found = m_watches.find(event.wd);
    if ((event.mask & IN_Q_OVERFLOW) != 0)
        m_burst.addCollections(now);
    if (found == m_watches.end())
        return;
    if ((event.mask & IN_IGNORED) != 0)
        m_watches.erase(found);
    else if ((event.mask & (kSelfEvents | IN_UNMOUNT)) != 0 || event.len == 0)
        m_burst.addCollections(now);
    else if (const std::optional<QString> name = fileName(static_cast<const char *>(event.name)))
        handleEntry(found->second, *name, event.mask, now);
}

void FolderWatcher::handleEntry(const Watch &watch, const QString &name, std::uint32_t what, ChangeBurst::TimePoint now)
{
    const bool isCollection = !watch.folder.collection.isEmpty();
    const bool isSubfolder = (what & IN_ISDIR) != 0;
    if (isCollection && isObjectName(name) && !isSubfolder) {
        handleObject(watch, name, what, now);
        return;
    }
    // A link to a folder is no folder to inotify, so in a mere root every name counts.
    const bool changesLayout
        = watch.folder.isRoot && !isTemporary(name) && (isSubfolder || (!isCollection && (what & kLayoutEvents) != 0));
    const bool changesLooks = isCollection && isLooksFile(name);
    const bool changesConfiguration = watch.folder.configurationFiles.contains(name);
    if (changesLayout || changesLooks || changesConfiguration || watch.awaited.contains(name))
        m_burst.addCollections(now);
}

void FolderWatcher::handleObject(
    const Watch &watch, const QString &name, std::uint32_t what, ChangeBurst::TimePoint now)
{
    using Writing = ChangeBurst::Writing;
    Writing writing = (what & IN_ATTRIB) != 0 ? Writing::Untouched : Writing::Done;
    // A new name that has content at once came by link(2) and is complete; an empty one is being written in place.
    if ((what & IN_CREATE) != 0 && QFileInfo(watch.path + u'/' + name).size() == 0)
        writing = Writing::Begun;
    m_burst.addObject(watch.folder.collection, name, writing, now);
}

void FolderWatcher::compareFolders()
{
    const QMutexLocker lock(&m_mutex);
    const Clock::time_point now = Clock::now();
    if (m_compared.empty() || now < m_nextComparison)
        return;
    const std::map<QString, Compared> before = m_compared;
    placeWatches();
    for (const auto &[path, folder] : before) {
        const std::size_t fingerprint = fingerprintOf(path);
        if (fingerprint == folder.fingerprint)
            continue;
        if (const auto after = m_compared.find(path); after != m_compared.end())
            after->second.fingerprint = fingerprint;
        if (folder.folder.collection.isEmpty() || folder.folder.isRoot)
            m_burst.addCollections(now);
        else
            m_burst.addObjectsOf(folder.folder.collection, now);
    }
    m_nextComparison = now + m_limits.rescanInterval;
}

void FolderWatcher::tell()
{
    m_mutex.lock();
    const StoreChanges changes = m_burst.take(Clock::now());
    m_mutex.unlock();
    if (!changes.isEmpty())
        m_handler(changes);
}

} // namespace mintaro
