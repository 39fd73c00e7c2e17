#pragma once

#include "Platform/EventKit/StoreBackend.h"

#include <chrono>
#include <map>
#include <optional>
#include <set>

namespace mintaro {

/// Gathers changes that come close together, so that they are told once: 100 ms after the last one and at the latest
/// 500 ms after the first. An object that is still being written is held back until it is complete, or for 500 ms.
class ChangeBurst
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    enum class Writing {
        Begun, ///< The object is new and has no content yet.
        Done, ///< The object is complete, or gone.
        Untouched ///< Something beside the content changed.
    };

    void addCollections(TimePoint now);
    void addObject(const QString &collection, const QString &name, Writing writing, TimePoint now);
    /// Any object of the collection may have changed.
    void addObjectsOf(const QString &collection, TimePoint now);

    /// When to call take(); empty when there is nothing to tell.
    [[nodiscard]] std::optional<TimePoint> due() const;
    /// What is to be told; empty before it is due.
    [[nodiscard]] StoreChanges take(TimePoint now);

private:
    using Names = std::map<QString, std::optional<TimePoint>>;

    void note(TimePoint now);
    /// Moves the names that need not wait (any longer) to `changes`.
    void takeNames(StoreChanges &changes, TimePoint now);

    bool m_collections = false;
    std::set<QString> m_wholes;
    /// By collection; a name with a time is held back until then.
    std::map<QString, Names> m_names;
    /// Of those changes that need not wait for a writer.
    std::optional<TimePoint> m_first;
    TimePoint m_last;
};

} // namespace mintaro
