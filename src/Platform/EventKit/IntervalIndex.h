#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace mintaro {

/// Intervals with `start` and `end`, asked for by overlap in time that grows with the answer: a balanced search tree by
/// start, laid out in a sorted array, that knows the latest end of each subtree.
template <typename Interval>
class IntervalIndex
{
public:
    IntervalIndex() = default;
    explicit IntervalIndex(std::vector<Interval> intervals)
        : m_intervals(std::move(intervals))
        , m_latestEnds(m_intervals.size())
    {
        std::stable_sort(m_intervals.begin(), m_intervals.end(),
            [](const Interval &a, const Interval &b) { return a.start < b.start; });
        fill(0, m_intervals.size());
    }

    [[nodiscard]] std::size_t size() const { return m_intervals.size(); }

    /// Calls `visit` for each interval that overlaps [begin, end), in order of starts; an empty interval overlaps where
    /// begin <= start < end.
    template <typename Visit>
    void overlapping(std::int64_t begin, std::int64_t end, Visit &&visit) const
    {
        search(0, m_intervals.size(), begin, end, visit);
    }

private:
    std::int64_t fill(std::size_t low, std::size_t high)
    {
        if (low == high)
            return std::numeric_limits<std::int64_t>::min();
        const std::size_t middle = low + (high - low) / 2;
        const std::int64_t below = std::max(fill(low, middle), fill(middle + 1, high));
        return m_latestEnds[middle] = std::max(below, m_intervals[middle].end);
    }

    template <typename Visit>
    void search(std::size_t low, std::size_t high, std::int64_t begin, std::int64_t end, Visit &visit) const
    {
        if (low == high)
            return;
        const std::size_t middle = low + (high - low) / 2;
        if (m_latestEnds[middle] < begin)
            return;
        search(low, middle, begin, end, visit);
        const Interval &own = m_intervals[middle];
        if (own.start >= end)
            return;
        if (own.end > begin || own.start >= begin)
            visit(own);
        search(middle + 1, high, begin, end, visit);
    }

    std::vector<Interval> m_intervals;
    std::vector<std::int64_t> m_latestEnds;
};

} // namespace mintaro
