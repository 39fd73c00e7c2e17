#pragma once

#include "Platform/Foundation/Color.h"

#include <QString>

namespace mintaro {

/// The colour of a calendar that has none: one of eight, always the same for the same identifier.
[[nodiscard]] Color paletteColor(const QString &calendarIdentifier);

} // namespace mintaro
