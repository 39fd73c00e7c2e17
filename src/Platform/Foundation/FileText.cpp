#include "Platform/Foundation/FileText.h"

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/Retried.h"

#include <algorithm>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>

namespace mintaro {

namespace {

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
    const auto readChunk = [&] { return retried([&] { return ::read(descriptor, chunk, sizeof chunk); }); };
    ssize_t size = 0;
    while ((size = readChunk()) > 0 && bytes.size() <= limit)
        bytes.append(chunk, size);
    if (size < 0)
        return problemOfErrno();
    if (bytes.size() > limit)
        return problem(QStringLiteral("larger than %1 bytes").arg(limit));
    return { bytes, {} };
}

} // namespace

FileText readFile(const QString &path, qint64 limit)
{
    return readFileAt(AT_FDCWD, path.toUtf8().constData(), limit);
}

FileText readFileAt(int folder, const char *name, qint64 limit)
{
    // Opening a FIFO for reading waits for a writer unless O_NONBLOCK is given.
    const FileDescriptor file(
        retried([&] { return ::openat(folder, name, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY); }));
    struct stat status = {};
    if (!file.isValid() || ::fstat(file.get(), &status) != 0)
        return problemOfErrno();
    if (!S_ISREG(status.st_mode))
        return problem(QStringLiteral("no regular file"));
    if (status.st_size > limit)
        return problem(QStringLiteral("larger than %1 bytes").arg(limit));
    return readAll(file.get(), limit);
}

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

} // namespace mintaro
