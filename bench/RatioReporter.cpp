#include "bench/RatioReporter.h"

#include <array>
#include <cstdio>
#include <ostream>

namespace mintaro::bench {

RatioReporter::RatioReporter(std::vector<std::pair<std::string, std::string>> baselines)
    : ConsoleReporter(OO_Tabular)
    , m_baselines(std::move(baselines))
{
}

void RatioReporter::ReportRuns(const std::vector<Run> &runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run &run : runs) {
        if (run.error_occurred || run.run_type != Run::RT_Aggregate)
            continue;
        Result &result = m_results[run.run_name.function_name];
        // Times are sums over the iterations; the coefficient of variation is none.
        if (run.aggregate_name == "median")
            result.milliseconds = 1e3 * run.real_accumulated_time / static_cast<double>(run.iterations);
        else if (run.aggregate_name == "cv")
            result.noise = 100 * run.real_accumulated_time;
    }
}

void RatioReporter::Finalize()
{
    ConsoleReporter::Finalize();
    std::ostream &out = GetOutputStream();
    const auto line = [&out](const auto &...columns) {
        std::array<char, 200> text {};
        std::snprintf(text.data(), text.size(), columns...);
        out << text.data() << '\n';
    };
    line("\n%-24s %10s %7s   %-24s %10s %7s %8s", "", "ms", "noise", "against", "ms", "noise", "ratio");
    for (const auto &[name, baseline] : m_baselines) {
        const auto own = m_results.find(name);
        const auto base = m_results.find(baseline);
        if (own == m_results.end() || base == m_results.end())
            continue;
        line("%-24s %10.3f %6.1f%%   %-24s %10.3f %6.1f%% %9.5f", name.c_str(), own->second.milliseconds,
            own->second.noise, baseline.c_str(), base->second.milliseconds, base->second.noise,
            own->second.milliseconds / base->second.milliseconds);
    }
}

} // namespace mintaro::bench
