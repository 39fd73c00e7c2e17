#include "Views/Components/ListDiff.h"

#include <QMultiHash>

#include <algorithm>

namespace mintaro {

namespace {

constexpr int kNowhere = -1;

/// For each row of `after`, where it stood in `before`; no place is given twice.
std::vector<int> formerPlaces(const QStringList &before, const QStringList &after)
{
    QMultiHash<QStringView, int> places;
    // Of equal keys, what was put in last is found first.
    for (int i = static_cast<int>(before.size()) - 1; i >= 0; --i)
        places.insert(before[i], i);
    std::vector<int> former;
    for (const QString &key : after) {
        const auto found = places.constFind(key);
        former.push_back(found == places.cend() ? kNowhere : *found);
        if (found != places.cend())
            places.erase(found);
    }
    return former;
}

/// Blots out all but the longest selection of places that goes upwards.
void keepLongestRise(std::vector<int> &places)
{
    std::vector<std::size_t> ends; // of the rises of each length, the one that ends lowest
    std::vector<std::size_t> previous(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] == kNowhere)
            continue;
        const auto end = std::ranges::lower_bound(ends, places[i], {}, [&](std::size_t at) { return places[at]; });
        if (end != ends.begin())
            previous[i] = *std::prev(end);
        if (end == ends.end())
            ends.push_back(i);
        else
            *end = i;
    }
    std::vector<int> kept(places.size(), kNowhere);
    std::size_t at = ends.empty() ? 0 : ends.back();
    for (std::size_t length = ends.size(); length > 0; --length) {
        kept[at] = places[at];
        at = previous[at];
    }
    places = std::move(kept);
}

/// What is not marked, as stretches.
std::vector<ListDiff::Stretch> gaps(const std::vector<bool> &marked)
{
    std::vector<ListDiff::Stretch> gaps;
    for (std::size_t i = 0; i < marked.size(); ++i) {
        if (marked[i])
            continue;
        if (i == 0 || marked[i - 1])
            gaps.push_back({ .first = static_cast<int>(i) });
        ++gaps.back().count;
    }
    return gaps;
}

} // namespace

ListDiff listDiff(const QStringList &before, const QStringList &after)
{
    std::vector<int> former = formerPlaces(before, after);
    keepLongestRise(former);
    std::vector<bool> stays(static_cast<std::size_t>(before.size()));
    std::vector<bool> stayed;
    for (const int place : former) {
        stayed.push_back(place != kNowhere);
        if (place != kNowhere)
            stays[static_cast<std::size_t>(place)] = true;
    }
    ListDiff diff { .removals = gaps(stays), .insertions = gaps(stayed) };
    std::ranges::reverse(diff.removals);
    return diff;
}

} // namespace mintaro
