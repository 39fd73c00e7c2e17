#pragma once

#include "Platform/EventKit/StoreBackend.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

#include <dirent.h>
#include <sys/stat.h>

namespace mintaro {

/// What came of reading a file.
struct FileText
{
    std::optional<QByteArray> bytes;
    /// Why there are none; empty where there is simply no such file.
    QString problem;
};

/// Names in the file system are bytes. Those that are no UTF-8 cannot be a QString and come back the same, so they give
/// an empty value.
[[nodiscard]] std::optional<QString> fileName(const QByteArray &bytes);
/// A path as a log line takes it: control characters and what is no UTF-8 escaped.
[[nodiscard]] QString escapedPath(const QByteArray &path);
[[nodiscard]] QString escapedPath(const QString &path);
/// The path without symbolic links; empty where nothing is there or the name is no UTF-8.
[[nodiscard]] std::optional<QString> canonicalPath(const QString &path);
/// Whether a folder's entry of this name is a calendar object.
[[nodiscard]] bool isObjectName(const QString &name);
[[nodiscard]] ObjectRevision revisionOf(const struct stat &status);
/// The whole of a regular file of at most `limit` bytes. Neither a FIFO nor a device can hold the caller up.
[[nodiscard]] FileText readFile(const QString &path, qint64 limit);

/// An open folder. Operations follow symbolic links.
class Folder
{
public:
    /// Empty with errno set where it cannot be opened.
    [[nodiscard]] static std::optional<Folder> open(const QString &path);

    /// All entries but "." and "..", in the order of their bytes.
    [[nodiscard]] std::vector<QByteArray> names() const;
    /// Empty with errno set where there is none.
    [[nodiscard]] std::optional<struct stat> status(const QByteArray &name) const;
    [[nodiscard]] FileText read(const QByteArray &name, qint64 limit) const;

private:
    struct Closer
    {
        void operator()(DIR *folder) const { ::closedir(folder); }
    };
    std::unique_ptr<DIR, Closer> m_folder;
};

} // namespace mintaro
