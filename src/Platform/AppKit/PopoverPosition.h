#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace mintaro {

/// Where the top left corner of a popover's card goes, in the screen's coordinates: towards the middle of the screen
/// from the anchor, beside the panel that the anchor lies in, and wholly within the available geometry where it fits.
/// Without an anchor the top right corner.
[[nodiscard]] QPoint popoverPosition(
    std::optional<QPoint> anchor, const QRect &screenGeometry, const QRect &availableGeometry, const QSize &cardSize);

} // namespace mintaro
