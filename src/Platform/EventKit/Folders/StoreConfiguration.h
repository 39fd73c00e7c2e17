#pragma once

#include "Platform/EventKit/Folders/BaseFolders.h"
#include "Platform/Foundation/Color.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace mintaro {

/// A folder of calendars that the user's configuration names.
struct ConfiguredFolder
{
    enum class Kind {
        Root, ///< Its sub-folders are collections.
        Collection ///< It is a collection itself.
    };

    QString path; ///< Absolute. Nothing need be there.
    Kind kind = Kind::Root;
    /// Which sub-folders of a root count (fnmatch(3)).
    QString pattern = QStringLiteral("*");
    /// For collections that have no colour of their own.
    std::optional<Color> color {};
    bool isReadOnly = false;
    /// The user's own e-mail addresses in it, besides those that hold everywhere.
    QStringList addresses {};

    friend bool operator==(const ConfiguredFolder &, const ConfiguredFolder &) = default;
};

/// Where the user keeps calendars, and who the user is.
struct StoreConfiguration
{
    std::vector<ConfiguredFolder> folders;
    /// The user's own e-mail addresses, in lower case.
    QStringList addresses;
    /// Paths of collections; empty where the user named none.
    QString defaultCalendar;
    QString defaultReminders;
    /// The only folder is a root of our own, which we may make.
    bool isOwnRoot = false;
    /// The files that it was read from, whether they are there or not: a change of one may make it another.
    QStringList files;

    /// Reads mintaro/store.conf below the XDG config folder. Where it names no root, the folders of khal's and
    /// vdirsyncer's configuration are taken; where these name none, a root of our own below the XDG data folder. Throws
    /// EKError with file and line where store.conf makes no sense.
    [[nodiscard]] static StoreConfiguration load(const BaseFolders &baseFolders);
    /// One root and nothing else, whatever the configuration says.
    [[nodiscard]] static StoreConfiguration forRoot(const QString &path);
    /// Where store.conf is to be found.
    [[nodiscard]] static QString filePath(const BaseFolders &baseFolders);
};

} // namespace mintaro
