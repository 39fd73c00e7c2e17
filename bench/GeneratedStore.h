#pragma once

#include <QString>
#include <QTemporaryDir>

namespace mintaro::bench {

/// A root folder of 20 calendars, a tenth of their items recurring, from 2024 to 2028. The same at each run; it is gone
/// with the object.
class GeneratedStore
{
public:
    /// `past`: so many items besides, which happen once and ended years before the others begin. `reminders`: so many
    /// of these, one a day. Throws std::runtime_error where the temporary folder cannot be written.
    explicit GeneratedStore(int items, int past = 0, int reminders = 0);

    [[nodiscard]] int items() const { return m_items; }
    /// Of all files together.
    [[nodiscard]] qint64 bytes() const { return m_bytes; }
    [[nodiscard]] QString root() const { return m_folder.filePath(QStringLiteral("calendars")); }
    /// A file for preferences, which does not exist.
    [[nodiscard]] QString preferences() const { return m_folder.filePath(QStringLiteral("preferences")); }
    /// Folders for an index: one that stays, and one that is new each time.
    [[nodiscard]] QString cache() const { return m_folder.filePath(QStringLiteral("cache")); }
    [[nodiscard]] QString newCache();

private:
    QTemporaryDir m_folder;
    int m_items = 0;
    qint64 m_bytes = 0;
    int m_caches = 0;
};

} // namespace mintaro::bench
