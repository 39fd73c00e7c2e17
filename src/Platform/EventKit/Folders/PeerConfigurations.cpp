#include "Platform/EventKit/Folders/PeerConfigurations.h"

#include "Platform/EventKit/Folders/Folder.h"
#include "Platform/EventKit/Folders/IniFile.h"

#include <QDir>

#include <glob.h>

namespace mintaro {

namespace {

constexpr qint64 kLargestConfiguration = 1024 * 1024;

std::vector<IniSection> sectionsOf(const QString &path)
{
    return readIni(QString::fromUtf8(readFile(path, kLargestConfiguration).bytes.value_or(QByteArray())));
}

bool hasWildcard(const QString &text)
{
    return text.contains(u'*') || text.contains(u'?') || text.contains(u'[');
}

/// The paths that match a pattern of glob(3); the pattern itself where it has no wildcard.
std::vector<QString> matchingPaths(const QString &pattern)
{
    if (!hasWildcard(pattern))
        return { pattern };
    std::vector<QString> paths;
    glob_t found {};
    if (::glob(pattern.toUtf8().constData(), 0, nullptr, &found) == 0) {
        for (std::size_t i = 0; i < found.gl_pathc; ++i) {
            if (std::optional<QString> path = fileName(found.gl_pathv[i]))
                paths.push_back(*path);
        }
    }
    ::globfree(&found);
    return paths;
}

QStringList addressesOf(const QString &value)
{
    QStringList addresses;
    for (const QString &address : value.toLower().split(u',', Qt::SkipEmptyParts))
        addresses.append(address.trimmed());
    return addresses;
}

bool isTrue(const QString &value)
{
    static const QStringList words { QStringLiteral("true"), QStringLiteral("yes"), QStringLiteral("on"),
        QStringLiteral("1") };
    return words.contains(value.toLower());
}

/// "discover" takes a glob, all others one folder.
void addKhalCalendar(std::vector<ConfiguredFolder> &folders, const IniSection &section, const BaseFolders &baseFolders)
{
    const QString path = baseFolders.expanded(section.value(QStringLiteral("path")));
    const QString type = section.value(QStringLiteral("type"));
    if (!QDir::isAbsolutePath(path) || type == QLatin1String("birthdays"))
        return;
    ConfiguredFolder folder;
    folder.color = Color::fromHex(section.value(QStringLiteral("color")));
    folder.isReadOnly = isTrue(section.value(QStringLiteral("readonly")));
    folder.addresses = addressesOf(section.value(QStringLiteral("addresses")));
    if (type != QLatin1String("discover") || !hasWildcard(path)) {
        folder.path = path;
        folder.kind = ConfiguredFolder::Kind::Collection;
        folders.push_back(folder);
        return;
    }
    // The last part stays a pattern, so that a calendar that comes later is found too.
    const qsizetype slash = path.lastIndexOf(u'/');
    folder.pattern = path.mid(slash + 1);
    for (const QString &root : matchingPaths(slash == 0 ? QStringLiteral("/") : path.left(slash))) {
        folder.path = root;
        folders.push_back(folder);
    }
}

QString khalConfigurationPath(const BaseFolders &baseFolders)
{
    return baseFolders.configHome + QLatin1String("/khal/config");
}

/// The first that is there counts.
QStringList vdirsyncerConfigurationPaths(const BaseFolders &baseFolders)
{
    if (!baseFolders.vdirsyncerConfiguration.isEmpty())
        return { baseFolders.vdirsyncerConfiguration };
    return { baseFolders.home + QLatin1String("/.vdirsyncer/config"),
        baseFolders.configHome + QLatin1String("/vdirsyncer/config") };
}

std::vector<IniSection> vdirsyncerSections(const BaseFolders &baseFolders)
{
    const QStringList paths = vdirsyncerConfigurationPaths(baseFolders);
    return sectionsOf(canonicalPath(paths.first()) ? paths.first() : paths.last());
}

} // namespace

QStringList peerFiles(const BaseFolders &baseFolders)
{
    return QStringList { khalConfigurationPath(baseFolders) } + vdirsyncerConfigurationPaths(baseFolders);
}

std::vector<ConfiguredFolder> khalFolders(const BaseFolders &baseFolders)
{
    std::vector<ConfiguredFolder> folders;
    for (const IniSection &section : sectionsOf(khalConfigurationPath(baseFolders))) {
        if (section.name.startsWith(QLatin1String("calendars/")))
            addKhalCalendar(folders, section, baseFolders);
    }
    return folders;
}

std::vector<ConfiguredFolder> vdirsyncerFolders(const BaseFolders &baseFolders)
{
    std::vector<ConfiguredFolder> folders;
    for (const IniSection &section : vdirsyncerSections(baseFolders)) {
        const QString path = baseFolders.expanded(section.value(QStringLiteral("path")));
        if (section.name.startsWith(QLatin1String("storage "))
            && section.value(QStringLiteral("type")) == QLatin1String("filesystem")
            && section.value(QStringLiteral("fileext")) == QLatin1String(".ics") && QDir::isAbsolutePath(path))
            folders.push_back({ .path = path });
    }
    return folders;
}

} // namespace mintaro
