#pragma once

#include "Platform/Sparkle/SPUStandardUpdaterController.h"

namespace mintaro {

/// The updater as views see it. For the main thread.
class SparkleUpdater : public QObject
{
    Q_OBJECT
    Q_PROPERTY(mintaro::SPUStandardUpdaterController *updaterController READ updaterController CONSTANT)
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)

public:
    /// Begins the daily checks. The arguments are those of SPUUpdater.
    SparkleUpdater(URLSession &session, UserDefaults &defaults, Environment &environment, const QString &feed,
        const QString &hostVersion);

    [[nodiscard]] SPUStandardUpdaterController *updaterController() { return &m_updaterController; }
    [[nodiscard]] bool canCheckForUpdates() const { return m_canCheckForUpdates; }

Q_SIGNALS:
    void canCheckForUpdatesChanged();

private:
    void follow();

    SPUStandardUpdaterController m_updaterController;
    bool m_canCheckForUpdates = false;
};

} // namespace mintaro
