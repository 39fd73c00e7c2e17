#include "Platform/EventKit/Folders/CollectionScan.h"

#include "Platform/EventKit/Folders/Folder.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <tuple>

#include <fnmatch.h>
#include <unistd.h>

namespace mintaro {

namespace {

constexpr qint64 kLargestLooksFile = 4096;

/// Whether a folder that has an entry of this name holds calendar data itself.
bool marksCollection(QByteArrayView name)
{
    return isObjectName(name) || name == "color" || name == "displayname";
}

/// Whether an entry may be a collection: a folder, or a link that leads to one or nowhere.
bool mayBeFolder(const Folder &parent, const dirent &entry)
{
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK)
        return entry.d_type == DT_DIR;
    const std::optional<struct stat> status = parent.status(entry.d_name);
    return !status || S_ISDIR(status->st_mode);
}

/// ".calendars" becomes "Calendars", "my_work" "My work".
QString sourceTitle(const QString &path)
{
    QString title = QFileInfo(path).fileName().replace(u'_', u' ').simplified();
    while (title.startsWith(u'.'))
        title.remove(0, 1);
    return title.isEmpty() ? path : title.front().toUpper() + title.mid(1);
}

} // namespace

struct CollectionScan::Found
{
    StoreCollection collection;
    int order = 0;
};

CollectionScan::CollectionScan(const StoreConfiguration &configuration, const Report &report)
    : m_configuration(configuration)
    , m_report(report)
    , m_defaultCalendar(canonicalPath(configuration.defaultCalendar).value_or(QString()))
    , m_defaultReminders(canonicalPath(configuration.defaultReminders).value_or(QString()))
{
    for (const QString &file : configuration.files)
        watchFile(file);
    for (const ConfiguredFolder &configured : configuration.folders) {
        const std::optional<QString> path = canonicalPath(configured.path);
        if (!path) {
            m_watched.try_emplace(configured.path);
        } else if (configured.kind == ConfiguredFolder::Kind::Root) {
            addRoot(configured, *path);
        } else if (const auto found = examine(configured, *path, QFileInfo(*path).path())) {
            add(*found);
        }
    }
}

void CollectionScan::watchFile(const QString &file)
{
    for (const QString &path : { file, canonicalPath(file).value_or(file) }) {
        const QFileInfo place(path);
        m_watched[canonicalPath(place.path()).value_or(place.path())].configurationFiles.insert(place.fileName());
    }
}

void CollectionScan::addRoot(const ConfiguredFolder &configured, const QString &root)
{
    m_watched[root].isRoot = true;
    const std::optional<Folder> folder = Folder::open(root);
    if (!folder) {
        m_report(root, QString::fromLocal8Bit(std::strerror(errno)));
        return;
    }
    std::vector<Found> all;
    const auto take = [&](const QString &path) {
        if (std::optional<Found> found = examine(configured, path, root))
            all.push_back(std::move(*found));
    };
    const QByteArray pattern = configured.pattern.toUtf8();
    bool isCollection = false;
    folder->forEach([&](const dirent &entry) {
        isCollection = isCollection || marksCollection(entry.d_name);
        if (::fnmatch(pattern.constData(), entry.d_name, FNM_PERIOD) != 0 || !mayBeFolder(*folder, entry))
            return;
        const QByteArray place = (root == u'/' ? QByteArray() : root.toUtf8()) + '/' + entry.d_name;
        if (const auto path = entry.d_type == DT_DIR ? fileName(place) : canonicalPath(place)) {
            take(*path);
            return;
        }
        const QString problem = folder->problem(entry.d_name);
        m_report(escapedPath(place), problem.isEmpty() ? QStringLiteral("the path is not UTF-8") : problem);
    });
    if (isCollection)
        take(root);
    std::sort(all.begin(), all.end(), [](const Found &a, const Found &b) {
        return std::tie(a.order, a.collection.title, a.collection.identifier)
            < std::tie(b.order, b.collection.title, b.collection.identifier);
    });
    std::for_each(all.begin(), all.end(), [this](const Found &found) { add(found); });
}

std::optional<CollectionScan::Found> CollectionScan::examine(
    const ConfiguredFolder &configured, const QString &path, const QString &source)
{
    const std::optional<Folder> folder = Folder::open(path);
    if (!folder) {
        // Watched all the same: the permission may come.
        m_watched.try_emplace(path);
        m_report(path, QString::fromLocal8Bit(std::strerror(errno)));
        return std::nullopt;
    }
    const auto textOf = [&](const char *name) {
        const FileText file = folder->read(name, kLargestLooksFile);
        if (!file.problem.isEmpty())
            m_report(path + u'/' + QLatin1String(name), file.problem);
        return fileName(file.bytes.value_or(QByteArray())).value_or(QString()).simplified();
    };
    StoreCollection collection;
    collection.identifier = path;
    collection.title = textOf("displayname");
    if (collection.title.isEmpty())
        collection.title = QFileInfo(path).fileName();
    collection.sourceIdentifier = source;
    collection.sourceTitle = sourceTitle(source);
    collection.color = Color::fromHex(textOf("color"));
    if (!collection.color)
        collection.color = configured.color;
    collection.isWritable = !configured.isReadOnly && ::access(path.toUtf8().constData(), W_OK) == 0;
    collection.isDefault = path == m_defaultCalendar;
    collection.isReminderList = path == m_defaultReminders;
    collection.userAddresses = m_configuration.addresses + configured.addresses;
    collection.userAddresses.removeDuplicates();
    bool hasOrder = false;
    const int order = textOf("order").toInt(&hasOrder);
    return Found { std::move(collection), hasOrder ? order : std::numeric_limits<int>::max() };
}

void CollectionScan::add(const Found &found)
{
    const QString &identifier = found.collection.identifier;
    if (m_known.contains(identifier))
        return;
    m_known.insert(identifier);
    m_watched[identifier].collection = identifier;
    m_collections.push_back(found.collection);
}

} // namespace mintaro
