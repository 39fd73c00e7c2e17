#include "Platform/EventKit/Index/Sqlite.h"

#include <sqlite3.h>

namespace mintaro::sqlite {

namespace {

/// How long another program's write is waited for.
constexpr int kBusyMilliseconds = 500;

void check(int code, sqlite3 *handle)
{
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE)
        throw Error(code, handle ? sqlite3_errmsg(handle) : sqlite3_errstr(code));
}

} // namespace

Error::Error(int code, const char *text)
    : std::runtime_error(text)
    , m_code(code)
{
}

bool Error::isDamage() const
{
    // SQLITE_ERROR comes from a statement that names a table or column that is not there.
    return m_code == SQLITE_CORRUPT || m_code == SQLITE_NOTADB || m_code == SQLITE_ERROR || m_code == SQLITE_MISMATCH
        || m_code == SQLITE_CONSTRAINT || m_code == SQLITE_SCHEMA || m_code == SQLITE_FORMAT;
}

Database::Database(const QString &path)
{
    sqlite3 *handle = nullptr;
    const int code = sqlite3_open_v2(
        path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    m_handle.reset(handle);
    check(code, handle);
    sqlite3_busy_timeout(handle, kBusyMilliseconds);
}

void Database::execute(const char *sql)
{
    check(sqlite3_exec(m_handle.get(), sql, nullptr, nullptr, nullptr), m_handle.get());
}

void Database::reset()
{
    sqlite3 *handle = m_handle.get();
    check(sqlite3_db_config(handle, SQLITE_DBCONFIG_RESET_DATABASE, 1, nullptr), handle);
    const int code = sqlite3_exec(handle, "VACUUM", nullptr, nullptr, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_RESET_DATABASE, 0, nullptr);
    check(code, handle);
}

std::int64_t Database::lastInsertedRow() const
{
    return sqlite3_last_insert_rowid(m_handle.get());
}

void Database::Close::operator()(sqlite3 *handle) const
{
    sqlite3_close_v2(handle);
}

Statement::Statement(const Database &database, const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    const int code = sqlite3_prepare_v3(database.handle(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    m_statement.reset(statement);
    check(code, database.handle());
}

bool Statement::step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW)
        return true;
    sqlite3_reset(m_statement.get());
    check(code, sqlite3_db_handle(m_statement.get()));
    return false;
}

void Statement::reset()
{
    sqlite3_reset(m_statement.get());
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

QString Statement::text(int column) const
{
    const void *text = sqlite3_column_text(m_statement.get(), column);
    return QString::fromUtf8(static_cast<const char *>(text), sqlite3_column_bytes(m_statement.get(), column));
}

QByteArrayView Statement::bytes(int column) const
{
    const void *bytes = sqlite3_column_blob(m_statement.get(), column);
    return { static_cast<const char *>(bytes), sqlite3_column_bytes(m_statement.get(), column) };
}

void Statement::bindAt(int index, std::int64_t value)
{
    check(sqlite3_bind_int64(m_statement.get(), index + 1, value), sqlite3_db_handle(m_statement.get()));
}

void Statement::bindAt(int index, const QString &value)
{
    const QByteArray utf8 = value.toUtf8();
    check(sqlite3_bind_text64(m_statement.get(), index + 1, utf8.constData(), static_cast<sqlite3_uint64>(utf8.size()),
              SQLITE_TRANSIENT, SQLITE_UTF8),
        sqlite3_db_handle(m_statement.get()));
}

void Statement::bindAt(int index, const QByteArray &value)
{
    check(sqlite3_bind_blob64(m_statement.get(), index + 1, value.constData(),
              static_cast<sqlite3_uint64>(value.size()), SQLITE_STATIC),
        sqlite3_db_handle(m_statement.get()));
}

void Statement::Finalize::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

bool Database::isInTransaction() const
{
    return sqlite3_get_autocommit(handle()) == 0;
}

Transaction::Transaction(Database &database)
    : m_database(database)
{
    database.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (m_isOpen)
        sqlite3_exec(m_database.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit()
{
    m_database.execute("COMMIT");
    m_isOpen = false;
}

} // namespace mintaro::sqlite
