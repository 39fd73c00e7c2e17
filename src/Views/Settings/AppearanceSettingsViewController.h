#pragma once

#include "Platform/Foundation/UserDefaults.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// The Appearance tab.
class AppearanceSettingsViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings have one")
    Q_PROPERTY(bool useSystemAccent READ useSystemAccent WRITE setUseSystemAccent NOTIFY preferenceChanged)
    /// Any text: what is no colour stands for the desktop's accent.
    Q_PROPERTY(QString accentColorHex READ accentColorHex WRITE setAccentColorHex NOTIFY preferenceChanged)
    /// In points.
    Q_PROPERTY(double eventFontSize READ eventFontSize WRITE setEventFontSize NOTIFY preferenceChanged)

public:
    /// `defaults` must outlive the object.
    explicit AppearanceSettingsViewController(UserDefaults &defaults);

    [[nodiscard]] bool useSystemAccent() const;
    void setUseSystemAccent(bool uses);
    [[nodiscard]] QString accentColorHex() const;
    void setAccentColorHex(const QString &hex);
    [[nodiscard]] double eventFontSize() const;
    void setEventFontSize(double points);

Q_SIGNALS:
    void preferenceChanged();

private:
    UserDefaults &m_defaults;
};

} // namespace mintaro
