#pragma once

#include <QString>

#include <array>
#include <optional>

namespace mintaro {

/// How the time to the next event is written.
enum class CountdownFormat { Relative, Compact, Absolute };

inline constexpr std::array kAllCountdownFormats { CountdownFormat::Relative, CountdownFormat::Compact,
    CountdownFormat::Absolute };

/// As stored in the preferences.
[[nodiscard]] QString rawValue(CountdownFormat format);
/// In the user's language.
[[nodiscard]] QString displayName(CountdownFormat format);
/// Empty for a text that is no raw value.
[[nodiscard]] std::optional<CountdownFormat> countdownFormatFromRawValue(const QString &text);

} // namespace mintaro
