#pragma once

#include <QByteArray>
#include <QImage>

namespace mintaro {

/// Edge of an icon in points.
inline constexpr int kIconSize = 16;

/// A square picture of 16 by 16 points from a file (ICO, PNG, GIF, JPEG or BMP): the device pixel ratio says how many
/// pixels stand for a point, up to 4. Of the pictures in an ICO the smallest that still has two. Null where the data is
/// no picture, or one of more than 512 by 512 pixels, which is not unpacked. Any thread.
[[nodiscard]] QImage iconImage(const QByteArray &data);

} // namespace mintaro
