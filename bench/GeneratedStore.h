#pragma once

#include <QString>
#include <QTemporaryDir>

namespace mintaro::bench {

/// A root folder of 20 calendars with 500 items each, a tenth of them recurring, from 2024 to 2028. The same at each
/// run; it is gone with the object.
class GeneratedStore
{
public:
    static constexpr int kCollections = 20;
    static constexpr int kItemsPerCollection = 500;
    static constexpr int kItems = kCollections * kItemsPerCollection;

    /// Throws std::runtime_error where the temporary folder cannot be written.
    GeneratedStore();

    [[nodiscard]] QString root() const { return m_folder.filePath(QStringLiteral("calendars")); }
    /// A file for preferences, which does not exist.
    [[nodiscard]] QString preferences() const { return m_folder.filePath(QStringLiteral("preferences")); }

private:
    QTemporaryDir m_folder;
};

} // namespace mintaro::bench
