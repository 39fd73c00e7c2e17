#include "Platform/EventKit/StoreEditor.h"

namespace mintaro {

std::vector<ObjectText> StoreEditor::read(const QString &collection, const QStringList &names) const
{
    std::vector<ObjectText> texts;
    for (const QString &name : names) {
        if (auto text = m_backend.read(collection, name))
            texts.push_back({ name, std::move(*text) });
        else if (m_backend.object(collection, name))
            throw EKError(QStringLiteral("%1 cannot be read.").arg(m_backend.describe(collection, name)).toStdString());
    }
    return texts;
}

WriteOutcome StoreEditor::write(const StoreEdit &edit, const QString &collection, const QString &target)
{
    m_createdName.clear();
    if (edit.created)
        create(*edit.created, target);
    bool isFirst = true;
    for (const ObjectChange &change : edit.changes) {
        WriteOutcome outcome = WriteOutcome::Done;
        try {
            const bool isOrigin = isFirst && edit.created;
            outcome = writeOne(collection, change,
                isOrigin ? std::optional(ChangeJournal::Place { target, m_createdName }) : std::nullopt);
        } catch (const EKError &error) {
            if (isFirst) {
                takeBack(edit, target);
                throw;
            }
            m_logger.error(QString::fromUtf8(error.what()));
        }
        if (isFirst && outcome != WriteOutcome::Done) {
            takeBack(edit, target);
            return outcome;
        }
        // The first one holds the series; what another one holds of it besides can wait for the next change.
        if (outcome == WriteOutcome::Changed)
            m_logger.error(QStringLiteral("%1: changed by another program at the same moment, left as it is")
                               .arg(m_backend.describe(collection, change.name)));
        isFirst = false;
    }
    return WriteOutcome::Done;
}

void StoreEditor::create(const NewObject &object, const QString &target)
{
    QString name = object.name.isEmpty() ? m_backend.newName(object.uid) : object.name;
    // A name may be taken by an object of another UID.
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (m_backend.create(target, name, object.text)) {
            m_createdName = name;
            return;
        }
        name = m_backend.newName(QString());
    }
    throw EKError("No name is free for the new entry.");
}

void StoreEditor::takeBack(const StoreEdit &edit, const QString &target)
{
    if (m_createdName.isEmpty())
        return;
    try {
        // Who changed it within this moment wants it.
        static_cast<void>(m_backend.remove(target, m_createdName, edit.created->text));
    } catch (const EKError &error) {
        m_logger.error(QString::fromUtf8(error.what()));
    }
    m_createdName.clear();
}

WriteOutcome StoreEditor::writeOne(
    const QString &collection, const ObjectChange &change, const std::optional<ChangeJournal::Place> &created)
{
    using Reason = ChangeJournal::Reason;
    const QString entry = m_journal ? m_journal->keep({ collection, change.name }, change.base,
                              change.text ? Reason::Changed : Reason::Deleted, created)
                                    : QString();
    const auto discard = [&] {
        if (m_journal)
            m_journal->discard(entry);
    };
    try {
        const WriteOutcome outcome = change.text ? m_backend.replace(collection, change.name, change.base, *change.text)
                                                 : m_backend.remove(collection, change.name, change.base);
        if (outcome != WriteOutcome::Done)
            discard();
        return outcome;
    } catch (const EKError &) {
        discard();
        throw;
    }
}

} // namespace mintaro
