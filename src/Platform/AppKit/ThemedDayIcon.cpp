#include "Platform/AppKit/ThemedDayIcon.h"

#include "Platform/AppKit/PanelIcon.h"
#include "Platform/Foundation/Logger.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <iterator>

namespace mintaro {

namespace {

/// A folder of the theme and the grid of the drawings in it. GNOME shows 16 pixels, Xfce and Plasma mostly 22 or 24.
struct Folder
{
    const char *name;
    int gridSize;
};
constexpr Folder kFolders[] { { "16x16/apps", 16 }, { "22x22/apps", 22 }, { "24x24/apps", 24 },
    { "scalable/apps", 16 } };

constexpr char kThemeIndex[] = "[Icon Theme]\nName=hicolor\nComment=\n"
                               "Directories=16x16/apps,22x22/apps,24x24/apps,scalable/apps\n\n"
                               "[16x16/apps]\nSize=16\nType=Fixed\nContext=Applications\n\n"
                               "[22x22/apps]\nSize=22\nType=Fixed\nContext=Applications\n\n"
                               "[24x24/apps]\nSize=24\nType=Fixed\nContext=Applications\n\n"
                               "[scalable/apps]\nSize=16\nMinSize=8\nMaxSize=512\nType=Scalable\n"
                               "Context=Applications\n";

/// Does nothing where the file is there: its content goes with its name.
bool writeOnce(const QString &path, const QByteArray &content)
{
    if (QFileInfo::exists(path)) {
        return true;
    }
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
}

} // namespace

ThemedDayIcon::ThemedDayIcon()
    : m_themePath(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QLatin1String("/mintaro/icons"))
{
}

void ThemedDayIcon::setDay(const QString &day)
{
    m_name = QLatin1String("mintaro-%1-symbolic").arg(day);
    if (!writeFiles(day)) {
        Logger(QStringLiteral("Panel")).error(QLatin1String("No icon could be written below %1").arg(m_themePath));
        m_name.clear();
    }
}

bool ThemedDayIcon::writeFiles(const QString &day) const
{
    const QString file = QLatin1Char('/') + m_name + QLatin1String(".svg");
    const QString theme = m_themePath + QLatin1String("/hicolor/");
    const auto writeIn = [&](const Folder &folder) {
        const QString path = theme + QLatin1String(folder.name);
        return QDir().mkpath(path) && writeOnce(path + file, PanelIcon(day, folder.gridSize).svg());
    };
    return std::all_of(std::begin(kFolders), std::end(kFolders), writeIn)
        && writeOnce(theme + QLatin1String("index.theme"), kThemeIndex)
        && writeOnce(m_themePath + file, PanelIcon(day, kFolders[0].gridSize).svg());
}

} // namespace mintaro
