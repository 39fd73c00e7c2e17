#pragma once

#include "Platform/EventKit/Index/ObjectCodec.h"
#include "Platform/EventKit/StoredObject.h"

#include <QMutex>

#include <functional>

namespace mintaro {

/// Remembers across runs what parsing gave, so that a start parses nothing that it has seen. A mere cache in a file
/// that any number of processes share: an entry counts for exactly the revision that it names, each carries a checksum,
/// and what is damaged, missing or of another version is parsed again and written anew, without a word. Where the file
/// cannot be used, it remembers nothing. Safe to use from any thread.
class CalendarIndex
{
public:
    /// The file lies in `folder`, which is made at the first use.
    explicit CalendarIndex(QString folder);
    ~CalendarIndex();

    struct Entry
    {
        QString name;
        StoredObject object;
    };
    /// All that is known of a collection, in no order and without details. `stamp` stands for what the objects' meaning
    /// depends on besides their text; what was remembered under another one does not count.
    [[nodiscard]] std::vector<Entry> load(const QString &collection, const QString &stamp);
    /// Brings the details of these objects into memory, in so far as they are still there and of the object's revision.
    void loadDetails(const std::vector<StoredObject *> &objects);
    /// Visits the details of all that is known of a collection, in no order: by their number, with the revision that
    /// they are of and what unpackDetails takes.
    void visitDetails(const QString &collection, const QString &stamp,
        const std::function<void(std::int64_t number, const ObjectRevision &revision, QByteArrayView packed)> &visit);

    /// While it lives, readings see one state, and many small ones are far quicker. One at a time.
    class Snapshot
    {
    public:
        /// `index` may be null.
        explicit Snapshot(CalendarIndex *index);
        ~Snapshot();
        Snapshot(const Snapshot &) = delete;
        Snapshot &operator=(const Snapshot &) = delete;

    private:
        CalendarIndex *const m_index;
    };

    struct Change
    {
        QString name;
        /// With its details. Where they could be written, it is told their number.
        StoredObject *object;
    };
    /// Remembers `changes` and forgets what is `gone`.
    void write(
        const QString &collection, const QString &stamp, const std::vector<Change> &changes, const QStringList &gone);

private:
    class Connection;

    /// Runs `task` with the connection. What it throws closes that, and where the file is damaged, empties it. False
    /// where nothing came of it.
    bool use(const std::function<void(Connection &)> &task);
    void open();

    const QString m_folder;
    QMutex m_mutex;
    std::unique_ptr<Connection> m_connection;
    bool m_isUnusable = false;
};

} // namespace mintaro
