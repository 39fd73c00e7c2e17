#pragma once

#include "Platform/AppKit/Panel.h"
#include "Platform/AppKit/TitledWindow.h"
#include "Views/Settings/SettingsViewController.h"
#include "Views/ViewEngine.h"
#include "Views/WorldClock/TimezonePickerViewController.h"

namespace mintaro {

/// The settings window, of which there is at most one, with the picker of time zones over it. For the main thread.
class SettingsScene : public QObject
{
    Q_OBJECT

public:
    /// `views` must outlive the object.
    SettingsScene(const SettingsDependencies &dependencies, ViewEngine &views);
    ~SettingsScene() override;

    /// Opens the window, or raises it where it is open.
    void open();
    /// Null where it is not open.
    [[nodiscard]] TitledWindow *window() const { return m_settings ? &m_settings->window : nullptr; }
    [[nodiscard]] Panel *picker() const { return m_picker ? &m_picker->panel : nullptr; }

private:
    struct Settings
    {
        Settings(const SettingsDependencies &dependencies, ViewEngine &views);
        SettingsViewController controller;
        std::unique_ptr<QQuickItem> view;
        TitledWindow window;
    };
    struct Picker
    {
        Picker(const Environment &environment, ViewEngine &views);
        TimezonePickerViewController controller;
        std::unique_ptr<QQuickItem> view;
        Panel panel;
    };

    /// Both take the window from the screen at once. It goes later: it may be a key of its own that closes it.
    void close();
    void closePicker();
    void showPicker();
    void onShowingPickerChanged();

    const SettingsDependencies m_dependencies;
    ViewEngine &m_views;
    std::unique_ptr<Settings> m_settings;
    std::unique_ptr<Picker> m_picker;
};

} // namespace mintaro
