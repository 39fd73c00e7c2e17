#include "Update/SparkleUpdater.h"

namespace mintaro {

SparkleUpdater::SparkleUpdater(URLSession &session, UserDefaults &defaults, Environment &environment,
    const QString &feed, const QString &hostVersion)
    : m_updaterController(true, session, defaults, environment, feed, hostVersion)
{
    connect(&m_updaterController.updater(), &SPUUpdater::canCheckForUpdatesChanged, this, &SparkleUpdater::follow);
    follow();
}

void SparkleUpdater::follow()
{
    const bool can = m_updaterController.updater().canCheckForUpdates();
    if (can == m_canCheckForUpdates)
        return;
    m_canCheckForUpdates = can;
    Q_EMIT canCheckForUpdatesChanged();
}

} // namespace mintaro
