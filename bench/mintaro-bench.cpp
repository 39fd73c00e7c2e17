#include "App/AppContext.h"
#include "Platform/AppKit/Workspace.h"
#include "Platform/EventKit/CalendarDatabase.h"
#include "Views/Main/MenuBarLabel.h"
#include "bench/GeneratedStore.h"
#include "bench/LibicalBaseline.h"
#include "bench/PopoverBenchmarks.h"
#include "bench/Process.h"
#include "bench/RatioReporter.h"
#include "bench/RunningProgram.h"
#include "bench/SentenceBenchmarks.h"
#include "bench/Window.h"

#include <benchmark/benchmark.h>

#include <QCoroTask>
#include <QEventLoop>
#include <QGuiApplication>

#include <cstdio>
#include <functional>
#include <malloc.h>

namespace mintaro::bench {

namespace {

class NoWorkspace final : public Workspace
{
public:
    bool open(const URL &, const QString &) override { return false; }
    QCoro::Task<bool> hasHandler(QString) override { co_return false; }
};

/// The program without its window.
class Program
{
public:
    explicit Program(const GeneratedStore &store)
        : m_context(programOptions(store.root(), store.preferences()))
        , m_state(m_context.dependencies(m_workspace))
        , m_label(m_state)
    {
    }

    void follow() { m_context.follow(); }
    /// False where the store cannot be read.
    bool load() { return m_context.database()->requestAccess() && !m_context.database()->calendars().empty(); }

    [[nodiscard]] std::size_t query() { return m_context.database()->events({ kBegin, kEnd, std::nullopt }).size(); }

    /// Two years.
    [[nodiscard]] std::size_t search(const QString &text)
    {
        const DateInterval range = SearchViewModel::range(m_context.environment());
        return m_context.database()->events({ range.start, range.end, std::nullopt, text }).size();
    }

    void refresh() { QCoro::waitFor(m_state.refreshAll()); }

    void showLabel()
    {
        QEventLoop loop;
        QObject::connect(&m_state, &AppState::nextEventChanged, &loop, &QEventLoop::quit);
        m_label.appear();
        if (!m_state.nextEvent())
            loop.exec();
    }

private:
    NoWorkspace m_workspace;
    AppContext m_context;
    AppState m_state;
    MenuBarLabel m_label;
};

double heldBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// Times `measured` on what `prepare` makes; making and unmaking it are left out.
template <typename Prepare, typename Measured>
void measureFresh(benchmark::State &state, Prepare &&prepare, Measured &&measured)
{
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        auto subject = prepare();
        state.ResumeTiming();
        measured(subject);
        state.PauseTiming();
        subject.reset();
        state.ResumeTiming();
    }
}

/// A program that is to read the store as if it did so for the first time, or with the index that it left before.
std::unique_ptr<Program> make(GeneratedStore &store, bool isCold)
{
    qputenv("XDG_CACHE_HOME", (isCold ? store.newCache() : store.cache()).toUtf8());
    auto program = std::make_unique<Program>(store);
    program->follow();
    return program;
}

std::unique_ptr<Program> loaded(GeneratedStore &store)
{
    auto program = make(store, false);
    if (!program->load())
        throw std::runtime_error("the generated store cannot be read");
    return program;
}

void load(benchmark::State &state, GeneratedStore &store, bool isCold)
{
    double bytes = 0;
    measureFresh(
        state, [&] { return make(store, isCold); },
        [&](const auto &program) {
            const double before = heldBytes();
            if (!program->load())
                state.SkipWithError("the generated store cannot be read");
            bytes = heldBytes() - before;
        });
    state.counters["bytes/item"] = bytes / store.items();
    state.counters["text/item"] = static_cast<double>(store.bytes()) / store.items();
}

void parse(benchmark::State &state, GeneratedStore &store)
{
    double bytes = 0;
    measureFresh(
        state, [] { return std::unique_ptr<LibicalBaseline>(); },
        [&](auto &baseline) {
            const double before = heldBytes();
            baseline = std::make_unique<LibicalBaseline>(store.root().toStdString());
            bytes = heldBytes() - before;
        });
    state.counters["bytes/item"] = bytes / store.items();
}

void expandParsed(benchmark::State &state, GeneratedStore &store)
{
    const LibicalBaseline baseline(store.root().toStdString());
    std::int64_t found = 0;
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(found = baseline.countOccurrences(kBegin, kEnd));
    state.counters["found"] = static_cast<double>(found);
}

void queryFirst(benchmark::State &state, GeneratedStore &store)
{
    std::size_t found = 0;
    measureFresh(
        state, [&] { return loaded(store); }, [&](const auto &program) { found = program->query(); });
    state.counters["found"] = static_cast<double>(found);
}

void queryWarm(benchmark::State &state, GeneratedStore &store)
{
    const auto program = loaded(store);
    std::size_t found = program->query();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(found = program->query());
    state.counters["found"] = static_cast<double>(found);
}

void search(benchmark::State &state, GeneratedStore &store, const char *text)
{
    const auto program = loaded(store);
    std::size_t found = program->search(QString::fromUtf8(text));
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(found = program->search(QString::fromUtf8(text)));
    state.counters["found"] = static_cast<double>(found);
}

void refreshAll(benchmark::State &state, GeneratedStore &store)
{
    const auto program = loaded(store);
    program->showLabel();
    for ([[maybe_unused]] auto _ : state)
        program->refresh();
}

void firstLabel(benchmark::State &state, GeneratedStore &store)
{
    measureFresh(
        state, [] { return std::unique_ptr<Program>(); },
        [&](auto &program) {
            program = make(store, false);
            program->showLabel();
        });
}

void runProcess(benchmark::State &state, const std::vector<std::string> &command)
{
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(timeOf(command).count());
}

/// How long mintaroctl takes, as it would be typed.
std::chrono::duration<double> timeOfCommand(const GeneratedStore &store, const QString &cache)
{
    qputenv("XDG_CACHE_HOME", cache.toUtf8());
    return timeOf({ MINTARO_BENCH_PROGRAMS "/mintaroctl", "--store", store.root().toStdString(), "--now",
        "2026-03-10T09:00:00Z", "occurrences", "--from", "20260223T000000Z", "--to", "20260406T000000Z", "--count" });
}

void runCommand(benchmark::State &state, GeneratedStore &store, bool isCold)
{
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(timeOfCommand(store, isCold ? store.newCache() : store.cache()).count());
}

using Ratios = std::vector<std::pair<std::string, std::string>>;

/// Enough repetitions to tell the noise. What needs a fresh subject each time runs once in each of them: the library
/// would count on the measured part being all that there is to wait for.
void addFresh(const std::string &name, const std::function<void(benchmark::State &)> &measurement)
{
    benchmark::RegisterBenchmark(name.c_str(), measurement)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1)
        ->Repetitions(5);
}

void addKept(const std::string &name, const std::function<void(benchmark::State &)> &measurement)
{
    benchmark::RegisterBenchmark(name.c_str(), measurement)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Repetitions(5);
}

void addProcess(const std::string &name, int iterations, const std::function<void(benchmark::State &)> &measurement)
{
    benchmark::RegisterBenchmark(name.c_str(), measurement)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(iterations)
        ->Repetitions(5);
}

/// In one process, over 10,000 items.
Ratios addInProcess(GeneratedStore &store, GeneratedStore &large)
{
    addFresh("parse", [&](auto &state) { parse(state, store); });
    addFresh("loadCold", [&](auto &state) { load(state, store, true); });
    addFresh("loadWarm", [&](auto &state) { load(state, store, false); });
    addKept("expandParsed", [&](auto &state) { expandParsed(state, store); });
    addFresh("queryFirst", [&](auto &state) { queryFirst(state, store); });
    addKept("queryWarm", [&](auto &state) { queryWarm(state, store); });
    addKept("queryWarm100k", [&](auto &state) { queryWarm(state, large); });
    addKept("searchFew", [&](auto &state) { search(state, store, "item 47"); });
    addKept("searchAll", [&](auto &state) { search(state, store, "notes"); });
    addKept("refreshAll", [&](auto &state) { refreshAll(state, store); });
    addFresh("firstLabel", [&](auto &state) { firstLabel(state, store); });
    return { { "loadCold", "parse" }, { "loadWarm", "parse" }, { "queryFirst", "expandParsed" },
        { "queryWarm", "expandParsed" }, { "queryWarm100k", "queryWarm" }, { "searchFew", "expandParsed" },
        { "searchAll", "expandParsed" }, { "refreshAll", "expandParsed" }, { "firstLabel", "parse" } };
}

/// As whole processes.
Ratios addProcesses(GeneratedStore &store, const std::string &size, int iterations)
{
    const std::string root = store.root().toStdString();
    const std::string peer = "libical-peer-" + size;
    addProcess(peer, 1, [root](auto &state) { runProcess(state, { MINTARO_BENCH_PROGRAMS "/libical-peer", root }); });
    addProcess("stat-floor-" + size, iterations, [root](auto &state) {
        runProcess(state, { MINTARO_BENCH_PROGRAMS "/stat-floor", root });
    });
    addProcess("mintaroctl-cold-" + size, 1, [&store](auto &state) { runCommand(state, store, true); });
    addProcess("mintaroctl-warm-" + size, iterations, [&store](auto &state) { runCommand(state, store, false); });
    return { { "stat-floor-" + size, peer }, { "mintaroctl-cold-" + size, peer }, { "mintaroctl-warm-" + size, peer } };
}

int run(int argc, char **argv)
{
    // No display, no graphics driver, and the event dispatcher that tells of its rounds.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("QT_NO_GLIB", "1");
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    constexpr int kReminders = 2'000;
    GeneratedStore tiny(20);
    GeneratedStore shown(10'000, 0, kReminders);
    GeneratedStore small(1'000);
    GeneratedStore store(10'000);
    GeneratedStore withPast(10'000, 90'000);
    GeneratedStore large(100'000);
    // What is called warm finds the index that a run before left.
    for (const GeneratedStore *each : { &tiny, &shown, &small, &store, &withPast, &large })
        (void)timeOfCommand(*each, each->cache());
    Ratios ratios;
    for (const Ratios &part : { addProcesses(small, "1k", 8), addProcesses(store, "10k", 4),
             addProcesses(large, "100k", 1), addInProcess(store, withPast), addPopover(shown, tiny), addSentences() })
        ratios.insert(ratios.end(), part.begin(), part.end());
    RatioReporter reporter(std::move(ratios));
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}

} // namespace

} // namespace mintaro::bench

int main(int argc, char **argv)
{
    try {
        return mintaro::bench::run(argc, argv);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "mintaro-bench: %s\n", error.what());
        return 2;
    }
}
