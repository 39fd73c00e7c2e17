#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace mintaro {

/// What came of reading a file.
struct FileText
{
    std::optional<QByteArray> bytes;
    /// Why there are none; empty where there is simply no such file.
    QString problem;
};

/// The whole of a regular file of at most `limit` bytes. Neither a FIFO nor a device can hold the caller up.
[[nodiscard]] FileText readFile(const QString &path, qint64 limit);
/// The same of an entry of an open folder.
[[nodiscard]] FileText readFileAt(int folder, const char *name, qint64 limit);

/// Names in the file system are bytes. Those that are no UTF-8 cannot be a QString and come back the same, so they give
/// an empty value.
[[nodiscard]] std::optional<QString> fileName(QByteArrayView bytes);
/// A path as a log line takes it: control characters and what is no UTF-8 escaped.
[[nodiscard]] QString escapedPath(const QByteArray &path);
[[nodiscard]] QString escapedPath(const QString &path);

} // namespace mintaro
