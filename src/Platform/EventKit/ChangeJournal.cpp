#include "Platform/EventKit/ChangeJournal.h"

#include "Platform/EventKit/StoreBackend.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <limits>

namespace mintaro {

namespace {

constexpr QLatin1String kText(".ics");
constexpr QLatin1String kOrigin(".origin");
constexpr std::chrono::days kLifetime { 30 };
/// An origin without a text is younger than this while its entry is being written.
constexpr std::chrono::minutes kOrphanAge { 1 };
constexpr qint64 kLargestOrigin = 64 * 1024;

/// 20260301T090000.123Z; a number follows that keeps entries of the same moment apart.
QString stampOf(Date time)
{
    return QDateTime::fromMSecsSinceEpoch(time.time_since_epoch().count(), Qt::UTC)
        .toString(QStringLiteral("yyyyMMdd'T'HHmmss.zzz'Z'"));
}

/// Empty where a text is no id of ours.
std::optional<Date> timeOf(const QString &id)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]{8}T[0-9]{6}\\.[0-9]{3})Z-[0-9]{4}\\z"));
    const QRegularExpressionMatch match = form.match(id);
    QDateTime time = QDateTime::fromString(match.captured(1), QStringLiteral("yyyyMMdd'T'HHmmss.zzz"));
    if (!match.hasMatch() || !time.isValid())
        return std::nullopt;
    time.setTimeSpec(Qt::UTC);
    return Date(std::chrono::milliseconds(time.toMSecsSinceEpoch()));
}

QByteArray escaped(const QString &text)
{
    return text.toUtf8().toPercentEncoding(" /");
}

/// Puts a file in place; false where there is one of that name. Throws FileError.
bool put(DurableFolder &folder, const QString &name, const QByteArray &text)
{
    folder.writeTemporary(text, S_IRUSR | S_IWUSR);
    int code = folder.putNew(name.toUtf8().constData());
    if (code == EEXIST)
        return false;
    if (code == 0)
        code = folder.sync();
    if (code != 0)
        throw FileError(code);
    return true;
}

} // namespace

ChangeJournal::ChangeJournal(QString folder, const Clock &clock)
    : m_folder(std::move(folder))
    , m_clock(clock)
{
}

QString ChangeJournal::keep(
    const Place &place, const QByteArray &text, Reason reason, const std::optional<Place> &created)
{
    QByteArray origin = "collection=" + escaped(place.collection) + "\nname=" + escaped(place.name)
        + (reason == Reason::Deleted ? "\nreason=deleted\n" : "\nreason=changed\n");
    if (created)
        origin
            += "created-collection=" + escaped(created->collection) + "\ncreated-name=" + escaped(created->name) + '\n';
    try {
        const QByteArray path = m_folder.toUtf8();
        DurableFolder::make(path);
        DurableFolder folder(path);
        removeOld();
        return keepIn(folder, origin, text);
    } catch (const FileError &error) {
        throw EKError(escapedPath(m_folder).toStdString() + ": " + error.what());
    }
}

QString ChangeJournal::keepIn(DurableFolder &folder, const QByteArray &origin, const QByteArray &text)
{
    const QString stamp = stampOf(m_clock.now());
    for (int number = 0; number < 10'000; ++number) {
        const QString id = QStringLiteral("%1-%2").arg(stamp).arg(number, 4, 10, QChar(u'0'));
        if (QFileInfo::exists(pathOf(id, kText)) || QFileInfo::exists(pathOf(id, kOrigin)))
            continue;
        try {
            // The origin first, so that no text stands without one.
            if (put(folder, id + kOrigin, origin) && put(folder, id + kText, text))
                return id;
        } catch (const FileError &) {
            remove(id);
            throw;
        }
    }
    throw FileError("too many entries of one moment");
}

void ChangeJournal::discard(const QString &id)
{
    if (timeOf(id))
        remove(id);
}

void ChangeJournal::remove(const QString &id) const
{
    const QString text = pathOf(id, kText);
    if (QFile::remove(text) || !QFileInfo::exists(text))
        QFile::remove(pathOf(id, kOrigin));
}

void ChangeJournal::removeOld() const
{
    // Names ascend with the time: only those that may go have to be understood.
    const QString oldest = stampOf(m_clock.now() - kLifetime);
    const QString settled = stampOf(m_clock.now() - kOrphanAge);
    const QStringList files = QDir(m_folder).entryList(QDir::Files, QDir::Unsorted);
    const QSet<QString> present(files.begin(), files.end());
    for (const QString &file : files) {
        const QString id = file.left(file.lastIndexOf(u'.'));
        const bool isOrphan = file < settled && file.endsWith(kOrigin) && !present.contains(id + kText);
        if ((file < oldest || isOrphan) && timeOf(id))
            remove(id);
    }
}

std::vector<ChangeJournal::Entry> ChangeJournal::entries() const
{
    std::vector<Entry> entries;
    const QStringList files
        = QDir(m_folder).entryList({ QLatin1Char('*') + kText }, QDir::Files | QDir::Readable, QDir::Unsorted);
    for (const QString &file : files) {
        if (std::optional<Entry> found = entry(file.chopped(kText.size())))
            entries.push_back(std::move(*found));
    }
    std::sort(entries.begin(), entries.end(), [](const Entry &a, const Entry &b) { return a.id < b.id; });
    return entries;
}

std::optional<ChangeJournal::Entry> ChangeJournal::entry(const QString &id) const
{
    const std::optional<Date> time = timeOf(id);
    if (!time)
        return std::nullopt;
    const QByteArray origin = readFile(pathOf(id, kOrigin), kLargestOrigin).bytes.value_or(QByteArray());
    const QList<QByteArray> lines = origin.split('\n');
    const auto valueOf = [&lines](QByteArrayView key) -> std::optional<QString> {
        const auto isIt = [key](const QByteArray &line) { return line.startsWith(key); };
        const auto line = std::find_if(lines.begin(), lines.end(), isIt);
        return line != lines.end() ? fileName(QByteArray::fromPercentEncoding(line->mid(key.size()))) : std::nullopt;
    };
    const std::optional<QString> collection = valueOf("collection=");
    const std::optional<QString> name = valueOf("name=");
    const std::optional<QString> reason = valueOf("reason=");
    if (!collection || !name || (reason != QLatin1String("changed") && reason != QLatin1String("deleted")))
        return std::nullopt;
    Entry entry { id, *time, reason == QLatin1String("deleted") ? Reason::Deleted : Reason::Changed,
        { *collection, *name } };
    const std::optional<QString> createdCollection = valueOf("created-collection=");
    const std::optional<QString> createdName = valueOf("created-name=");
    if (createdCollection && createdName)
        entry.created = Place { *createdCollection, *createdName };
    return entry;
}

std::optional<QByteArray> ChangeJournal::text(const QString &id) const
{
    return timeOf(id) ? readFile(pathOf(id, kText), std::numeric_limits<qint64>::max()).bytes : std::nullopt;
}

QString ChangeJournal::pathOf(const QString &id, QLatin1String ending) const
{
    return m_folder + u'/' + id + ending;
}

} // namespace mintaro
