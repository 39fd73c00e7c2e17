#include "Platform/AppKit/PopoverPosition.h"

#include <gtest/gtest.h>

namespace mintaro {

namespace {

constexpr QSize kCard { 320, 480 };
constexpr QRect kScreen { 0, 0, 1280, 800 };
constexpr QRect kBelowTopPanel { 0, 28, 1280, 772 };
constexpr QRect kAboveBottomPanel { 0, 0, 1280, 760 };
constexpr QRect kRightScreen { 1280, 0, 1024, 768 };

struct Row
{
    const char *name;
    std::optional<QPoint> anchor;
    QRect screen;
    QRect available;
    QPoint expected;
};

TEST(PopoverPosition, Table)
{
    const Row rows[] {
        { "centred below a panel at the top", QPoint(600, 14), kScreen, kBelowTopPanel, { 440, 32 } },
        { "centred above a panel at the bottom", QPoint(600, 780), kScreen, kAboveBottomPanel, { 440, 276 } },
        { "kept off the right edge", QPoint(1270, 14), kScreen, kBelowTopPanel, { 956, 32 } },
        { "kept off the left edge", QPoint(3, 14), kScreen, kBelowTopPanel, { 4, 32 } },
        { "without an anchor the top right", std::nullopt, kScreen, kBelowTopPanel, { 956, 32 } },
        { "clear of the click where the panel is not known", QPoint(600, 14), kScreen, kScreen, { 440, 30 } },
        { "the same at the bottom", QPoint(600, 790), kScreen, kScreen, { 440, 294 } },
        { "a click in the middle keeps the card whole", QPoint(600, 390), kScreen, kScreen, { 440, 316 } },
        { "on the screen of the click", QPoint(1300, 10), kRightScreen, kRightScreen, { 1284, 26 } },
        { "under an item whose screen is gone", QPoint(2000, 14), kScreen, kBelowTopPanel, { 956, 32 } },
        { "the same where that screen was below", QPoint(600, 1590), kScreen, kScreen, { 440, 316 } },
        { "top left counts on a screen that is too small", QPoint(50, 90), { 0, 0, 200, 100 }, { 0, 0, 200, 100 },
            { 4, 4 } },
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(popoverPosition(row.anchor, row.screen, row.available, kCard), row.expected);
    }
}

} // namespace

} // namespace mintaro
