#pragma once

#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/FileDescriptor.h"

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace mintaro {

/// Waits for a moment to come by a clock, be it through sleep or because the machine's clock is set. It costs one
/// wake-up for each moment. By a clock that does not go by itself no moment ever comes. Works on the thread it is made
/// on.
class WallClockTimer : public QObject
{
    Q_OBJECT

public:
    /// `clock` must outlive the object.
    explicit WallClockTimer(const Clock &clock);
    ~WallClockTimer() override;

    /// Waits for that moment and for no other any more; one that has passed comes at once, from the event loop.
    void start(Date moment);
    void stop();

Q_SIGNALS:
    /// The moment has come, or passed while the machine slept.
    void timeout();
    /// While it was waiting, the machine's clock was set, or the machine woke from sleep. It goes on waiting.
    void clockJumped();

private:
    void onReadable();
    void arm();

    const Clock &m_clock;
    FileDescriptor m_timer;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::optional<Date> m_moment;
};

} // namespace mintaro
