#pragma once

namespace mintaro {

/// Where the model has the settings opened, without knowing any view.
class SettingsOpener
{
public:
    virtual ~SettingsOpener() = default;

    /// Opens the one settings window, or raises it where it is open.
    virtual void openSettings() = 0;
};

} // namespace mintaro
