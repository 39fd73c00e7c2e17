#pragma once

#include "bench/MainThreadWatch.h"
#include "main/MintaroApp.h"

namespace mintaro::bench {

/// A program's options: calendars and preferences of a generated store, at a moment in the midst of it.
[[nodiscard]] ContextOptions programOptions(const QString &root, const QString &preferences);

using Milliseconds = std::chrono::duration<double, std::milli>;

/// The whole program with its popover, as the user has it, off screen. Needs a session bus: without one a chip is made
/// at the start, and with it what else only the first opening makes.
class RunningProgram
{
public:
    /// Of one thing that the user does.
    struct Cost
    {
        Milliseconds toFirstFrame { 0 };
        /// For which the main thread was away at a stretch until everything stood still again.
        Milliseconds longestSpan { 0 };
    };

    /// Returns when all is loaded. Throws std::runtime_error where that does not come about.
    explicit RunningProgram(const ContextOptions &options);

    /// Opens the popover, which also refreshes everything.
    [[nodiscard]] Cost open();
    void close();
    void openSettings() { m_app.openSettings(); }
    /// With the popover open: `isDone` tells when what `act` set going has come to its end.
    [[nodiscard]] Cost measure(const std::function<void()> &act, const std::function<bool()> &isDone);
    /// The same where the end is that of a refresh.
    [[nodiscard]] Cost measureRefresh(const std::function<void()> &act);

    [[nodiscard]] AppState &appState() { return m_app.appState(); }

private:
    MintaroApp m_app;
    MainThreadWatch m_watch;
    int m_refreshes = 0;
};

} // namespace mintaro::bench
