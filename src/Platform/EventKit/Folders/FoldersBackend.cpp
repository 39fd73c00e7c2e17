#include "Platform/EventKit/Folders/FoldersBackend.h"

#include "Platform/EventKit/Folders/CollectionScan.h"
#include "Platform/EventKit/Folders/Folder.h"
#include "Platform/EventKit/Folders/ItemWriter.h"
#include "Platform/EventKit/Folders/NewFolder.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace mintaro {

namespace {

/// Why a configured folder cannot be read; empty where it can, or where it does not exist (yet).
QString accessProblem(const QString &path)
{
    const QByteArray bytes = path.toUtf8();
    struct stat status = {};
    if (::stat(bytes.constData(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR))
        return {};
    if (::access(bytes.constData(), R_OK) != 0)
        return QString::fromLocal8Bit(std::strerror(errno));
    if (!S_ISDIR(status.st_mode))
        return QStringLiteral("no folder");
    return ::access(bytes.constData(), X_OK) == 0 ? QString() : QString::fromLocal8Bit(std::strerror(errno));
}

/// Where an item's path leads; empty where nothing is there. Throws FileError.
std::optional<QByteArray> targetOf(const QByteArray &path)
{
    std::optional<QByteArray> target = realPath(path);
    if (!target && errno != ENOENT && errno != ENOTDIR)
        throw FileError(errno);
    return target;
}

QByteArray folderOf(const QByteArray &path)
{
    return path.left(std::max<qsizetype>(path.lastIndexOf('/'), 1));
}

QByteArray nameIn(const QByteArray &path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

/// Makes our own root with a calendar and a reminder list in it, named in the language of the texts. An existing one,
/// whatever it holds, is left alone.
void makeOwnRoot(const QString &path, const Logger &logger)
{
    if (QFileInfo::exists(path))
        return;
    try {
        NewFolder root(path);
        root.write(QStringLiteral("calendar/displayname"), qtTrId("Calendar").toUtf8() + '\n');
        root.write(QStringLiteral("calendar/color"), "#0b68ff\n");
        root.write(QStringLiteral("reminders/displayname"), qtTrId("Reminders").toUtf8() + '\n');
        root.write(QStringLiteral("reminders/color"), "#f76b15\n");
        root.finish();
    } catch (const EKError &error) {
        logger.error(QString::fromStdString(error.what()));
    }
}

} // namespace

FoldersBackend::FoldersBackend(BaseFolders baseFolders, std::optional<QString> root, Logger logger)
    : m_baseFolders(std::move(baseFolders))
    , m_root(std::move(root))
    , m_logger(std::move(logger))
    , m_watcher(m_logger)
{
}

bool FoldersBackend::requestAccess()
{
    // Read anew until it grants access: the user may have mended it meanwhile.
    if (!m_isGranted)
        m_configuration = m_root ? StoreConfiguration::forRoot(*m_root) : StoreConfiguration::load(m_baseFolders);
    const std::vector<ConfiguredFolder> &folders = m_configuration->folders;
    if (m_configuration->isOwnRoot) {
        makeOwnRoot(folders.front().path, m_logger);
        if (!QFileInfo(folders.front().path).isDir())
            return false;
    }
    m_isGranted = std::all_of(folders.begin(), folders.end(), [this](const ConfiguredFolder &folder) {
        const QString problem = accessProblem(folder.path);
        if (!problem.isEmpty())
            report(folder.path, problem);
        return problem.isEmpty();
    });
    return m_isGranted;
}

std::vector<StoreCollection> FoldersBackend::collections()
{
    if (!m_configuration)
        return {};
    followConfiguration();
    const CollectionScan::Report report
        = [this](const QString &path, const QString &problem) { this->report(path, problem); };
    CollectionScan scan(*m_configuration, report);
    m_watcher.setFolders(scan.watched());
    m_collections = scan.collections();
    return m_collections;
}

void FoldersBackend::followConfiguration()
{
    if (m_root)
        return;
    try {
        m_configuration = StoreConfiguration::load(m_baseFolders);
    } catch (const EKError &error) {
        reportLine(QString::fromStdString(error.what()));
    }
}

std::vector<ObjectState> FoldersBackend::objects(const QString &collection)
{
    const std::optional<Folder> folder = Folder::open(collection);
    if (!folder) {
        report(collection, QString::fromLocal8Bit(std::strerror(errno)));
        return {};
    }
    std::vector<ObjectState> objects;
    folder->forEach([&](const dirent &entry) {
        if (!isObjectName(QByteArrayView(entry.d_name)))
            return;
        if (std::optional<ObjectState> state = stateOf(*folder, collection, entry.d_name))
            objects.push_back(std::move(*state));
    });
    return objects;
}

std::optional<ObjectState> FoldersBackend::object(const QString &collection, const QString &name)
{
    const std::optional<Folder> folder = Folder::open(collection);
    return folder && isObjectName(name) ? stateOf(*folder, collection, name.toUtf8().constData()) : std::nullopt;
}

std::optional<ObjectState> FoldersBackend::stateOf(const Folder &folder, const QString &collection, const char *name)
{
    const std::optional<struct stat> status = folder.status(name);
    std::optional<QString> text;
    if (status && S_ISREG(status->st_mode) && (text = fileName(name)))
        return ObjectState { std::move(*text), revisionOf(*status) };
    const QString problem = !status ? folder.problem(name)
        : S_ISREG(status->st_mode)  ? QStringLiteral("the name is not UTF-8")
                                    : QStringLiteral("no regular file");
    if (!problem.isEmpty())
        report(collection + u'/' + escapedPath(QByteArray(name)), problem);
    return std::nullopt;
}

std::optional<QByteArray> FoldersBackend::read(const QString &collection, const QString &name)
{
    const FileText file = readFile(collection + u'/' + name, kLargestObject);
    if (!file.problem.isEmpty())
        report(describe(collection, name), file.problem);
    return file.bytes;
}

QString FoldersBackend::describe(const QString &collection, const QString &name) const
{
    return escapedPath(QString(collection + u'/' + name));
}

template <typename Write>
auto FoldersBackend::writing(const QString &collection, const QString &name, const Write &write) const
{
    try {
        const auto isIt = [&](const StoreCollection &known) { return known.identifier == collection; };
        const auto known = std::find_if(m_collections.begin(), m_collections.end(), isIt);
        if (known == m_collections.end())
            throw FileError("no such calendar");
        if (!known->isWritable)
            throw FileError("the calendar is read-only");
        if (!isObjectName(name) || name.contains(u'/') || name.contains(QChar(u'\0')))
            throw FileError("this cannot be an item's name");
        return write((collection + u'/' + name).toUtf8());
    } catch (const FileError &error) {
        throw EKError(describe(collection, name).toStdString() + ": " + error.what());
    }
}

WriteOutcome FoldersBackend::replace(
    const QString &collection, const QString &name, const QByteArray &base, const QByteArray &text)
{
    return writing(collection, name, [&](const QByteArray &path) {
        // A link stays: what it leads to is written.
        const std::optional<QByteArray> target = targetOf(path);
        return target ? ItemWriter(folderOf(*target), nameIn(*target)).replace(base, text) : WriteOutcome::Gone;
    });
}

WriteOutcome FoldersBackend::remove(const QString &collection, const QString &name, const QByteArray &base)
{
    return writing(collection, name, [&](const QByteArray &path) {
        return targetOf(path) ? ItemWriter(folderOf(path), nameIn(path)).remove(base) : WriteOutcome::Gone;
    });
}

bool FoldersBackend::create(const QString &collection, const QString &name, const QByteArray &text)
{
    return writing(collection, name,
        [&](const QByteArray &path) { return ItemWriter(folderOf(path), nameIn(path)).create(text); });
}

QString FoldersBackend::newName(const QString &uid) const
{
    // What every file system and server takes as it is.
    static const QRegularExpression plain(QStringLiteral("^(?!\\.)[A-Za-z0-9_.+-]{1,200}\\z"));
    const QString stem = plain.match(uid).hasMatch() ? uid : QUuid::createUuid().toString(QUuid::WithoutBraces);
    return stem + QLatin1String(".ics");
}

void FoldersBackend::watch(std::function<void(const StoreChanges &)> handler)
{
    m_watcher.start(std::move(handler));
}

void FoldersBackend::report(const QString &path, const QString &problem)
{
    reportLine(escapedPath(path) + QLatin1String(": ") + problem);
}

void FoldersBackend::reportLine(const QString &line)
{
    const QMutexLocker lock(&m_mutex);
    if (m_reported.contains(line))
        return;
    m_reported.insert(line);
    m_logger.error(line);
}

} // namespace mintaro
