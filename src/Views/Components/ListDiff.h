#pragma once

#include <QStringList>

#include <vector>

namespace mintaro {

/// What makes one list of rows another, told by the keys of the rows. The removals are done first, as they stand here:
/// from the last to the first, at positions of the old list. Then come the insertions, from the first to the last, at
/// positions of the new one.
struct ListDiff
{
    struct Stretch
    {
        int first = 0;
        int count = 0; ///< above 0
        friend bool operator==(const Stretch &, const Stretch &) = default;
    };

    std::vector<Stretch> removals;
    std::vector<Stretch> insertions;
};

/// The one that keeps the most rows; a row that moved among those that stay is removed and inserted. A key may stand
/// several times. Costs n log n.
[[nodiscard]] ListDiff listDiff(const QStringList &before, const QStringList &after);

} // namespace mintaro
