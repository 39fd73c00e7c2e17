#pragma once

#include "Platform/EventKit/StoreBackend.h"
#include "Platform/Foundation/DurableFolder.h"

#include <QByteArray>

namespace mintaro {

/// Writes one item of a vdir. Other programs write at any time and know no lock of ours; so what a change displaces is
/// looked at afterwards, and where it is not what it should be, the change is undone. What others write by rename is
/// never lost; one who writes in place in that moment may write to a file that has just lost its name.
///
/// A change whose names cannot be brought to the disk (fsync(2) of the folder) is undone too, and is an error. Where
/// undoing fails as well, what was displaced becomes an item of its own.
///
/// All members throw FileError, and have then changed nothing, as far as the disk lets them undo.
class ItemWriter
{
public:
    /// `folder`: not a link itself. An item's name in it.
    ItemWriter(const QByteArray &folder, QByteArray name);

    /// The name must not be that of a symbolic link: the link would go.
    [[nodiscard]] WriteOutcome replace(const QByteArray &base, const QByteArray &text);
    /// A symbolic link is compared by what it leads to, and removed itself.
    [[nodiscard]] WriteOutcome remove(const QByteArray &base);
    /// False where an entry of that name exists, be it a link that leads nowhere.
    [[nodiscard]] bool create(const QByteArray &text);

private:
    using Entry = DurableFolder::Entry;

    [[nodiscard]] std::optional<Entry> item() const;
    [[nodiscard]] std::optional<Entry> temporary() const;
    [[nodiscard]] std::optional<Entry> temporaryIfKnown() const;
    /// The way of file systems that cannot exchange two files.
    [[nodiscard]] WriteOutcome replaceByRename(const Entry &old, const QByteArray &text);
    /// Ends a change that displaced something: durably where that is `base`, else by undoing it.
    template <typename Undo>
    [[nodiscard]] WriteOutcome settle(const QByteArray &base, const Undo &undo);
    /// Whether `base` was displaced, and that is durable.
    [[nodiscard]] bool hasDisplaced(const QByteArray &base) const;
    /// Puts what was displaced back in the place of `standing`. What somebody wrote over that meanwhile stays.
    void exchangeBack(Entry standing);
    /// Puts what was displaced back. What somebody created there meanwhile stays.
    void putBack();
    void keepAside();
    /// Makes the name free again that `create` took.
    void withdraw(const QByteArray &text);

    DurableFolder m_folder;
    const QByteArray m_name;
};

} // namespace mintaro
