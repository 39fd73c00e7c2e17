#include "Views/Components/ListDiff.h"

#include "support/Printers.h"

#include <gmock/gmock.h>

namespace mintaro {
namespace {

struct Case
{
    const char *name;
    const char *before; ///< a letter for each row
    const char *after;
    std::vector<ListDiff::Stretch> removals;
    std::vector<ListDiff::Stretch> insertions;
};

class ListDiffTest : public testing::TestWithParam<Case>
{
};

TEST_P(ListDiffTest, TouchesOnlyWhatDiffers)
{
    const auto &[name, before, after, removals, insertions] = GetParam();
    const auto rows
        = [](const char *letters) { return QString::fromLatin1(letters).split(QString(), Qt::SkipEmptyParts); };
    const ListDiff diff = listDiff(rows(before), rows(after));
    EXPECT_EQ(diff.removals, removals);
    EXPECT_EQ(diff.insertions, insertions);

    QStringList result = rows(before);
    for (const auto &[first, count] : diff.removals)
        result.remove(first, count);
    for (const auto &[first, count] : diff.insertions) {
        for (int i = first; i < first + count; ++i)
            result.insert(i, rows(after)[i]);
    }
    EXPECT_EQ(result, rows(after));
}

using Stretches = std::vector<ListDiff::Stretch>;
INSTANTIATE_TEST_SUITE_P(, ListDiffTest,
    testing::Values(Case { "nothing", "", "", {}, {} }, Case { "same", "abc", "abc", {}, {} },
        Case { "filled", "", "abc", {}, Stretches { { 0, 3 } } },
        Case { "emptied", "abc", "", Stretches { { 0, 3 } }, {} },
        Case { "removedAtBothEnds", "abcd", "bc", Stretches { { 3, 1 }, { 0, 1 } }, {} },
        Case { "insertedApart", "abc", "axbyyc", {}, Stretches { { 1, 1 }, { 3, 2 } } },
        Case { "replacedApart", "abcde", "axcye", Stretches { { 3, 1 }, { 1, 1 } }, Stretches { { 1, 1 }, { 3, 1 } } },
        Case { "movedDown", "abcd", "bcda", Stretches { { 0, 1 } }, Stretches { { 3, 1 } } },
        Case { "movedUp", "abcd", "dabc", Stretches { { 3, 1 } }, Stretches { { 0, 1 } } },
        Case { "keepsTheLongerRun", "cdeab", "abcde", Stretches { { 3, 2 } }, Stretches { { 0, 2 } } },
        Case { "sameKeyTwice", "aab", "ab", Stretches { { 1, 1 } }, {} },
        Case { "sameKeyOnceMore", "ab", "aaab", {}, Stretches { { 1, 2 } } }),
    kRowName);

} // namespace
} // namespace mintaro
