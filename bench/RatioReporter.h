#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace mintaro::bench {

/// The library's own output, and after it a table: each benchmark's time as a multiple of its baseline's in the same
/// run, which means the same on any machine, with the noise of both.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    /// `baselines`: the baseline of each benchmark, by name.
    explicit RatioReporter(std::vector<std::pair<std::string, std::string>> baselines);

    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

private:
    struct Result
    {
        double milliseconds = 0;
        /// Coefficient of variation in percent.
        double noise = 0;
    };

    const std::vector<std::pair<std::string, std::string>> m_baselines;
    std::map<std::string, Result> m_results;
};

} // namespace mintaro::bench
