#include "App/AppContext.h"
#include "Platform/AppKit/Workspace.h"
#include "Platform/EventKit/CalendarDatabase.h"
#include "Views/Main/MenuBarLabel.h"
#include "bench/GeneratedStore.h"
#include "bench/LibicalBaseline.h"
#include "bench/RatioReporter.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QCoroTask>
#include <QEventLoop>

#include <cstdio>
#include <malloc.h>

namespace mintaro::bench {

namespace {

using namespace std::chrono;

constexpr sys_seconds kNow = sys_days { 2026y / March / 10 } + 9h;
constexpr sys_seconds kBegin = sys_days { 2026y / February / 23 };
constexpr sys_seconds kEnd = kBegin + weeks { 6 };

class NoWorkspace final : public Workspace
{
public:
    void open(const URL &) override { }
    QCoro::Task<bool> hasHandler(QString) override { co_return false; }
};

/// The program without its window.
class Program
{
public:
    explicit Program(const GeneratedStore &store)
        : m_context({ .store = store.root(),
            .now = kNow,
            .timeZone = TimeZone::named(QStringLiteral("Europe/Rome")),
            .locale = Locale::fromIdentifier(QStringLiteral("en_US")),
            .preferences = store.preferences() })
        , m_state(m_context.dependencies(m_workspace))
        , m_label(m_state)
    {
    }

    /// False where the store cannot be read.
    bool load() { return m_context.database()->requestAccess() && !m_context.database()->calendars().empty(); }

    [[nodiscard]] std::size_t query() { return m_context.database()->events({ kBegin, kEnd, std::nullopt }).size(); }

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

void load(benchmark::State &state, const GeneratedStore &store)
{
    double bytes = 0;
    measureFresh(
        state, [&] { return std::make_unique<Program>(store); },
        [&](const auto &program) {
            const double before = heldBytes();
            if (!program->load())
                state.SkipWithError("the generated store cannot be read");
            bytes = heldBytes() - before;
        });
    state.counters["bytes/item"] = bytes / GeneratedStore::kItems;
}

void parse(benchmark::State &state, const GeneratedStore &store)
{
    double bytes = 0;
    measureFresh(
        state, [] { return std::unique_ptr<LibicalBaseline>(); },
        [&](auto &baseline) {
            const double before = heldBytes();
            baseline = std::make_unique<LibicalBaseline>(store.root());
            bytes = heldBytes() - before;
        });
    state.counters["bytes/item"] = bytes / GeneratedStore::kItems;
}

void parseAndExpand(benchmark::State &state, const GeneratedStore &store)
{
    std::int64_t found = 0;
    measureFresh(
        state, [] { return std::unique_ptr<LibicalBaseline>(); },
        [&](auto &baseline) {
            baseline = std::make_unique<LibicalBaseline>(store.root());
            found = baseline->countOccurrences(kBegin, kEnd);
        });
    state.counters["found"] = static_cast<double>(found);
}

std::unique_ptr<Program> loaded(const GeneratedStore &store)
{
    auto program = std::make_unique<Program>(store);
    if (!program->load())
        throw std::runtime_error("the generated store cannot be read");
    return program;
}

void queryFirst(benchmark::State &state, const GeneratedStore &store)
{
    std::size_t found = 0;
    measureFresh(
        state, [&] { return loaded(store); }, [&](const auto &program) { found = program->query(); });
    state.counters["found"] = static_cast<double>(found);
}

void queryWarm(benchmark::State &state, const GeneratedStore &store)
{
    const auto program = loaded(store);
    benchmark::DoNotOptimize(program->query());
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(program->query());
}

void refreshAll(benchmark::State &state, const GeneratedStore &store)
{
    const auto program = loaded(store);
    program->showLabel();
    for ([[maybe_unused]] auto _ : state)
        program->refresh();
}

void firstLabel(benchmark::State &state, const GeneratedStore &store)
{
    measureFresh(
        state, [] { return std::unique_ptr<Program>(); },
        [&](auto &program) {
            program = std::make_unique<Program>(store);
            program->showLabel();
        });
}

using Measurement = void (*)(benchmark::State &, const GeneratedStore &);

enum class Subject { Fresh, Kept };

/// Enough repetitions to tell the noise. What needs a fresh subject each time runs as often as is said here: the
/// library would count on the measured part being all that there is to wait for.
void add(const char *name, Measurement measurement, const GeneratedStore &store, Subject subject)
{
    auto *registered = benchmark::RegisterBenchmark(name, measurement, std::cref(store));
    registered->Unit(benchmark::kMillisecond)->UseRealTime()->Repetitions(7);
    if (subject == Subject::Fresh)
        registered->Iterations(1);
}

int run(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    const GeneratedStore store;
    add("parse", parse, store, Subject::Fresh);
    add("parseAndExpand", parseAndExpand, store, Subject::Fresh);
    add("load", load, store, Subject::Fresh);
    add("queryFirst", queryFirst, store, Subject::Fresh);
    add("queryWarm", queryWarm, store, Subject::Kept);
    add("refreshAll", refreshAll, store, Subject::Kept);
    add("firstLabel", firstLabel, store, Subject::Fresh);
    RatioReporter reporter({ { "load", "parse" }, { "queryFirst", "parseAndExpand" }, { "queryWarm", "parseAndExpand" },
        { "refreshAll", "parseAndExpand" }, { "firstLabel", "parseAndExpand" } });
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
