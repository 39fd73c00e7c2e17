#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <vector>

struct icalcomponent_impl;

namespace mintaro::bench {

/// The least that any program over libical does: what the engine's figures are compared with. It reads times in the
/// library's built-in zones, which is far quicker than to follow the rules in each file.
class LibicalBaseline
{
public:
    /// Reads and parses every .ics file of the sub-folders of `root`, and holds the components.
    explicit LibicalBaseline(const std::filesystem::path &root);
    ~LibicalBaseline();
    LibicalBaseline(const LibicalBaseline &) = delete;
    LibicalBaseline &operator=(const LibicalBaseline &) = delete;

    /// How many occurrences overlap [begin, end), found by walking every series from its start.
    [[nodiscard]] std::int64_t countOccurrences(std::chrono::sys_seconds begin, std::chrono::sys_seconds end) const;

    /// The same in one go, with no more than one component held.
    [[nodiscard]] static std::int64_t countOccurrencesBelow(
        const std::filesystem::path &root, std::chrono::sys_seconds begin, std::chrono::sys_seconds end);

private:
    std::vector<icalcomponent_impl *> m_components;
};

} // namespace mintaro::bench
