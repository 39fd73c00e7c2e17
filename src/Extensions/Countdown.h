#pragma once

#include "Platform/Foundation/Date.h"

#include <QString>

namespace mintaro {

/// The time from `now` to `moment` in words of the current language, in whole minutes, cut.
[[nodiscard]] QString relativeCountdown(Date moment, Date now);
/// The same in few characters: "45m", "2h", "1h30". Only "now" depends on the language.
[[nodiscard]] QString compactCountdown(Date moment, Date now);

} // namespace mintaro
