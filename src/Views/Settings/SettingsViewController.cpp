#include "Views/Settings/SettingsViewController.h"

#include <QCoreApplication>

namespace mintaro {

SettingsViewController::SettingsViewController(const SettingsDependencies &dependencies)
    : m_defaults(dependencies.appState.defaults())
    , m_general(dependencies.appState, dependencies.loginItem, dependencies.sparkleUpdater)
    , m_appearance(dependencies.appState.defaults())
    , m_calendars(dependencies.appState)
    , m_worldClock(dependencies.appState)
    , m_about(dependencies.appState, dependencies.bundle, dependencies.website)
{
    connect(
        &m_defaults, &UserDefaults::hasUnsavedChangesChanged, this, &SettingsViewController::hasUnsavedChangesChanged);
}

void SettingsViewController::quit()
{
    QCoreApplication::quit();
}

} // namespace mintaro
