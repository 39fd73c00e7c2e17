#pragma once

#include <QElapsedTimer>
#include <QObject>

#include <chrono>
#include <functional>

namespace mintaro::bench {

/// Measures for how long the main thread keeps away from what comes in, such as a key: from each time at which it
/// wakes, or goes round once more, to the next. It sees this with Qt's own event dispatcher alone, which QT_NO_GLIB
/// asks for.
class MainThreadWatch : public QObject
{
public:
    MainThreadWatch();

    /// Begins anew, with what the caller does from here on until it comes back to the event loop.
    void restart();
    /// The longest of these spans since then. Throws std::runtime_error where there was none.
    [[nodiscard]] std::chrono::duration<double, std::milli> longest() const;

    /// Runs the event loop until the condition holds, which is looked at after each round; throws std::runtime_error
    /// after a minute.
    static void runUntil(const std::function<bool()> &holds);
    static void runFor(std::chrono::milliseconds time);

private:
    void endSpan();

    QElapsedTimer m_span;
    qint64 m_longestNs = 0;
};

} // namespace mintaro::bench
