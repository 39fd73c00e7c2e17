#pragma once

#include <memory>
#include <unordered_map>

namespace mintaro {

/// Remembers what was worked out from an immutable item for as long as the item lives. For one thread.
template <typename Item, typename Value>
class RevisionCache
{
public:
    /// The remembered value, or that of `work`, which is called once for each item.
    template <typename Work>
    const Value &value(const std::shared_ptr<const Item> &item, Work work)
    {
        Entry &entry = m_entries[item.get()];
        // An expired entry belongs to an item that lay at the same address before.
        if (entry.item.expired() || entry.item.lock() != item)
            entry = { item, work() };
        return entry.value;
    }

    /// Drops the entries of items that are gone.
    void prune()
    {
        std::erase_if(m_entries, [](const auto &each) { return each.second.item.expired(); });
    }

private:
    struct Entry
    {
        std::weak_ptr<const Item> item;
        Value value {};
    };
    std::unordered_map<const Item *, Entry> m_entries;
};

} // namespace mintaro
