#pragma once

#include "Platform/EventKit/Folders/FolderWatcher.h"
#include "Platform/EventKit/Folders/StoreConfiguration.h"
#include "Platform/EventKit/StoreBackend.h"
#include "Platform/Foundation/Logger.h"

#include <QMutex>
#include <QSet>

namespace mintaro {

class Folder;

/// Calendars as folders of .ics files (vdirsyncer's "vdir" convention): a source is a root folder, a collection one of
/// its sub-folders, an object a file in that. A collection's identifier is its canonical path, an object's name its
/// file name.
class FoldersBackend : public StoreBackend
{
public:
    /// `root`: shows this folder alone, whatever the user's configuration says.
    explicit FoldersBackend(BaseFolders baseFolders, std::optional<QString> root = std::nullopt,
        Logger logger = Logger(QStringLiteral("EventStore")));

    /// True too where a configured folder does not exist: it is waited for.
    [[nodiscard]] bool requestAccess() override;
    [[nodiscard]] std::vector<StoreCollection> collections() override;
    [[nodiscard]] std::vector<ObjectState> objects(const QString &collection) override;
    [[nodiscard]] std::optional<ObjectState> object(const QString &collection, const QString &name) override;
    [[nodiscard]] std::optional<QByteArray> read(const QString &collection, const QString &name) override;
    [[nodiscard]] QString describe(const QString &collection, const QString &name) const override;
    [[nodiscard]] WriteOutcome replace(
        const QString &collection, const QString &name, const QByteArray &base, const QByteArray &text) override;
    [[nodiscard]] WriteOutcome remove(const QString &collection, const QString &name, const QByteArray &base) override;
    [[nodiscard]] bool create(const QString &collection, const QString &name, const QByteArray &text) override;
    [[nodiscard]] QString newName(const QString &uid) const override;
    /// To be called before the first listing, so that no change falls between the two.
    void watch(std::function<void(const StoreChanges &)> handler) override;

private:
    /// Reads the configuration anew. One that makes no sense changes nothing and costs a line.
    void followConfiguration();
    /// One line for each path and problem, however often it is met. Thread-safe.
    void report(const QString &path, const QString &problem);
    void reportLine(const QString &line);
    /// Calls `write` with an item's path, where it may be written at all, and says of which item an error tells.
    template <typename Write>
    [[nodiscard]] auto writing(const QString &collection, const QString &name, const Write &write) const;
    [[nodiscard]] std::optional<ObjectState> stateOf(const Folder &folder, const QString &collection, const char *name);

    const BaseFolders m_baseFolders;
    const std::optional<QString> m_root;
    const Logger m_logger;
    std::optional<StoreConfiguration> m_configuration;
    bool m_isGranted = false;
    /// As they were found last.
    std::vector<StoreCollection> m_collections;
    QMutex m_mutex;
    /// Guarded by the mutex.
    QSet<QString> m_reported;
    FolderWatcher m_watcher;
};

} // namespace mintaro
