#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace mintaro {

/// How an installed program is started, from its file by the Desktop Entry Specification.
struct DesktopEntry
{
    QString name;
    /// The program and its arguments, without any files to open; never empty.
    QStringList command;

    /// By an identifier such as "org.gnome.Calendar.desktop". Nothing where no such program is installed, or where it
    /// wants a terminal. Reads the file system.
    [[nodiscard]] static std::optional<DesktopEntry> find(const QString &identifier);

    /// Starts the program, which then lives by itself, with further arguments. False where that fails, which is logged.
    bool start(const QStringList &arguments = {}) const;
};

/// The keys of the group [Desktop Entry] of a file, without translations; escapes are resolved. None where it cannot be
/// read.
[[nodiscard]] QHash<QString, QString> desktopEntryValues(const QString &path);

/// The arguments of an Exec line (Desktop Entry Specification, "The Exec key"), its field codes for files left out and
/// "%c" filled with `name`. Empty where a quote is not closed.
[[nodiscard]] QStringList execArguments(const QString &exec, const QString &name);

} // namespace mintaro
