#pragma once

#include <QString>
#include <QTemporaryDir>

namespace mintaro {

/// A folder that comes into being as a whole or not at all: it is filled under a temporary name beside its place and
/// then renamed. Left unfinished, it is removed again.
class NewFolder
{
public:
    /// `path`: absolute; the folders above it are made. Throws EKError where that cannot be done.
    explicit NewFolder(const QString &path);

    /// Writes a file below the folder, and the folders above it. Throws EKError.
    void write(const QString &relativePath, const QByteArray &bytes);
    /// Gives the folder its name. Throws EKError where something is there already, an empty folder apart.
    void finish();

private:
    const QString m_path;
    QTemporaryDir m_draft;
};

} // namespace mintaro
