#pragma once

#include "Platform/EventKit/StoreBackend.h"
#include "Platform/Foundation/FileText.h"

#include <memory>
#include <optional>

#include <dirent.h>
#include <sys/stat.h>

namespace mintaro {

/// The largest object that is read, in bytes.
inline constexpr qint64 kLargestObject = 8 * 1024 * 1024;

/// The path without symbolic links; empty, with errno set, where it leads nowhere.
[[nodiscard]] std::optional<QByteArray> realPath(const QByteArray &path);
/// The same; empty too where the name is no UTF-8.
[[nodiscard]] std::optional<QString> canonicalPath(const QByteArray &path);
[[nodiscard]] std::optional<QString> canonicalPath(const QString &path);
/// Whether a folder's entry of this name is a calendar object.
[[nodiscard]] bool isObjectName(const QString &name);
[[nodiscard]] bool isObjectName(QByteArrayView name);
/// To be called right after the status was taken, and before the file is read. The time of the last change of the
/// status is in it, for writers can set that of the content. A file that was changed less than 50 ms ago has a revision
/// that does not stay: another change may bear the same time, so it has to be looked at again.
[[nodiscard]] ObjectRevision revisionOf(const struct stat &status);

/// An open folder. Operations follow symbolic links.
class Folder
{
public:
    /// Empty with errno set where it cannot be opened.
    [[nodiscard]] static std::optional<Folder> open(const QString &path);

    /// Calls `visit` with the dirent of each entry but "." and "..", in no order.
    template <typename Visit>
    void forEach(const Visit &visit) const
    {
        ::rewinddir(m_folder.get());
        while (const dirent *entry = ::readdir(m_folder.get())) {
            const QByteArrayView name(entry->d_name);
            if (name != "." && name != "..")
                visit(*entry);
        }
    }
    [[nodiscard]] std::optional<struct stat> status(const char *name) const;
    /// Why an entry has no status; empty where it has one by now, and where there is simply no such entry.
    [[nodiscard]] QString problem(const char *name) const;
    [[nodiscard]] FileText read(const char *name, qint64 limit) const;

private:
    struct Closer
    {
        void operator()(DIR *folder) const { ::closedir(folder); }
    };
    std::unique_ptr<DIR, Closer> m_folder;
};

} // namespace mintaro
