#include "bench/RunningProgram.h"

#include <QGuiApplication>

#include <stdexcept>

namespace mintaro::bench {

namespace {

using namespace std::chrono;

constexpr sys_seconds kNow = sys_days { 2026y / March / 10 } + 9h;
/// Longer than any animation.
constexpr milliseconds kSettling { 400 };

PopoverWindow &popover()
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (auto *popover = qobject_cast<PopoverWindow *>(window))
            return *popover;
    }
    throw std::runtime_error("there is no popover");
}

} // namespace

ContextOptions programOptions(const QString &root, const QString &preferences)
{
    ContextOptions options;
    options.store = root;
    options.now = kNow;
    options.timeZone = TimeZone::named(QStringLiteral("Europe/Rome"));
    options.locale = Locale::fromIdentifier(QStringLiteral("en_US"));
    options.preferences = preferences;
    return options;
}

RunningProgram::RunningProgram(const ContextOptions &options)
    : m_app(options)
{
    QObject::connect(&appState(), &AppState::nextEventChanged, &m_watch, [this] { ++m_refreshes; });
    m_app.start();
    MainThreadWatch::runUntil([this] { return m_refreshes > 0; });
    MainThreadWatch::runFor(kSettling);
}

RunningProgram::Cost RunningProgram::open()
{
    return measureRefresh([this] { m_app.showPopover(); });
}

void RunningProgram::close()
{
    popover().hidePopover();
    MainThreadWatch::runFor(kSettling);
}

RunningProgram::Cost RunningProgram::measureRefresh(const std::function<void()> &act)
{
    const int before = m_refreshes;
    return measure(act, [&] { return m_refreshes > before; });
}

RunningProgram::Cost RunningProgram::measure(const std::function<void()> &act, const std::function<bool()> &isDone)
{
    Cost cost;
    const auto begin = steady_clock::now();
    m_watch.restart();
    act();
    const auto frame = QObject::connect(
        &popover(), &QQuickWindow::frameSwapped, &m_watch, [&] { cost.toFirstFrame = steady_clock::now() - begin; },
        Qt::SingleShotConnection);
    MainThreadWatch::runUntil(isDone);
    MainThreadWatch::runFor(kSettling);
    QObject::disconnect(frame);
    cost.longestSpan = m_watch.longest();
    return cost;
}

} // namespace mintaro::bench
