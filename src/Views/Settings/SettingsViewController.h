#pragma once

#include "Views/Settings/AboutSettingsViewController.h"
#include "Views/Settings/AppearanceSettingsViewController.h"
#include "Views/Settings/CalendarsSettingsViewController.h"
#include "Views/Settings/GeneralSettingsViewController.h"
#include "Views/Settings/WorldClockSettingsViewController.h"

namespace mintaro {

/// What the settings work on; all of it must outlive them.
struct SettingsDependencies
{
    AppState &appState;
    SMAppService &loginItem;
    SparkleUpdater &sparkleUpdater;
    const Bundle &bundle;
    /// The address of the maker's site; empty where there is none.
    QString website {};
};

/// The tabs of the settings, from their opening until they close.
class SettingsViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one")
    Q_PROPERTY(mintaro::GeneralSettingsViewController *general READ general CONSTANT)
    Q_PROPERTY(mintaro::AppearanceSettingsViewController *appearance READ appearance CONSTANT)
    Q_PROPERTY(mintaro::CalendarsSettingsViewController *calendars READ calendars CONSTANT)
    Q_PROPERTY(mintaro::WorldClockSettingsViewController *worldClock READ worldClock CONSTANT)
    Q_PROPERTY(mintaro::AboutSettingsViewController *about READ about CONSTANT)

    /// What the user changes is forgotten when the program ends: the file cannot be written.
    Q_PROPERTY(bool hasUnsavedChanges READ hasUnsavedChanges NOTIFY hasUnsavedChangesChanged)

public:
    explicit SettingsViewController(const SettingsDependencies &dependencies);

    [[nodiscard]] GeneralSettingsViewController *general() { return &m_general; }
    [[nodiscard]] AppearanceSettingsViewController *appearance() { return &m_appearance; }
    [[nodiscard]] CalendarsSettingsViewController *calendars() { return &m_calendars; }
    [[nodiscard]] WorldClockSettingsViewController *worldClock() { return &m_worldClock; }
    [[nodiscard]] AboutSettingsViewController *about() { return &m_about; }

    [[nodiscard]] bool hasUnsavedChanges() const { return m_defaults.hasUnsavedChanges(); }

    Q_INVOKABLE void close() { Q_EMIT closeRequested(); }
    /// Ends the program at once.
    Q_INVOKABLE void quit();

Q_SIGNALS:
    void closeRequested();
    void hasUnsavedChangesChanged();

private:
    const UserDefaults &m_defaults;
    GeneralSettingsViewController m_general;
    AppearanceSettingsViewController m_appearance;
    CalendarsSettingsViewController m_calendars;
    WorldClockSettingsViewController m_worldClock;
    AboutSettingsViewController m_about;
};

} // namespace mintaro
