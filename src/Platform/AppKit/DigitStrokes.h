#pragma once

#include <QPainterPath>
#include <QRect>

namespace mintaro {

/// A digit, '0' to '9', as an area of strokes `thickness` wide that fills `box`. Upright and level strokes keep to
/// whole pixels, so that the digit stays crisp where letters of a font would blur. Any other character has no area.
[[nodiscard]] QPainterPath digitStrokes(QChar digit, const QRect &box, int thickness);

} // namespace mintaro
