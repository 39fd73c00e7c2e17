#include "Platform/ServiceManagement/SMAppService.h"

#include "Platform/AppKit/DesktopEntry.h"
#include "Platform/Foundation/DurableFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QStandardPaths>

namespace mintaro {

namespace {

constexpr mode_t kForAll = 0644;
constexpr qint64 kLongestEntry = 1 << 20;
const QString kHidden = QStringLiteral("Hidden");
/// By which some desktops switch an entry off.
const QString kEnabled = QStringLiteral("X-GNOME-Autostart-enabled");

QString entryIn(const QString &folder)
{
    return folder + u'/' + QLatin1String(SMAppService::kEntryName);
}

bool startsSomething(const QString &path)
{
    const auto values = desktopEntryValues(path);
    const auto program = [](const QString &name) { return QStandardPaths::findExecutable(name); };
    const QStringList command = execArguments(values.value(QStringLiteral("Exec")), {});
    return values.value(kHidden) != QLatin1String("true") && values.value(kEnabled) != QLatin1String("false")
        && !command.isEmpty() && !program(command.first()).isEmpty()
        && !program(values.value(QStringLiteral("TryExec"), command.first())).isEmpty();
}

/// A text as the value of a key (Desktop Entry Specification, "Possible value types").
QString escaped(QString text)
{
    text.replace(u'\\', QLatin1String("\\\\"));
    return text.replace(u'\n', QLatin1String("\\n")).replace(u'\t', QLatin1String("\\t"));
}

/// A path as an Exec line (Desktop Entry Specification, "The Exec key"), before it becomes a value.
QString execLine(QString path)
{
    static const QRegularExpression kReserved(QStringLiteral(R"([\s"'\\><~|&;$*?#()`])"));
    static const QRegularExpression kEscapedInQuotes(QStringLiteral(R"((["`$\\]))"));
    path.replace(u'%', QLatin1String("%%"));
    return path.contains(kReserved) ? u'"' + path.replace(kEscapedInQuotes, QStringLiteral(R"(\\1)")) + u'"' : path;
}

QStringList templateLines(const QString &program)
{
    QFile file(QStringLiteral(":/autostart/dev.velmora.mintaro.desktop.in"));
    if (!file.open(QIODevice::ReadOnly))
        throw FileError("the template of the entry is missing");
    QString text = QString::fromUtf8(file.readAll()).trimmed();
    text.replace(QLatin1String("@MINTARO_EXEC@"), escaped(execLine(program)));
    text.replace(QLatin1String("@MINTARO_TRY_EXEC@"), escaped(program));
    return text.split(u'\n');
}

QString keyOf(const QString &line)
{
    return line.section(u'=', 0, 0).trimmed();
}

/// Our lines, then those of the entry `before` that are not ours to say.
QByteArray entryText(const QStringList &ours, const QByteArray &before)
{
    QStringList keys { kHidden, kEnabled };
    for (const QString &line : ours)
        keys.append(keyOf(line));
    QStringList lines = ours;
    QString group;
    for (const QString &line : QString::fromUtf8(before).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'['))
            group = line.trimmed();
        if (group != ours.first() ? !group.isEmpty() : !keys.contains(keyOf(line)))
            lines.append(line);
    }
    return lines.join(u'\n').toUtf8() + '\n';
}

/// 0 or an errno becomes a failure for people.
void check(int code)
{
    if (code != 0)
        throw FileError(code);
}

void writeEntry(const QString &userFolder, const QString &program, const QStringList &more)
{
    const QByteArray path = QFile::encodeName(QDir::cleanPath(userFolder));
    DurableFolder::make(path);
    DurableFolder folder(path);
    const auto before = folder.look(SMAppService::kEntryName, kLongestEntry);
    const QByteArray text
        = entryText(templateLines(program) + more, before ? before->file.bytes.value_or(QByteArray()) : QByteArray());
    folder.writeTemporary(text, kForAll);
    check(folder.putOver(SMAppService::kEntryName));
    check(folder.sync());
}

void removeEntry(const QString &userFolder)
{
    if (!QFileInfo(userFolder).isDir())
        return;
    DurableFolder folder(QFile::encodeName(QDir::cleanPath(userFolder)));
    const int code = folder.takeAway(SMAppService::kEntryName);
    if (code == ENOENT)
        return;
    check(code);
    folder.disposeOfTemporary();
    check(folder.sync());
}

} // namespace

SMAppService::Places SMAppService::Places::standard()
{
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (QString &folder : folders)
        folder += QLatin1String("/autostart");
    const QString program
        = lastingProgram(QCoreApplication::applicationFilePath(), QProcessEnvironment::systemEnvironment());
    return { folders.first(), folders.sliced(1), program };
}

QString lastingProgram(const QString &running, const QProcessEnvironment &environment)
{
    if (environment.contains(QStringLiteral("FLATPAK_ID")) && running.startsWith(QLatin1String("/app/")))
        return {};
    // A program that an AppImage has started finds its variables, too.
    const QString mount = environment.value(QStringLiteral("APPDIR"));
    const QString image = environment.value(QStringLiteral("APPIMAGE"));
    return !image.isEmpty() && !mount.isEmpty() && running.startsWith(mount + u'/') ? image : running;
}

SMAppService::Status SMAppService::status() const
{
    for (const QString &folder : QStringList { m_places.userFolder } + m_places.systemFolders) {
        if (const QString path = entryIn(folder); QFileInfo::exists(path))
            return startsSomething(path) ? Status::Enabled : Status::NotRegistered;
    }
    return Status::NotRegistered;
}

void SMAppService::registerService() const
{
    if (m_places.program.isEmpty())
        throw FileError("this program cannot be started from outside its sandbox");
    writeEntry(m_places.userFolder, m_places.program, {});
}

void SMAppService::unregisterService() const
{
    if (hasSystemEntry())
        writeEntry(m_places.userFolder, m_places.program, { kHidden + QLatin1String("=true") });
    else
        removeEntry(m_places.userFolder);
}

bool SMAppService::hasSystemEntry() const
{
    return std::any_of(m_places.systemFolders.begin(), m_places.systemFolders.end(),
        [](const QString &folder) { return QFileInfo::exists(entryIn(folder)); });
}

} // namespace mintaro
