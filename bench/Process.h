#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace mintaro::bench {

/// Runs a program to its end, with its output thrown away. Throws std::runtime_error where it cannot be run or fails.
[[nodiscard]] std::chrono::duration<double> timeOf(const std::vector<std::string> &command);

} // namespace mintaro::bench
