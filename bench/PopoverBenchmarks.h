#pragma once

#include <string>
#include <utility>
#include <vector>

namespace mintaro::bench {

class GeneratedStore;

/// What the user does with the popover, and with the settings: each time that is reported is the longest for which the
/// main thread was away, beside that of the same on `tiny`, which is next to nothing; "frame_ms" is the time to the
/// first frame. Gives the baseline of each.
std::vector<std::pair<std::string, std::string>> addPopover(GeneratedStore &store, GeneratedStore &tiny);

} // namespace mintaro::bench
