#include "bench/PopoverBenchmarks.h"

#include "bench/GeneratedStore.h"
#include "bench/RunningProgram.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QProcess>

#include <stdexcept>

namespace mintaro::bench {

namespace {

using Cost = RunningProgram::Cost;

constexpr int kRepetitions = 5;

/// In a process of its own.
Cost firstOpening(const GeneratedStore &store)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QStringLiteral(MINTARO_BENCH_PROGRAMS "/popover-opening"), { store.root(), store.preferences() });
    process.waitForFinished(-1);
    const QList<QByteArray> columns = process.readAllStandardOutput().simplified().split(' ');
    if (process.exitCode() != 0 || columns.size() != 2)
        throw std::runtime_error("popover-opening tells nothing");
    return { Milliseconds(columns[0].toDouble()), Milliseconds(columns[1].toDouble()) };
}

Cost open(RunningProgram &program)
{
    program.close();
    return program.open();
}

Cost changeMonth(RunningProgram &program)
{
    return program.measureRefresh([&program] { program.appState().navigateMonth(1); });
}

Cost selectDay(RunningProgram &program)
{
    AppState &state = program.appState();
    return program.measure(
        [&state] { state.selectDay(state.selectedDate() + std::chrono::days { 1 }); }, [] { return true; });
}

Cost refreshUnchanged(RunningProgram &program)
{
    return program.measureRefresh([&program] { program.appState().refreshAll(); });
}

Cost search(RunningProgram &program, const char *text)
{
    SearchViewModel &search = *program.appState().searchVM();
    const Cost cost = program.measure(
        [&] {
            search.setSearchText(QString::fromUtf8(text));
            search.search();
        },
        [&] { return !search.isSearching(); });
    return cost;
}

/// Of the view that fills the window of that class; null where there is none.
template <typename Controller, typename Window>
Controller *controllerInSight()
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        auto *found = window->isVisible() ? qobject_cast<Window *>(window) : nullptr;
        for (QQuickItem *item : found ? found->contentItem()->childItems() : QList<QQuickItem *>()) {
            if (auto *controller = item->property("controller").value<Controller *>())
                return controller;
        }
    }
    return nullptr;
}

SettingsViewController *settings()
{
    return controllerInSight<SettingsViewController, TitledWindow>();
}

TimezonePickerViewController *picker()
{
    return controllerInSight<TimezonePickerViewController, Panel>();
}

Cost openSettings(RunningProgram &program)
{
    if (SettingsViewController *open = settings()) {
        open->close();
        MainThreadWatch::runUntil([] { return !settings(); });
    }
    return program.measure([&program] { program.openSettings(); }, settings);
}

Cost openTimeZones(RunningProgram &program)
{
    WorldClockSettingsViewController &worldClock = *settings()->worldClock();
    worldClock.setShowingPicker(false);
    MainThreadWatch::runUntil([] { return !picker(); });
    return program.measure([&] { worldClock.setShowingPicker(true); }, picker);
}

Cost filterTimeZones(RunningProgram &program)
{
    picker()->setSearchText({});
    MainThreadWatch::runFor(std::chrono::milliseconds { 200 });
    return program.measure([] { picker()->setSearchText(QStringLiteral("e")); }, [] { return true; });
}

Cost scrollTimeZones(RunningProgram &program)
{
    return program.measure(
        [] {
            QKeyEvent pageDown(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
            QCoreApplication::sendEvent(QGuiApplication::focusWindow(), &pageDown);
        },
        [] { return true; });
}

struct Action
{
    const char *name;
    std::function<Cost(RunningProgram &)> run;
};

void add(const std::string &name, const std::function<Cost()> &run)
{
    const auto measured = [run](benchmark::State &state) {
        Milliseconds frame { 0 };
        for ([[maybe_unused]] auto _ : state) {
            const Cost cost = run();
            frame = cost.toFirstFrame;
            state.SetIterationTime(std::chrono::duration<double>(cost.longestSpan).count());
        }
        state.counters["frame_ms"] = frame.count();
    };
    benchmark::RegisterBenchmark(name.c_str(), measured)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(kRepetitions);
}

/// One program at a time, with its popover open, which runs until another store is asked for.
class Stage
{
public:
    RunningProgram &program(const GeneratedStore &store)
    {
        if (std::exchange(m_store, &store) != &store) {
            m_program.reset();
            qputenv("XDG_CACHE_HOME", store.cache().toUtf8());
            m_program = std::make_unique<RunningProgram>(programOptions(store.root(), store.preferences()));
            (void)m_program->open();
        }
        return *m_program;
    }

private:
    const GeneratedStore *m_store = nullptr;
    std::unique_ptr<RunningProgram> m_program;
};

} // namespace

std::vector<std::pair<std::string, std::string>> addPopover(GeneratedStore &store, GeneratedStore &tiny)
{
    const std::vector<Action> actions { { "openAgain", open }, { "changeMonth", changeMonth },
        { "selectDay", selectDay }, { "refreshUnchanged", refreshUnchanged },
        { "showSearchFew", [](auto &program) { return search(program, "item 47"); } },
        { "showSearchAll", [](auto &program) { return search(program, "notes"); } }, { "openSettings", openSettings },
        { "openTimeZones", openTimeZones }, { "scrollTimeZones", scrollTimeZones },
        { "filterTimeZones", filterTimeZones } };
    std::vector<std::pair<std::string, std::string>> baselines;
    const auto stage = std::make_shared<Stage>();
    for (const auto &[each, suffix] : { std::pair(&tiny, "-tiny"), std::pair(&store, "") }) {
        add(std::string("openFirst") + suffix, [each = each] {
            qputenv("XDG_CACHE_HOME", each->cache().toUtf8());
            return firstOpening(*each);
        });
        for (const Action &action : actions)
            add(action.name + std::string(suffix),
                [stage, each = each, run = action.run] { return run(stage->program(*each)); });
    }
    baselines.emplace_back("openFirst", "openFirst-tiny");
    for (const Action &action : actions)
        baselines.emplace_back(action.name, action.name + std::string("-tiny"));
    return baselines;
}

} // namespace mintaro::bench
