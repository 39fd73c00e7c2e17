#include "Platform/EventKit/Folders/BaseFolders.h"

#include <QDir>

namespace mintaro {

namespace {

QString absoluteOr(const char *variable, const QString &fallback)
{
    const QString value = qEnvironmentVariable(variable);
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value) : fallback;
}

} // namespace

BaseFolders BaseFolders::fromEnvironment()
{
    const QString home = QDir::homePath();
    BaseFolders folders;
    folders.home = home;
    folders.configHome = absoluteOr("XDG_CONFIG_HOME", home + QLatin1String("/.config"));
    folders.dataHome = absoluteOr("XDG_DATA_HOME", home + QLatin1String("/.local/share"));
    folders.cacheHome = absoluteOr("XDG_CACHE_HOME", home + QLatin1String("/.cache"));
    folders.stateHome = absoluteOr("XDG_STATE_HOME", home + QLatin1String("/.local/state"));
    folders.vdirsyncerConfiguration = folders.expanded(qEnvironmentVariable("VDIRSYNCER_CONFIG"));
    return folders;
}

QString BaseFolders::expanded(QString path) const
{
    if (path.isEmpty())
        return path;
    if (path == u'~' || path.startsWith(QLatin1String("~/")))
        path.replace(0, 1, home);
    const struct
    {
        const char *name;
        const QString &value;
    } variables[] = { { "HOME", home }, { "XDG_CONFIG_HOME", configHome }, { "XDG_DATA_HOME", dataHome } };
    for (const auto &variable : variables) {
        const QString name = QString::fromLatin1(variable.name);
        path.replace(QStringLiteral("${%1}").arg(name), variable.value);
        path.replace(QStringLiteral("$%1/").arg(name), variable.value + u'/');
    }
    return QDir::cleanPath(path);
}

} // namespace mintaro
