#include "bench/MainThreadWatch.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <algorithm>
#include <stdexcept>

namespace mintaro::bench {

namespace {

constexpr std::chrono::minutes kPatience { 1 };

} // namespace

MainThreadWatch::MainThreadWatch()
{
    auto *dispatcher = QAbstractEventDispatcher::instance();
    connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, &MainThreadWatch::endSpan);
    connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] {
        endSpan();
        m_span.start();
    });
}

void MainThreadWatch::restart()
{
    m_longestNs = 0;
    m_span.start();
}

void MainThreadWatch::endSpan()
{
    if (m_span.isValid())
        m_longestNs = std::max(m_longestNs, m_span.nsecsElapsed());
    m_span.invalidate();
}

std::chrono::duration<double, std::milli> MainThreadWatch::longest() const
{
    if (m_longestNs == 0)
        throw std::runtime_error("the event dispatcher tells nothing");
    return std::chrono::nanoseconds(m_longestNs);
}

void MainThreadWatch::runUntil(const std::function<bool()> &holds)
{
    const QDeadlineTimer deadline(kPatience);
    // Wakes the loop where nothing else does.
    QTimer tick;
    tick.start(std::chrono::milliseconds { 50 });
    while (!holds()) {
        if (deadline.hasExpired())
            throw std::runtime_error("what is waited for does not come");
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void MainThreadWatch::runFor(std::chrono::milliseconds time)
{
    const QDeadlineTimer end(time);
    runUntil([&end] { return end.hasExpired(); });
}

} // namespace mintaro::bench
