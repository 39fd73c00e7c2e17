#pragma once

#include "Platform/Sparkle/SPUUpdater.h"

namespace mintaro {

/// Holds the program's updater and takes the user's wishes. For the main thread.
class SPUStandardUpdaterController : public QObject
{
    Q_OBJECT

public:
    /// `startingUpdater`: whether the daily checks begin now. The rest is the updater's.
    template <typename... Arguments>
    explicit SPUStandardUpdaterController(bool startingUpdater, Arguments &&...arguments)
        : m_updater(std::forward<Arguments>(arguments)...)
    {
        if (startingUpdater)
            m_updater.startUpdater();
    }

    [[nodiscard]] SPUUpdater &updater() { return m_updater; }

    Q_INVOKABLE void checkForUpdates() { m_updater.checkForUpdates(); }

private:
    SPUUpdater m_updater;
};

} // namespace mintaro
