#include "Views/Settings/AboutSettingsViewController.h"

namespace mintaro {

namespace {

const QString kUnknown = QStringLiteral("\u2014");

} // namespace

AboutSettingsViewController::AboutSettingsViewController(AppState &appState, Bundle bundle, const QString &website)
    : m_appState(appState)
    , m_bundle(std::move(bundle))
    , m_website(URL::fromString(website))
{
}

QString AboutSettingsViewController::appVersion() const
{
    return m_bundle.objectForInfoDictionaryKey(QStringLiteral("CFBundleShortVersionString")).value_or(kUnknown);
}

QString AboutSettingsViewController::buildNumber() const
{
    return m_bundle.objectForInfoDictionaryKey(QStringLiteral("CFBundleVersion")).value_or(kUnknown);
}

QString AboutSettingsViewController::websiteHost() const
{
    return m_website ? m_website->toQUrl().host() : QString();
}

void AboutSettingsViewController::openWebsite()
{
    if (m_website)
        m_appState.openURL(*m_website);
}

} // namespace mintaro
