#pragma once

#include "Platform/EventKit/Folders/FolderWatcher.h"
#include "Platform/EventKit/Folders/StoreConfiguration.h"

#include <QSet>

#include <functional>
#include <vector>

namespace mintaro {

/// Finds the collections of the configured folders, as they are on disk now.
class CollectionScan
{
public:
    /// Takes a path and what is wrong there.
    using Report = std::function<void(const QString &path, const QString &problem)>;

    CollectionScan(const StoreConfiguration &configuration, const Report &report);

    /// In the order of the configuration; within a root by the file "order", then by name. A folder that is reached in
    /// several ways counts once.
    [[nodiscard]] const std::vector<StoreCollection> &collections() const { return m_collections; }
    [[nodiscard]] const WatchedFolders &watched() const { return m_watched; }

private:
    struct Found;

    /// Has a file of the configuration watched, and the one that it is a link to.
    void watchFile(const QString &file);
    void addRoot(const ConfiguredFolder &configured, const QString &root);
    [[nodiscard]] std::optional<Found> examine(
        const ConfiguredFolder &configured, const QString &path, const QString &source);
    void add(const Found &found);

    const StoreConfiguration &m_configuration;
    const Report &m_report;
    QString m_defaultCalendar;
    QString m_defaultReminders;
    QSet<QString> m_known;
    std::vector<StoreCollection> m_collections;
    WatchedFolders m_watched;
};

} // namespace mintaro
