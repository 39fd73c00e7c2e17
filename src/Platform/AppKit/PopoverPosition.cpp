#include "Platform/AppKit/PopoverPosition.h"

#include <algorithm>

namespace mintaro {

namespace {

/// Between the card and a panel or an edge.
constexpr int kGap = 4;
/// From the click to the card where nobody tells how high the panel is: Qt knows the work area of a single screen only.
constexpr int kUnknownPanel = 16;

/// The right and bottom edges count as outside, other than QRect's own.
int within(int value, int first, int end)
{
    return std::max(first, std::min(value, end));
}

} // namespace

QPoint popoverPosition(
    std::optional<QPoint> anchor, const QRect &screenGeometry, const QRect &availableGeometry, const QSize &cardSize)
{
    const int left = availableGeometry.left() + kGap;
    const int top = availableGeometry.top() + kGap;
    const int lastX = availableGeometry.left() + availableGeometry.width() - cardSize.width() - kGap;
    const int lastY = availableGeometry.top() + availableGeometry.height() - cardSize.height() - kGap;
    if (!anchor) {
        return { std::max(left, lastX), top };
    }
    const bool panelKnown = availableGeometry.height() != screenGeometry.height();
    const bool fromTop = anchor->y() < screenGeometry.center().y();
    const int x = within(anchor->x() - cardSize.width() / 2, left, lastX);
    if (fromTop) {
        return { x, panelKnown ? top : within(anchor->y() + kUnknownPanel, top, lastY) };
    }
    return { x,
        std::max(top, panelKnown ? lastY : within(anchor->y() - kUnknownPanel - cardSize.height(), top, lastY)) };
}

} // namespace mintaro
