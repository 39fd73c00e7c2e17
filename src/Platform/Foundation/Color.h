#pragma once

#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

namespace mintaro {

/// An opaque sRGB colour.
struct Color
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    /// Reads #RGB, #RRGGBB and #RRGGBBAA (the alpha is dropped) in any case, with white space around it; empty for any
    /// other text.
    [[nodiscard]] static std::optional<Color> fromHex(QStringView text);
    /// #rrggbb.
    [[nodiscard]] QString hex() const;

    friend auto operator<=>(const Color &, const Color &) = default;
};

} // namespace mintaro
