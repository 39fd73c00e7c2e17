#pragma once

#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/DurableFolder.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace mintaro {

/// Keeps what Mintaro's own changes take away, as plain .ics files in one folder, for 30 days: ID.ics has the text,
/// ID.origin says where it was. Several processes may keep things in the same folder at once. What else lies there is
/// passed over. Not thread-safe.
class ChangeJournal
{
public:
    enum class Reason { Changed, Deleted };

    /// Where an object is.
    struct Place
    {
        QString collection;
        QString name;
    };

    struct Entry
    {
        /// Names it among the others; ascends with the time.
        QString id;
        Date time {};
        Reason reason = Reason::Changed;
        /// Where the object was.
        Place place {};
        /// What the same change made, of this object or a part of it: the rest of a divided series, the same event in
        /// another calendar.
        std::optional<Place> created {};
    };

    /// `folder`: absolute; made when it is needed. `clock` must outlive the journal.
    ChangeJournal(QString folder, const Clock &clock);

    /// Keeps `text`, as it is, durably; removes what is older than 30 days. An entry of a time to come stays: the clock
    /// was set back. The result is the entry's id. Throws EKError, and has then kept nothing.
    [[nodiscard]] QString keep(
        const Place &place, const QByteArray &text, Reason reason, const std::optional<Place> &created = std::nullopt);
    /// Removes an entry whose change did not come about. One that cannot be removed stays until its time.
    void discard(const QString &id);
    /// What is kept, the latest last.
    [[nodiscard]] std::vector<Entry> entries() const;
    /// Empty where there is no such entry.
    [[nodiscard]] std::optional<Entry> entry(const QString &id) const;
    /// Empty where there is no such entry, or it cannot be read.
    [[nodiscard]] std::optional<QByteArray> text(const QString &id) const;

private:
    [[nodiscard]] QString keepIn(DurableFolder &folder, const QByteArray &origin, const QByteArray &text);
    void removeOld() const;
    void remove(const QString &id) const;
    [[nodiscard]] QString pathOf(const QString &id, QLatin1String ending) const;

    const QString m_folder;
    const Clock &m_clock;
};

} // namespace mintaro
