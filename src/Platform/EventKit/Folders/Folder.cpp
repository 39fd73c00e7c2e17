#include "Platform/EventKit/Folders/Folder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <time.h>

namespace mintaro {

namespace {

/// Longer than a tick of the kernel's clock, shorter than the quiet that ends a burst of changes.
constexpr std::int64_t kSettling = 50'000'000;

std::int64_t nanoseconds(const timespec &time)
{
    return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

} // namespace

std::optional<QByteArray> realPath(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return real ? std::optional(QByteArray(real.get())) : std::nullopt;
}

std::optional<QString> canonicalPath(const QByteArray &path)
{
    const std::optional<QByteArray> real = realPath(path);
    return real ? fileName(*real) : std::nullopt;
}

std::optional<QString> canonicalPath(const QString &path)
{
    return canonicalPath(path.toUtf8());
}

bool isObjectName(const QString &name)
{
    return name.endsWith(QLatin1String(".ics"));
}

bool isObjectName(QByteArrayView name)
{
    return name.endsWith(".ics");
}

ObjectRevision revisionOf(const struct stat &status)
{
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const std::int64_t changed = nanoseconds(status.st_ctim);
    const std::int64_t age = nanoseconds(now) - changed;
    // A time to come is that of a clock that was set back; it must not be read again for ever.
    const bool isSettled = age < 0 || age > kSettling;
    return { static_cast<std::int64_t>(status.st_ino), status.st_size, nanoseconds(status.st_mtim),
        isSettled ? changed : 0 };
}

std::optional<Folder> Folder::open(const QString &path)
{
    Folder folder;
    folder.m_folder.reset(::opendir(path.toUtf8().constData()));
    return folder.m_folder ? std::optional(std::move(folder)) : std::nullopt;
}

std::optional<struct stat> Folder::status(const char *name) const
{
    struct stat status = {};
    if (::fstatat(::dirfd(m_folder.get()), name, &status, 0) != 0)
        return std::nullopt;
    return status;
}

QString Folder::problem(const char *name) const
{
    if (status(name))
        return {};
    if (errno != ENOENT)
        return QString::fromLocal8Bit(std::strerror(errno));
    struct stat status = {};
    const bool isThere = ::fstatat(::dirfd(m_folder.get()), name, &status, AT_SYMLINK_NOFOLLOW) == 0;
    return isThere ? QStringLiteral("a link that leads nowhere") : QString();
}

FileText Folder::read(const char *name, qint64 limit) const
{
    return readFileAt(::dirfd(m_folder.get()), name, limit);
}

} // namespace mintaro
