#include "Platform/EventKit/Folders/Folder.h"

#include "Platform/EventKit/Folders/FileDescriptor.h"

#include <algorithm>
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

FileText problem(const QString &text)
{
    return { std::nullopt, text };
}

FileText problemOfErrno()
{
    return problem(errno == ENOENT ? QString() : QString::fromLocal8Bit(std::strerror(errno)));
}

FileText readAll(int descriptor, qint64 limit)
{
    QByteArray bytes;
    char chunk[64 * 1024];
    ssize_t size = 0;
    while ((size = ::read(descriptor, chunk, sizeof chunk)) > 0 && bytes.size() <= limit)
        bytes.append(chunk, size);
    if (size < 0)
        return problemOfErrno();
    if (bytes.size() > limit)
        return problem(QStringLiteral("larger than %1 bytes").arg(limit));
    return { bytes, {} };
}

FileText readFileAt(int folder, const char *name, qint64 limit)
{
    // Opening a FIFO for reading waits for a writer unless O_NONBLOCK is given.
    const FileDescriptor file(::openat(folder, name, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    struct stat status = {};
    if (!file.isValid() || ::fstat(file.get(), &status) != 0)
        return problemOfErrno();
    if (!S_ISREG(status.st_mode))
        return problem(QStringLiteral("no regular file"));
    if (status.st_size > limit)
        return problem(QStringLiteral("larger than %1 bytes").arg(limit));
    return readAll(file.get(), limit);
}

} // namespace

std::optional<QString> fileName(QByteArrayView bytes)
{
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    if (std::all_of(bytes.begin(), bytes.end(), isAscii))
        return QString::fromLatin1(bytes);
    QString name = QString::fromUtf8(bytes);
    return name.toUtf8() == bytes ? std::optional(std::move(name)) : std::nullopt;
}

QString escapedPath(const QByteArray &path)
{
    const std::optional<QString> text = fileName(path);
    QByteArray escaped;
    for (const char byte : path) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20 || code == 0x7f || (code >= 0x80 && !text))
            escaped += "\\x" + QByteArray(1, byte).toHex();
        else
            escaped += byte;
    }
    return QString::fromUtf8(escaped);
}

QString escapedPath(const QString &path)
{
    return escapedPath(path.toUtf8());
}

std::optional<QString> canonicalPath(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr), &std::free);
    return real ? fileName(real.get()) : std::nullopt;
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

FileText readFile(const QString &path, qint64 limit)
{
    return readFileAt(AT_FDCWD, path.toUtf8().constData(), limit);
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
