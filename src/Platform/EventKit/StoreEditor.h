#pragma once

#include "Platform/EventKit/ChangeJournal.h"
#include "Platform/EventKit/StoreBackend.h"
#include "Platform/EventKit/Writing/StoreEdit.h"
#include "Platform/Foundation/Logger.h"

namespace mintaro {

/// Carries out a change in a store: keeps a copy of what goes, writes, and takes back what was begun where it fails.
class StoreEditor
{
public:
    /// All must outlive the object. `journal` may be null.
    StoreEditor(StoreBackend &backend, ChangeJournal *journal, const Logger &logger)
        : m_backend(backend)
        , m_journal(journal)
        , m_logger(logger)
    {
    }

    /// The present texts of these objects; those that are gone are left out. Throws EKError for one that cannot be
    /// read.
    [[nodiscard]] std::vector<ObjectText> read(const QString &collection, const QStringList &names) const;
    /// The changes are for objects of `collection`; what is created comes into `target`. All or nothing was done, and
    /// unless the outcome is Done, it was nothing. Throws EKError.
    [[nodiscard]] WriteOutcome write(const StoreEdit &edit, const QString &collection, const QString &target);
    /// What the last `write` created; empty for nothing.
    [[nodiscard]] const QString &createdName() const { return m_createdName; }

private:
    void create(const NewObject &object, const QString &target);
    void takeBack(const StoreEdit &edit, const QString &target);
    [[nodiscard]] WriteOutcome writeOne(
        const QString &collection, const ObjectChange &change, const std::optional<ChangeJournal::Place> &created);

    StoreBackend &m_backend;
    ChangeJournal *const m_journal;
    const Logger &m_logger;
    QString m_createdName;
};

} // namespace mintaro
