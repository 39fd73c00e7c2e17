#pragma once

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileError.h"
#include "Platform/Foundation/FileText.h"

#include <sys/stat.h>

namespace mintaro {

/// A folder that is open for writing. A text goes to a temporary file beside its place, to the disk, and only then to
/// its name, so that whatever happens a name has one whole text or another, or is not there.
///
/// Processes of ours take turns: the folder is locked (flock(2)) as long as the object lives. A temporary that stands
/// there after the lock was taken is what a killed process left, and goes. File systems without locks make do with the
/// temporary itself; there it goes when it is older than a minute.
class DurableFolder
{
public:
    /// vdirs reserve names that end in ".tmp" for this; nobody takes such a file for an item.
    static constexpr char kTemporary[] = ".mintaro.tmp";

    /// An entry at one moment.
    struct Entry
    {
        /// Of the entry itself, be it a link.
        struct stat status = {};
        /// What it leads to.
        FileText file;

        [[nodiscard]] bool holds(const QByteArray &text) const { return file.bytes == text; }
        /// The same file with the same text, as far as both can be read.
        [[nodiscard]] bool isSameAs(const Entry &other) const;
    };

    /// Makes a folder and those above it, for the user alone. One that exists is left as it is. Throws FileError.
    static void make(const QByteArray &path);

    /// Waits for its turn for at most five seconds, then throws FileError, as where the folder cannot be opened.
    explicit DurableFolder(const QByteArray &path);
    /// Removes the temporary, unless `exchange` or `takeAway` put something there that was not disposed of.
    ~DurableFolder();
    Q_DISABLE_COPY_MOVE(DurableFolder)

    /// Empty where there is no such entry. Throws FileError where it cannot be looked at; where only its text cannot be
    /// read, `file` says why.
    [[nodiscard]] std::optional<Entry> look(const char *name, qint64 limit) const;

    /// Writes the temporary and brings it to the disk. `mode` is subject to the umask. Throws FileError.
    void writeTemporary(const QByteArray &text, mode_t mode);
    /// The same with the permissions and, where that is allowed, the group of another file.
    Entry writeTemporary(const QByteArray &text, const struct stat &like);

    // What follows gives 0 or an errno, since the caller knows what that means at its point. The names are durable
    // after `sync`.

    /// Gives the temporary a name that no entry has; else EEXIST.
    [[nodiscard]] int putNew(const char *name);
    /// Swaps the temporary and an entry; EOPNOTSUPP where the file system cannot.
    [[nodiscard]] int exchange(const char *name);
    /// Puts the temporary in the place of an entry, whatever that is.
    [[nodiscard]] int putOver(const char *name);
    /// Makes an entry the temporary.
    [[nodiscard]] int takeAway(const char *name);
    [[nodiscard]] int sync() const;
    /// Says that nobody needs what the temporary holds.
    void disposeOfTemporary() { m_isDisposable = true; }

private:
    void lock();
    void removeLitter() const;
    [[nodiscard]] FileDescriptor makeTemporary(mode_t mode);
    [[nodiscard]] int linkNew(const char *name);
    [[nodiscard]] int reserveNew(const char *name);

    const FileDescriptor m_folder;
    bool m_isLocked = false;
    bool m_isDisposable = false;
};

} // namespace mintaro
