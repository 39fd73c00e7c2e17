#include "Platform/EventKit/Folders/ChangeBurst.h"

#include <algorithm>

namespace mintaro {

namespace {

constexpr std::chrono::milliseconds kQuiet { 100 };
constexpr std::chrono::milliseconds kLongest { 500 };

} // namespace

void ChangeBurst::addCollections(TimePoint now)
{
    m_collections = true;
    note(now);
}

void ChangeBurst::addObject(const QString &collection, const QString &name, Writing writing, TimePoint now)
{
    Names &names = m_names[collection];
    if (writing == Writing::Begun) {
        names[name] = now + kLongest;
        return;
    }
    if (writing == Writing::Untouched)
        names.try_emplace(name, std::nullopt);
    else
        names[name] = std::nullopt;
    note(now);
}

void ChangeBurst::addObjectsOf(const QString &collection, TimePoint now)
{
    m_wholes.insert(collection);
    note(now);
}

void ChangeBurst::note(TimePoint now)
{
    m_last = now;
    if (!m_first)
        m_first = now;
}

std::optional<ChangeBurst::TimePoint> ChangeBurst::due() const
{
    std::optional<TimePoint> due;
    if (m_first)
        due = std::min(m_last + kQuiet, *m_first + kLongest);
    for (const auto &[collection, names] : m_names) {
        for (const auto &[name, heldUntil] : names) {
            if (heldUntil && (!due || *heldUntil < *due))
                due = heldUntil;
        }
    }
    return due;
}

StoreChanges ChangeBurst::take(TimePoint now)
{
    StoreChanges changes;
    const std::optional<TimePoint> moment = due();
    if (!moment || now < *moment)
        return changes;
    takeNames(changes, now);
    changes.collections = std::exchange(m_collections, false);
    for (const QString &collection : std::exchange(m_wholes, {}))
        changes.objects[collection] = {};
    m_first.reset();
    return changes;
}

void ChangeBurst::takeNames(StoreChanges &changes, TimePoint now)
{
    for (auto &[collection, names] : m_names) {
        std::erase_if(names, [&, &place = collection](const auto &entry) {
            const bool mayBeTold = !entry.second || *entry.second <= now;
            if (mayBeTold)
                changes.objects[place].append(entry.first);
            return mayBeTold;
        });
    }
    std::erase_if(m_names, [](const auto &entry) { return entry.second.empty(); });
}

} // namespace mintaro
