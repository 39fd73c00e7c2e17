#include "Views/Settings/AppearanceSettingsViewController.h"

namespace mintaro {

namespace {

const QString kUseSystemAccent = QStringLiteral("UseSystemAccent");
const QString kAccentColorHex = QStringLiteral("AccentColorHex");
const QString kEventFontSize = QStringLiteral("EventFontSize");
constexpr double kDefaultFontSize = 13.0;

} // namespace

AppearanceSettingsViewController::AppearanceSettingsViewController(UserDefaults &defaults)
    : m_defaults(defaults)
{
    connect(&defaults, &UserDefaults::changed, this, &AppearanceSettingsViewController::preferenceChanged);
}

bool AppearanceSettingsViewController::useSystemAccent() const
{
    return m_defaults.boolForKey(kUseSystemAccent).value_or(true);
}

void AppearanceSettingsViewController::setUseSystemAccent(bool uses)
{
    m_defaults.setBool(uses, kUseSystemAccent);
}

QString AppearanceSettingsViewController::accentColorHex() const
{
    return m_defaults.stringForKey(kAccentColorHex).value_or(QString());
}

void AppearanceSettingsViewController::setAccentColorHex(const QString &hex)
{
    m_defaults.setString(hex, kAccentColorHex);
}

double AppearanceSettingsViewController::eventFontSize() const
{
    return m_defaults.doubleForKey(kEventFontSize).value_or(kDefaultFontSize);
}

void AppearanceSettingsViewController::setEventFontSize(double points)
{
    m_defaults.setDouble(points, kEventFontSize);
}

} // namespace mintaro
