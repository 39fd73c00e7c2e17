#pragma once

#include "Platform/EventKit/CollectionContents.h"
#include "Platform/EventKit/EKCalendar.h"
#include "Platform/EventKit/Index/CalendarIndex.h"
#include "Platform/Foundation/Logger.h"

#include <QHash>

namespace mintaro {

/// One calendar of the database: keeps its contents in step with the backend and with the index. Not thread-safe, but
/// for `parse`.
class StoredCollection final : private DetailsSource
{
public:
    /// `backend`, `index` and `logger` must outlive the object. `index` may be null.
    StoredCollection(StoreBackend &backend, CalendarIndex *index, const Logger &logger);

    [[nodiscard]] const StoreCollection &info() const { return m_info; }
    void setInfo(StoreCollection info) { m_info = std::move(info); }
    /// Valid after `finish`.
    [[nodiscard]] const EKCalendarRef &calendar() const { return m_calendar; }
    [[nodiscard]] CollectionContents &contents() { return m_contents; }

    /// Whether the backend has another state than what is held, of these objects or, where none are named, of any.
    [[nodiscard]] bool differs(const QStringList &names);
    /// Mintaro itself has just written this object: when the backend tells of it, that is no news.
    void noteWritten(const QString &name, const QByteArray &text);

    /// The three steps to the present state. First: looks at these objects or, where none are named, at all, and
    /// answers which are to be parsed.
    [[nodiscard]] std::vector<ObjectState> examine(const QStringList &names);
    /// Reads and parses. May be called from several threads at once.
    /// Empty where it cannot be read.
    [[nodiscard]] std::optional<CalendarObject> parse(const QString &name) const;
    void take(const ObjectState &state, std::optional<CalendarObject> object);
    /// Remembers in the index what was taken, and makes the contents ready for questions.
    void finish();

    /// As the contents' own, with a limit on the work and the log for what is beyond it.
    void events(const CollectionContents::Query &query, const CollectionContents::Found &found);

private:
    void loadDetails(const std::vector<StoredObject *> &objects) override;
    [[nodiscard]] ObjectDetails readDetails(const QString &name) override;
    void visitDetails(const Visitor &visit) override;
    [[nodiscard]] std::vector<ObjectState> examineAll();
    [[nodiscard]] bool isHeld(const ObjectState &state) const;
    [[nodiscard]] bool isOwnWriting(const ObjectState &state);
    void drop(const QString &name);
    [[nodiscard]] QString stamp() const { return m_info.userAddresses.join(u' '); }
    [[nodiscard]] std::vector<ObjectState> takeFromIndex(std::vector<ObjectState> present);
    void writeIndex();
    void complain(const QString &name, const QString &text) const;

    StoreBackend &m_backend;
    CalendarIndex *const m_index;
    const Logger &m_logger;
    StoreCollection m_info;
    EKCalendarRef m_calendar;
    CollectionContents m_contents;
    bool m_isLoaded = false;
    /// What was written and not told of yet, as the hash of its text: the revision of a file that was written a moment
    /// ago does not last.
    QHash<QString, QByteArray> m_written;
    /// What the index does not know yet.
    QStringList m_taken;
    QStringList m_gone;
};

} // namespace mintaro
