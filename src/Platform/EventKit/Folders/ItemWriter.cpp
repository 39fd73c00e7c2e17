#include "Platform/EventKit/Folders/ItemWriter.h"

#include "Platform/EventKit/Folders/Folder.h"

#include <QUuid>

#include <cerrno>

namespace mintaro {

namespace {

/// Whether an entry holds this text. Throws FileError where that cannot be told.
bool mustHold(const DurableFolder::Entry &entry, const QByteArray &text)
{
    if (!entry.file.bytes)
        throw FileError(entry.file.problem.toStdString());
    return entry.holds(text);
}

} // namespace

ItemWriter::ItemWriter(const QByteArray &folder, QByteArray name)
    : m_folder(folder)
    , m_name(std::move(name))
{
}

std::optional<ItemWriter::Entry> ItemWriter::item() const
{
    return m_folder.look(m_name.constData(), kLargestObject);
}

std::optional<ItemWriter::Entry> ItemWriter::temporary() const
{
    return m_folder.look(DurableFolder::kTemporary, kLargestObject);
}

std::optional<ItemWriter::Entry> ItemWriter::temporaryIfKnown() const
{
    try {
        return temporary();
    } catch (const FileError &) {
        return std::nullopt;
    }
}

WriteOutcome ItemWriter::replace(const QByteArray &base, const QByteArray &text)
{
    const std::optional<Entry> old = item();
    if (!old || !mustHold(*old, base))
        return old ? WriteOutcome::Changed : WriteOutcome::Gone;
    const Entry ours = m_folder.writeTemporary(text, old->status);
    const int code = m_folder.exchange(m_name.constData());
    if (code == 0)
        return settle(base, [&] { exchangeBack(ours); });
    if (code == EOPNOTSUPP)
        return replaceByRename(*old, text);
    if (code == ENOENT && !item())
        return WriteOutcome::Gone;
    throw FileError(code);
}

WriteOutcome ItemWriter::replaceByRename(const Entry &old, const QByteArray &text)
{
    const std::optional<Entry> now = item();
    if (!now || !mustHold(*now, *old.file.bytes))
        return now ? WriteOutcome::Changed : WriteOutcome::Gone;
    if (const int code = m_folder.putOver(m_name.constData()); code != 0)
        throw FileError(code);
    const int code = m_folder.sync();
    if (code == 0)
        return WriteOutcome::Done;
    const std::optional<Entry> ours = item();
    if (ours && ours->holds(text)) {
        m_folder.writeTemporary(*old.file.bytes, old.status);
        (void)m_folder.putOver(m_name.constData());
    }
    throw FileError(code);
}

WriteOutcome ItemWriter::remove(const QByteArray &base)
{
    const std::optional<Entry> old = item();
    if (!old || !mustHold(*old, base))
        return old ? WriteOutcome::Changed : WriteOutcome::Gone;
    const int code = m_folder.takeAway(m_name.constData());
    if (code == ENOENT)
        return WriteOutcome::Gone;
    if (code != 0)
        throw FileError(code);
    return settle(base, [this] { putBack(); });
}

bool ItemWriter::create(const QByteArray &text)
{
    constexpr mode_t kAsTheUmaskSays = 0666;
    m_folder.writeTemporary(text, kAsTheUmaskSays);
    int code = m_folder.putNew(m_name.constData());
    if (code == EEXIST)
        return false;
    if (code == 0) {
        code = m_folder.sync();
        if (code == 0)
            return true;
        withdraw(text);
    }
    throw FileError(code);
}

template <typename Undo>
WriteOutcome ItemWriter::settle(const QByteArray &base, const Undo &undo)
{
    bool isDone = false;
    try {
        isDone = hasDisplaced(base);
    } catch (const FileError &) {
        undo();
        throw;
    }
    if (isDone)
        m_folder.disposeOfTemporary();
    else
        undo();
    return isDone ? WriteOutcome::Done : WriteOutcome::Changed;
}

bool ItemWriter::hasDisplaced(const QByteArray &base) const
{
    const std::optional<Entry> displaced = temporary();
    if (!displaced || !mustHold(*displaced, base))
        return false;
    if (const int code = m_folder.sync(); code != 0)
        throw FileError(code);
    return true;
}

void ItemWriter::exchangeBack(Entry standing)
{
    for (;;) {
        const std::optional<Entry> displaced = temporaryIfKnown();
        const int code = m_folder.exchange(m_name.constData());
        if (code == ENOENT) {
            putBack();
            return;
        }
        if (code != 0) {
            keepAside();
            throw FileError(code);
        }
        const std::optional<Entry> out = temporaryIfKnown();
        if (out && out->isSameAs(standing))
            break;
        if (!displaced || !out) {
            keepAside();
            return;
        }
        // Somebody wrote meanwhile: what came out is newer than what was put back.
        standing = *displaced;
    }
    m_folder.disposeOfTemporary();
    (void)m_folder.sync();
}

void ItemWriter::putBack()
{
    const int code = m_folder.putNew(m_name.constData());
    if (code != 0)
        keepAside();
    if (code != 0 && code != EEXIST)
        throw FileError(code);
    (void)m_folder.sync();
}

void ItemWriter::keepAside()
{
    const QByteArray name = QUuid::createUuid().toByteArray(QUuid::WithoutBraces) + ".ics";
    if (const int code = m_folder.putNew(name.constData()); code != 0)
        throw FileError(code);
}

void ItemWriter::withdraw(const QByteArray &text)
{
    if (m_folder.takeAway(m_name.constData()) != 0)
        return;
    const std::optional<Entry> taken = temporary();
    if (taken && taken->holds(text))
        m_folder.disposeOfTemporary();
    else
        putBack();
}

} // namespace mintaro
