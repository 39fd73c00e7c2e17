#include "Platform/EventKit/Index/CalendarIndex.h"

#include "Platform/EventKit/Index/Sqlite.h"
#include "ReaderSources.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mintaro {

namespace {

constexpr char kTables[] = R"(
PRAGMA page_size = 16384;
PRAGMA journal_mode = WAL;
CREATE TABLE IF NOT EXISTS collections (
    id INTEGER PRIMARY KEY, identifier TEXT NOT NULL UNIQUE, stamp TEXT NOT NULL, written INTEGER NOT NULL);
CREATE TABLE IF NOT EXISTS schedules (
    collection INTEGER NOT NULL, name TEXT NOT NULL, details INTEGER NOT NULL, content BLOB NOT NULL,
    PRIMARY KEY (collection, name)) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS details (id INTEGER PRIMARY KEY, content BLOB NOT NULL);
)";

/// Each row stands for itself, so what a power failure leaves of the last ones does no harm.
constexpr char kSettings[] = "PRAGMA synchronous = OFF; PRAGMA temp_store = MEMORY;";

/// Collections that nobody wrote for half a year make room.
constexpr char kForgetOld[] = R"(
DELETE FROM details WHERE id IN (SELECT s.details FROM schedules s JOIN collections c ON c.id = s.collection
    WHERE c.written < unixepoch() - 180 * 86400);
DELETE FROM schedules WHERE collection IN (SELECT id FROM collections WHERE written < unixepoch() - 180 * 86400);
DELETE FROM collections WHERE written < unixepoch() - 180 * 86400;
)";

std::uint64_t checksum(const char *bytes, std::size_t size)
{
    return std::hash<std::string_view> {}({ bytes, size });
}

constexpr std::size_t kHeader = sizeof(std::uint64_t) + sizeof(ObjectRevision);

/// Checksum, revision, content.
QByteArray sealed(const ObjectRevision &revision, const QByteArray &content)
{
    QByteArray row(static_cast<qsizetype>(kHeader), Qt::Uninitialized);
    std::memcpy(row.data() + sizeof(std::uint64_t), revision.data(), sizeof revision);
    row.append(content);
    const std::uint64_t sum = checksum(
        row.constData() + sizeof(std::uint64_t), static_cast<std::size_t>(row.size()) - sizeof(std::uint64_t));
    std::memcpy(row.data(), &sum, sizeof sum);
    return row;
}

struct Unsealed
{
    ObjectRevision revision;
    QByteArrayView content;
};

/// `row` is as `sealed` made it, or gives nothing.
std::optional<Unsealed> unsealed(const QByteArray &row)
{
    if (static_cast<std::size_t>(row.size()) < kHeader)
        return std::nullopt;
    std::uint64_t sum = 0;
    std::memcpy(&sum, row.constData(), sizeof sum);
    if (sum != checksum(row.constData() + sizeof sum, static_cast<std::size_t>(row.size()) - sizeof sum))
        return std::nullopt;
    Unsealed result { {}, QByteArrayView(row).sliced(static_cast<qsizetype>(kHeader)) };
    std::memcpy(result.revision.data(), row.constData() + sizeof sum, sizeof result.revision);
    return result;
}

/// What an index may be used with: the sources that read objects and the time zone database, by which zones' names are
/// told from other names.
QString version()
{
    struct stat zones = {};
    (void)::stat("/usr/share/zoneinfo/tzdata.zi", &zones);
    struct stat folder = {};
    (void)::stat("/usr/share/zoneinfo", &folder);
    const QByteArray all = QByteArray(MINTARO_READER_SOURCES) + QByteArray::number(qlonglong { zones.st_size }) + ' '
        + QByteArray::number(qlonglong { zones.st_mtime }) + ' ' + QByteArray::number(qlonglong { folder.st_mtime })
        + ' ' + qVersion();
    return QString::fromLatin1(QCryptographicHash::hash(all, QCryptographicHash::Sha1).toHex().left(12));
}

} // namespace

class CalendarIndex::Connection
{
public:
    /// Takes what is there, else makes what is missing, else begins with nothing.
    explicit Connection(const QString &path)
        : database(path)
    {
        enum Attempt { Open, Make, Empty };
        for (const Attempt attempt : { Open, Make, Empty }) {
            try {
                if (attempt == Open)
                    database.execute(kSettings);
                if (attempt == Empty)
                    database.reset();
                if (attempt != Open)
                    database.execute(kTables);
                prepare();
                return;
            } catch (const sqlite::Error &error) {
                if (!error.isDamage() || attempt == Empty)
                    throw;
                m_statements.reset();
            }
        }
    }

    void empty()
    {
        m_statements.reset();
        database.reset();
    }

    /// The number of a collection, where it was written under this stamp.
    [[nodiscard]] std::optional<std::int64_t> find(const QString &collection, const QString &stamp)
    {
        sqlite::Statement &row = m_statements->findCollection.bind(collection);
        const bool isFound = row.step() && row.text(1) == stamp;
        const std::int64_t id = isFound ? row.integer(0) : 0;
        row.reset();
        return isFound ? std::optional(id) : std::nullopt;
    }

    /// The number of a collection that is to be written; a new one, or one of another stamp, is empty.
    [[nodiscard]] std::int64_t begin(const QString &collection, const QString &stamp)
    {
        const bool isKnown = find(collection, stamp).has_value();
        m_statements->addCollection.bind(collection, stamp).run();
        const std::int64_t id = find(collection, stamp).value_or(0);
        if (!isKnown) {
            m_statements->forgetAllDetails.bind(id).run();
            m_statements->forgetAllSchedules.bind(id).run();
            database.execute(kForgetOld);
        }
        return id;
    }

    void forget(std::int64_t collection, const QString &name)
    {
        m_statements->forgetDetails.bind(collection, name).run();
        m_statements->forgetSchedule.bind(collection, name).run();
    }

    /// Where the details went.
    [[nodiscard]] std::int64_t put(std::int64_t collection, const QString &name, const StoredObject &object)
    {
        sqlite::Statement &known = m_statements->find.bind(collection, name);
        std::int64_t number = known.step() ? known.integer(0) : 0;
        known.reset();
        const QByteArray details = sealed(object.revision, packDetails(*object.details));
        if (number != 0) {
            m_statements->setDetails.bind(number, details).run();
        } else {
            m_statements->addDetails.bind(details).run();
            number = database.lastInsertedRow();
        }
        const QByteArray schedule = sealed(object.revision, packSchedule(object.schedule));
        m_statements->setSchedule.bind(collection, name, number, schedule).run();
        return number;
    }

    /// Ends the snapshot, if there is one.
    void endReading()
    {
        if (database.isInTransaction())
            database.execute("COMMIT");
    }

    struct Statements
    {
        sqlite::Statement findCollection;
        sqlite::Statement addCollection;
        sqlite::Statement load;
        sqlite::Statement details;
        sqlite::Statement allDetails;
        sqlite::Statement find;
        sqlite::Statement addDetails;
        sqlite::Statement setDetails;
        sqlite::Statement setSchedule;
        sqlite::Statement forgetDetails;
        sqlite::Statement forgetSchedule;
        sqlite::Statement forgetAllDetails;
        sqlite::Statement forgetAllSchedules;
    };
    [[nodiscard]] Statements &statements() { return *m_statements; }

    sqlite::Database database;

private:
    void prepare()
    {
        const auto make = [this](const char *sql) { return sqlite::Statement(database, sql); };
        m_statements.emplace(Statements {
            make("SELECT id, stamp FROM collections WHERE identifier = ?"),
            make("INSERT INTO collections (identifier, stamp, written) VALUES (?1, ?2, unixepoch())"
                 " ON CONFLICT (identifier) DO UPDATE SET stamp = ?2, written = unixepoch()"),
            make("SELECT name, details, content FROM schedules WHERE collection = ?"),
            make("SELECT content FROM details WHERE id = ?"),
            make("SELECT d.id, d.content FROM schedules s JOIN details d ON d.id = s.details WHERE s.collection = ?"),
            make("SELECT details FROM schedules WHERE collection = ? AND name = ?"),
            make("INSERT INTO details (content) VALUES (?)"),
            make("INSERT INTO details (id, content) VALUES (?1, ?2) ON CONFLICT (id) DO UPDATE SET content = ?2"),
            make("INSERT OR REPLACE INTO schedules (collection, name, details, content) VALUES (?, ?, ?, ?)"),
            make("DELETE FROM details WHERE id = (SELECT details FROM schedules WHERE collection = ? AND name = ?)"),
            make("DELETE FROM schedules WHERE collection = ? AND name = ?"),
            make("DELETE FROM details WHERE id IN (SELECT details FROM schedules WHERE collection = ?)"),
            make("DELETE FROM schedules WHERE collection = ?"),
        });
    }

    std::optional<Statements> m_statements;
};

CalendarIndex::CalendarIndex(QString folder)
    : m_folder(std::move(folder))
{
}

CalendarIndex::~CalendarIndex() = default;

void CalendarIndex::open()
{
    // It holds what the user's calendars say: nobody else may read it.
    QDir().mkpath(QFileInfo(m_folder).path());
    ::mkdir(m_folder.toUtf8().constData(), S_IRWXU);
    const QString name = QStringLiteral("index-%1.sqlite").arg(version());
    const QString path = m_folder + u'/' + name;
    if (!QFileInfo::exists(path)) {
        const QDir folder(m_folder);
        for (const QString &old : folder.entryList({ QStringLiteral("index-*.sqlite*") }, QDir::Files))
            QFile::remove(folder.filePath(old));
    }
    ::close(::open(path.toUtf8().constData(), O_RDONLY | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
    try {
        m_connection = std::make_unique<Connection>(path);
    } catch (const sqlite::Error &) {
        m_isUnusable = true;
    }
}

bool CalendarIndex::use(const std::function<void(Connection &)> &task)
{
    const QMutexLocker lock(&m_mutex);
    if (!m_connection && !m_isUnusable)
        open();
    if (!m_connection)
        return false;
    try {
        task(*m_connection);
        return true;
    } catch (const sqlite::Error &error) {
        if (error.isDamage()) {
            try {
                m_connection->empty();
            } catch (const sqlite::Error &) {
                m_isUnusable = true;
            }
            m_connection.reset();
        }
        return false;
    }
}

std::vector<CalendarIndex::Entry> CalendarIndex::load(const QString &collection, const QString &stamp)
{
    struct Row
    {
        QString name;
        std::int64_t details;
        QByteArray content;
    };
    std::vector<Row> rows;
    use([&](Connection &connection) {
        const std::optional<std::int64_t> id = connection.find(collection, stamp);
        if (!id)
            return;
        sqlite::Statement &found = connection.statements().load.bind(*id);
        while (found.step())
            rows.push_back({ found.text(0), found.integer(1), found.bytes(2).toByteArray() });
    });
    // Several collections are unpacked at once.
    std::vector<Entry> entries;
    entries.reserve(rows.size());
    for (Row &row : rows) {
        const auto content = unsealed(row.content);
        auto schedule = content ? unpackSchedule(content->content) : std::nullopt;
        if (!schedule)
            continue;
        StoredObject object;
        object.revision = content->revision;
        object.schedule = std::move(*schedule);
        object.detailsNumber = row.details;
        entries.push_back({ std::move(row.name), std::move(object) });
    }
    return entries;
}

void CalendarIndex::loadDetails(const std::vector<StoredObject *> &objects)
{
    std::vector<QByteArray> rows(objects.size());
    use([&](Connection &connection) {
        for (std::size_t i = 0; i < objects.size(); ++i) {
            sqlite::Statement &found = connection.statements().details.bind(objects[i]->detailsNumber);
            if (found.step())
                rows[i] = found.bytes(0).toByteArray();
            found.reset();
        }
    });
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const auto content = unsealed(rows[i]);
        auto details
            = content && content->revision == objects[i]->revision ? unpackDetails(content->content) : std::nullopt;
        if (details)
            objects[i]->details = std::make_unique<ObjectDetails>(std::move(*details));
    }
}

void CalendarIndex::visitDetails(const QString &collection, const QString &stamp,
    const std::function<void(std::int64_t number, const ObjectRevision &revision, QByteArrayView packed)> &visit)
{
    std::vector<std::pair<std::int64_t, QByteArray>> rows;
    use([&](Connection &connection) {
        const std::optional<std::int64_t> id = connection.find(collection, stamp);
        if (!id)
            return;
        sqlite::Statement &found = connection.statements().allDetails.bind(*id);
        while (found.step())
            rows.emplace_back(found.integer(0), found.bytes(1).toByteArray());
    });
    for (const auto &[number, row] : rows) {
        if (const auto content = unsealed(row))
            visit(number, content->revision, content->content);
    }
}

CalendarIndex::Snapshot::Snapshot(CalendarIndex *index)
    : m_index(index)
{
    if (m_index)
        m_index->use([](Connection &connection) { connection.database.execute("BEGIN"); });
}

CalendarIndex::Snapshot::~Snapshot()
{
    if (m_index)
        m_index->use([](Connection &connection) { connection.endReading(); });
}

void CalendarIndex::write(
    const QString &collection, const QString &stamp, const std::vector<Change> &changes, const QStringList &gone)
{
    if (changes.empty() && gone.isEmpty())
        return;
    std::vector<std::int64_t> numbers;
    const bool isWritten = use([&](Connection &connection) {
        connection.endReading();
        sqlite::Transaction transaction(connection.database);
        const std::int64_t id = connection.begin(collection, stamp);
        for (const QString &name : gone)
            connection.forget(id, name);
        for (const Change &each : changes)
            numbers.push_back(connection.put(id, each.name, *each.object));
        transaction.commit();
    });
    for (std::size_t i = 0; isWritten && i < changes.size(); ++i)
        changes[i].object->detailsNumber = numbers[i];
}

} // namespace mintaro
