#pragma once

#include "Platform/Foundation/Color.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <vector>

namespace mintaro {

/// What the store reports to a caller; what() is a text for people.
class EKError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A place that holds calendar objects of one calendar.
struct StoreCollection
{
    /// Stable across restarts; it becomes the calendar's identifier.
    QString identifier;
    QString title;
    QString sourceIdentifier;
    QString sourceTitle;
    /// Empty: the engine picks one that stays the same for the same identifier.
    std::optional<Color> color;
    bool isWritable = false;
    /// The collection was made for reminders, whatever it holds now.
    bool isReminderList = false;
    /// The user wants new events here.
    bool isDefault = false;
    /// The user's own e-mail addresses in this account, in lower case without "mailto:".
    QStringList userAddresses;

    friend bool operator==(const StoreCollection &, const StoreCollection &) = default;
};

/// Tells one state of an object from another. The numbers mean something to the backend alone.
using ObjectRevision = std::array<std::int64_t, 4>;

struct ObjectState
{
    /// Unique within its collection, stable as long as the object lives.
    QString name;
    ObjectRevision revision {};
};

/// What may have changed in a store.
struct StoreChanges
{
    /// Collections came, went or changed their looks; then all is to be compared anew.
    bool collections = false;
    /// Object names by collection identifier. An empty list: any object of it.
    std::map<QString, QStringList> objects;

    [[nodiscard]] bool isEmpty() const { return !collections && objects.empty(); }
};

/// What came of writing an object. An error is thrown instead.
enum class WriteOutcome {
    Done,
    /// The object holds something else by now; nothing was changed.
    Changed,
    /// There is no such object any more; nothing was changed.
    Gone,
};

/// Delivers and takes whole iCalendar objects (RFC 5545 3.4) with their collections and tells of changes. All that
/// calendars mean (zones, recurrences, overlap, merging) is the engine's, so that every backend answers alike. Calls
/// come from any thread: those of `objects`, `object`, `read` and `describe` several at once, all others alone. Other
/// programs change the same objects at any time, so what is written says what it takes the place of. When a call that
/// writes comes back, its outcome is durable; one that throws EKError, with a text for people, has changed nothing.
class StoreBackend
{
public:
    virtual ~StoreBackend() = default;

    /// False where the user's data cannot be read; throws EKError where the store's configuration makes no sense.
    [[nodiscard]] virtual bool requestAccess() = 0;
    [[nodiscard]] virtual std::vector<StoreCollection> collections() = 0;
    /// Every object of a collection, in no order, without reading any.
    [[nodiscard]] virtual std::vector<ObjectState> objects(const QString &collection) = 0;
    /// The present state of one object; empty when there is none of that name.
    [[nodiscard]] virtual std::optional<ObjectState> object(const QString &collection, const QString &name) = 0;
    /// An object's text. Empty when it is gone or must not be read (too large, no regular file, ...), with a log line
    /// in the second case.
    [[nodiscard]] virtual std::optional<QByteArray> read(const QString &collection, const QString &name) = 0;
    /// What to call the object in a log line.
    [[nodiscard]] virtual QString describe(const QString &collection, const QString &name) const = 0;
    /// Puts `text` in the place of `base`, which is what `read` gave.
    [[nodiscard]] virtual WriteOutcome replace(
        const QString &collection, const QString &name, const QByteArray &base, const QByteArray &text)
        = 0;
    /// Removes an object that holds `base`.
    [[nodiscard]] virtual WriteOutcome remove(const QString &collection, const QString &name, const QByteArray &base)
        = 0;
    /// Adds an object under a name from `newName` or of another object. False where the collection has one of that
    /// name.
    [[nodiscard]] virtual bool create(const QString &collection, const QString &name, const QByteArray &text) = 0;
    /// A name for a new object with this UID.
    [[nodiscard]] virtual QString newName(const QString &uid) const = 0;
    /// From now on `handler` is called, on a thread of the backend's own, once for each burst of changes. Without it
    /// nothing is watched.
    virtual void watch(std::function<void(const StoreChanges &)> handler) = 0;
};

} // namespace mintaro
