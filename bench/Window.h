#pragma once

#include <chrono>

namespace mintaro::bench {

/// The six weeks that everything is asked for.
inline constexpr std::chrono::sys_seconds kBegin
    = std::chrono::sys_days { std::chrono::year { 2026 } / std::chrono::February / 23 };
inline constexpr std::chrono::sys_seconds kEnd = kBegin + std::chrono::weeks { 6 };

} // namespace mintaro::bench
