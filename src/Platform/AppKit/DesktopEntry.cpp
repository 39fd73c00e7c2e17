#include "Platform/AppKit/DesktopEntry.h"

#include "Platform/Foundation/Logger.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace mintaro {

namespace {

constexpr qint64 kLongestFile = 1 << 20;

QString unescaped(const QString &value)
{
    static const QHash<QChar, QChar> kEscapes { { u's', u' ' }, { u'n', u'\n' }, { u't', u'\t' }, { u'r', u'\r' },
        { u'\\', u'\\' } };
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == u'\\' && i + 1 < value.size() && kEscapes.contains(value[i + 1]);
        text.append(isEscape ? kEscapes[value[++i]] : value[i]);
    }
    return text;
}

} // namespace

QHash<QString, QString> desktopEntryValues(const QString &path)
{
    QFile file(path);
    QHash<QString, QString> values;
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return values;
    bool isInGroup = false;
    for (const QString &line : QString::fromUtf8(file.read(kLongestFile)).split(u'\n')) {
        if (line.startsWith(u'['))
            isInGroup = line.trimmed() == QLatin1String("[Desktop Entry]");
        else if (const qsizetype equals = line.indexOf(u'='); isInGroup && equals > 0)
            values.insert(line.first(equals).trimmed(), unescaped(line.sliced(equals + 1).trimmed()));
    }
    return values;
}

QStringList execArguments(const QString &exec, const QString &name)
{
    QStringList arguments;
    QString current;
    bool isQuoted = false;
    bool hasWord = false; // an empty pair of quotes is one, a field code without a file is none
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar c = exec[i];
        const QChar next = i + 1 < exec.size() ? exec[i + 1] : QChar();
        if (c == u'"') {
            isQuoted = !isQuoted;
            hasWord = true;
        } else if (isQuoted && c == u'\\' && QStringView(u"\"`$\\").contains(next)) {
            current.append(exec[++i]);
        } else if (isQuoted && c == u'%' && next == u'%') {
            current.append(exec[++i]);
        } else if (!isQuoted && c == u'%') {
            ++i;
            current.append(next == u'c' ? name : next == u'%' ? QStringLiteral("%") : QString());
        } else if (!isQuoted && c.isSpace()) {
            if (hasWord || !current.isEmpty())
                arguments.append(current);
            current.clear();
            hasWord = false;
        } else {
            current.append(c);
        }
    }
    if (hasWord || !current.isEmpty())
        arguments.append(current);
    return isQuoted ? QStringList() : arguments;
}

std::optional<DesktopEntry> DesktopEntry::find(const QString &identifier)
{
    if (identifier.isEmpty() || identifier.contains(u'/'))
        return std::nullopt;
    const auto values = desktopEntryValues(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, identifier));
    const QString name = values.value(QStringLiteral("Name"), identifier);
    const QStringList command = execArguments(values.value(QStringLiteral("Exec")), name);
    if (command.isEmpty() || values.value(QStringLiteral("Terminal")) == QLatin1String("true")
        || QStandardPaths::findExecutable(command.first()).isEmpty())
        return std::nullopt;
    return DesktopEntry { name, command };
}

bool DesktopEntry::start(const QStringList &arguments) const
{
    const bool isStarted = QProcess::startDetached(command.first(), command.sliced(1) + arguments);
    if (!isStarted)
        Logger(QStringLiteral("Workspace")).error(QStringLiteral("%1 could not be started").arg(command.first()));
    return isStarted;
}

} // namespace mintaro
