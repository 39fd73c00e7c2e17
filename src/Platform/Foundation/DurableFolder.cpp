#include "Platform/Foundation/DurableFolder.h"

#include "Platform/Foundation/Retried.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <time.h>

namespace mintaro {

namespace {

constexpr std::chrono::milliseconds kPause { 5 };
constexpr int kMostPauses = 1000;
constexpr time_t kLitterAge = 60;

int codeOf(int result)
{
    return result == 0 ? 0 : errno;
}

/// How file systems say that they do not know an operation or a flag of it.
bool isUnsupported(int code)
{
    return code == EINVAL || code == ENOSYS || code == EOPNOTSUPP;
}

void writeAll(int descriptor, const QByteArray &text)
{
    for (qsizetype done = 0; done < text.size();) {
        const auto rest = static_cast<std::size_t>(text.size() - done);
        const ssize_t size = retried([&] { return ::write(descriptor, text.constData() + done, rest); });
        if (size <= 0)
            throw FileError(size < 0 ? errno : EIO);
        done += size;
    }
}

/// Brings a written file to the disk. A failed attempt must not be repeated: the second one would succeed, since the
/// kernel takes pages that it could not write for clean.
void bringToDisk(int descriptor)
{
    if (retried([&] { return ::fsync(descriptor); }) != 0)
        throw FileError(errno);
}

/// Gives a file the group and the permissions of another. Where the group cannot be given, the file's own one gets what
/// everybody may do, so that nobody sees more than before.
void makeAlike(int descriptor, const struct stat &status, const struct stat &like)
{
    mode_t mode = like.st_mode & 0777;
    if (status.st_gid != like.st_gid && ::fchown(descriptor, static_cast<uid_t>(-1), like.st_gid) != 0)
        mode = (mode & ~static_cast<mode_t>(S_IRWXG)) | ((mode & S_IRWXO) << 3);
    // File systems without permissions refuse to set them, and show the same for all files.
    if ((status.st_mode & 0777) != mode && ::fchmod(descriptor, mode) != 0)
        throw FileError(errno);
}

bool isOlderThanLitter(const struct stat &status)
{
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec - status.st_ctim.tv_sec > kLitterAge;
}

} // namespace

bool DurableFolder::Entry::isSameAs(const Entry &other) const
{
    const bool canTell = file.bytes && other.file.bytes;
    return status.st_dev == other.status.st_dev && status.st_ino == other.status.st_ino
        && (!canTell || file.bytes == other.file.bytes);
}

void DurableFolder::make(const QByteArray &path)
{
    const QByteArray above = path.left(std::max<qsizetype>(path.lastIndexOf('/'), 1));
    int code = codeOf(::mkdir(path.constData(), S_IRWXU));
    if (code == ENOENT && above != path) {
        make(above);
        code = codeOf(::mkdir(path.constData(), S_IRWXU));
    }
    if (code == EEXIST)
        return;
    if (code != 0)
        throw FileError(code);
    const FileDescriptor folder(::openat(AT_FDCWD, above.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isValid() && ::fsync(folder.get()) != 0)
        throw FileError(errno);
}

DurableFolder::DurableFolder(const QByteArray &path)
    : m_folder(retried([&] { return ::openat(AT_FDCWD, path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }))
{
    if (!m_folder.isValid())
        throw FileError(errno);
    lock();
    removeLitter();
}

DurableFolder::~DurableFolder()
{
    // Where this fails, the file is litter for the next one.
    if (m_isDisposable)
        (void)::unlinkat(m_folder.get(), kTemporary, 0);
}

void DurableFolder::lock()
{
    for (int pauses = 0; retried([&] { return ::flock(m_folder.get(), LOCK_EX | LOCK_NB); }) != 0; ++pauses) {
        if (errno != EWOULDBLOCK)
            return;
        if (pauses == kMostPauses)
            throw FileError("the folder is busy");
        std::this_thread::sleep_for(kPause);
    }
    m_isLocked = true;
}

void DurableFolder::removeLitter() const
{
    struct stat status = {};
    if (!m_isLocked && ::fstatat(m_folder.get(), kTemporary, &status, AT_SYMLINK_NOFOLLOW) == 0
        && !isOlderThanLitter(status))
        throw FileError("the folder is busy");
    if (::unlinkat(m_folder.get(), kTemporary, 0) != 0 && errno != ENOENT)
        throw FileError(errno);
}

std::optional<DurableFolder::Entry> DurableFolder::look(const char *name, qint64 limit) const
{
    Entry entry;
    if (::fstatat(m_folder.get(), name, &entry.status, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno == ENOENT)
            return std::nullopt;
        throw FileError(errno);
    }
    entry.file = readFileAt(m_folder.get(), name, limit);
    if (entry.file.bytes || !entry.file.problem.isEmpty())
        return entry;
    if (!S_ISLNK(entry.status.st_mode))
        return std::nullopt;
    entry.file.problem = QStringLiteral("a link that leads nowhere");
    return entry;
}

FileDescriptor DurableFolder::makeTemporary(mode_t mode)
{
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    if (std::exchange(m_isDisposable, false))
        (void)::unlinkat(m_folder.get(), kTemporary, 0);
    FileDescriptor file(retried([&] { return ::openat(m_folder.get(), kTemporary, kFlags, mode); }));
    if (!file.isValid() && errno == EEXIST)
        throw FileError("the folder is busy");
    if (!file.isValid())
        throw FileError(errno);
    m_isDisposable = true;
    return file;
}

void DurableFolder::writeTemporary(const QByteArray &text, mode_t mode)
{
    const FileDescriptor file = makeTemporary(mode);
    writeAll(file.get(), text);
    bringToDisk(file.get());
}

DurableFolder::Entry DurableFolder::writeTemporary(const QByteArray &text, const struct stat &like)
{
    const FileDescriptor file = makeTemporary(S_IRUSR | S_IWUSR);
    Entry entry { {}, { text, {} } };
    if (::fstat(file.get(), &entry.status) != 0)
        throw FileError(errno);
    writeAll(file.get(), text);
    makeAlike(file.get(), entry.status, like);
    bringToDisk(file.get());
    return entry;
}

int DurableFolder::putNew(const char *name)
{
    int code = codeOf(::renameat2(m_folder.get(), kTemporary, m_folder.get(), name, RENAME_NOREPLACE));
    if (code == 0)
        m_isDisposable = false;
    return isUnsupported(code) ? linkNew(name) : code;
}

int DurableFolder::linkNew(const char *name)
{
    const int code = codeOf(::linkat(m_folder.get(), kTemporary, m_folder.get(), name, 0));
    if (isUnsupported(code) || code == EPERM)
        return reserveNew(name);
    // At once: a file of two names is one that other programs do not expect.
    if (code == 0)
        m_isDisposable = ::unlinkat(m_folder.get(), kTemporary, 0) != 0;
    return code;
}

int DurableFolder::reserveNew(const char *name)
{
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    const FileDescriptor reserved(::openat(m_folder.get(), name, kFlags, S_IRUSR | S_IWUSR));
    if (!reserved.isValid())
        return errno;
    const int code = putOver(name);
    if (code != 0)
        (void)::unlinkat(m_folder.get(), name, 0);
    return code;
}

int DurableFolder::exchange(const char *name)
{
    const int code = codeOf(::renameat2(m_folder.get(), kTemporary, m_folder.get(), name, RENAME_EXCHANGE));
    if (code == 0)
        m_isDisposable = false;
    return isUnsupported(code) ? EOPNOTSUPP : code;
}

int DurableFolder::putOver(const char *name)
{
    const int code = codeOf(::renameat(m_folder.get(), kTemporary, m_folder.get(), name));
    if (code == 0)
        m_isDisposable = false;
    return code;
}

int DurableFolder::takeAway(const char *name)
{
    int code = codeOf(::renameat2(m_folder.get(), name, m_folder.get(), kTemporary, RENAME_NOREPLACE));
    if (isUnsupported(code))
        code = codeOf(::renameat(m_folder.get(), name, m_folder.get(), kTemporary));
    if (code == 0)
        m_isDisposable = false;
    return code;
}

int DurableFolder::sync() const
{
    const int code = codeOf(retried([&] { return ::fsync(m_folder.get()); }));
    // Some network file systems have no such thing for folders.
    return code == EINVAL ? 0 : code;
}

} // namespace mintaro
