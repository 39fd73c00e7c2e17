#pragma once

class QScreen;

namespace mintaro {

/// The screen that the pointer is on, where the user is taken to look; the primary one where nobody tells.
[[nodiscard]] QScreen *screenWithPointer();

} // namespace mintaro
