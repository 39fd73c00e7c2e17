#pragma once

#include "Platform/Foundation/Logger.h"

#include <QFileSystemWatcher>
#include <QMap>
#include <QObject>
#include <QSettings>
#include <QStringList>

#include <array>
#include <memory>
#include <optional>

namespace mintaro {

/// The preferences: a file of `Key=value` lines that people may write by hand while the program runs. Text stands raw;
/// booleans are 1, true, yes and 0, false, no in any case; lists and data carry a mark ("@array", "@data"). A file that
/// cannot be parsed or written is never written over: a log line says so, and changes last as long as the process, or
/// until a later one finds that the file can be written. Comments are read over, and gone once the program writes. For
/// the main thread.
class UserDefaults : public QObject
{
    Q_OBJECT

public:
    explicit UserDefaults(const QString &file, Logger logger = Logger(QStringLiteral("UserDefaults")));
    /// From now on the file is watched for changes from outside. A program that ends at once has no use for that, and
    /// giving up a watch costs the kernel longer than all else that such a program does.
    void follow();

    /// mintaro/mintaro.conf below the XDG config folder (XDG Base Directory Specification).
    [[nodiscard]] static QString standardFile();

    [[nodiscard]] bool hasObjectForKey(const QString &key) const;
    /// Empty where the key is absent or its text is no boolean.
    [[nodiscard]] std::optional<bool> boolForKey(const QString &key) const;
    /// 0 where the key is absent or its text is no integer.
    [[nodiscard]] int integerForKey(const QString &key) const;
    /// Empty where the key is absent or its text is no finite number.
    [[nodiscard]] std::optional<double> doubleForKey(const QString &key) const;
    /// Empty where the key is absent or holds a list or data.
    [[nodiscard]] std::optional<QString> stringForKey(const QString &key) const;
    /// Empty where the key is absent or holds no list of texts.
    [[nodiscard]] QStringList stringArrayForKey(const QString &key) const;
    /// Empty where the key is absent or holds no data.
    [[nodiscard]] QByteArray dataForKey(const QString &key) const;
    /// Every key with its value as it stands in the file.
    [[nodiscard]] QMap<QString, QString> dictionaryRepresentation() const { return m_values; }

    /// There are changes of this program's that the file does not hold, since it cannot be written.
    [[nodiscard]] bool hasUnsavedChanges() const { return !m_unsaved.isEmpty(); }

    void setBool(bool value, const QString &key);
    void setInteger(int value, const QString &key);
    void setDouble(double value, const QString &key);
    void setString(const QString &value, const QString &key);
    void setStringArray(const QStringList &value, const QString &key);
    void setData(const QByteArray &value, const QString &key);
    void removeObjectForKey(const QString &key);

Q_SIGNALS:
    /// The key's value changed, by this program or from outside.
    void changed(const QString &key);
    void hasUnsavedChangesChanged();

private:
    void write(const QString &key, const std::optional<QString> &value);
    void save();
    void openFile();
    void reload();
    void watchFile();
    [[nodiscard]] bool isUntouched();
    [[nodiscard]] QMap<QString, QString> readAll();

    const QString m_file;
    Logger m_logger;
    std::unique_ptr<QSettings> m_settings;
    bool m_isBroken = false;
    bool m_isReadOnly = false;
    QMap<QString, QString> m_values;
    /// Absent values are to be removed.
    QMap<QString, std::optional<QString>> m_unsaved;
    /// Of the file when it was last looked at: inode, size and time of change in ns; zeros where there was none.
    std::array<qint64, 3> m_state {};
    QFileSystemWatcher m_watcher;
};

} // namespace mintaro
