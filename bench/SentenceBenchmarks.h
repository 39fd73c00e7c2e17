#pragma once

#include <string>
#include <utility>
#include <vector>

namespace mintaro::bench {

/// The parsing of sentences: all of tests/data/sentences beside chrono-node, and long lines of what could be slow
/// beside text. Gives the baseline of each.
std::vector<std::pair<std::string, std::string>> addSentences();

} // namespace mintaro::bench
