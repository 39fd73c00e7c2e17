#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <stdexcept>

struct sqlite3;
struct sqlite3_stmt;

namespace mintaro::sqlite {

/// What SQLite reports.
class Error : public std::runtime_error
{
public:
    Error(int code, const char *text);
    /// The file is no database, a damaged one, or one of other tables.
    [[nodiscard]] bool isDamage() const;

private:
    int m_code;
};

/// A connection to a database file, which is made where there is none. For one thread at a time.
class Database
{
public:
    /// Throws Error, as everything here does.
    explicit Database(const QString &path);
    /// One or more statements without results.
    void execute(const char *sql);
    /// Makes it empty, however damaged it is, also while others are connected.
    void reset();
    [[nodiscard]] std::int64_t lastInsertedRow() const;
    [[nodiscard]] bool isInTransaction() const;
    [[nodiscard]] sqlite3 *handle() const { return m_handle.get(); }

private:
    struct Close
    {
        void operator()(sqlite3 *handle) const;
    };
    std::unique_ptr<sqlite3, Close> m_handle;
};

/// A prepared statement. Parameters and columns count from 0.
class Statement
{
public:
    Statement(const Database &database, const char *sql);
    /// Begins anew; all parameters are to be bound again. Bytes and texts must live until the next call.
    template <typename... Values>
    Statement &bind(const Values &...values)
    {
        reset();
        int index = 0;
        (bindAt(index++, values), ...);
        return *this;
    }
    /// False after the last row.
    [[nodiscard]] bool step();
    void run()
    {
        while (step()) { }
    }
    /// Ends the reading, and with it the hold on the database. To be called where not every row was taken.
    void reset();

    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] QString text(int column) const;
    /// Valid until the next step; on any address.
    [[nodiscard]] QByteArrayView bytes(int column) const;

private:
    void bindAt(int index, std::int64_t value);
    void bindAt(int index, const QString &value);
    void bindAt(int index, const QByteArray &value);

    struct Finalize
    {
        void operator()(sqlite3_stmt *statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// Undoes what was done since, unless it was committed.
class Transaction
{
public:
    explicit Transaction(Database &database);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    void commit();

private:
    Database &m_database;
    bool m_isOpen = true;
};

} // namespace mintaro::sqlite
