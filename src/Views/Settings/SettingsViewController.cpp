#include "Views/Settings/SettingsViewController.h"

namespace mintaro {

SettingsViewController::SettingsViewController(const SettingsDependencies &dependencies)
    : m_general(dependencies.appState, dependencies.loginItem, dependencies.sparkleUpdater)
    , m_appearance(dependencies.appState.defaults())
    , m_calendars(dependencies.appState)
    , m_worldClock(dependencies.appState)
    , m_about(dependencies.appState, dependencies.bundle, dependencies.website)
{
}

} // namespace mintaro
