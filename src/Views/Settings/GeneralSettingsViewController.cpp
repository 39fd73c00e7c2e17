#include "Views/Settings/GeneralSettingsViewController.h"

#include <array>

namespace mintaro {

namespace {

const QString kShowDate = QStringLiteral("ShowDateInMenuBar");
const QString kShowNextEvent = QStringLiteral("ShowNextEventInMenuBar");
const QString kDateFormat = QStringLiteral("MenuBarDateFormat");
const QString kHourlyChime = QStringLiteral("HourlyChimeEnabled");
constexpr std::array kLanguages { QLatin1String("system"), QLatin1String("en"), QLatin1String("it") };

} // namespace

GeneralSettingsViewController::GeneralSettingsViewController(
    AppState &appState, SMAppService &loginItem, SparkleUpdater &sparkleUpdater)
    : m_appState(appState)
    , m_loginItem(loginItem)
    , m_sparkleUpdater(sparkleUpdater)
    , m_launchAtLogin(loginItem.status() == SMAppService::Status::Enabled)
{
    connect(&appState.defaults(), &UserDefaults::changed, this, &GeneralSettingsViewController::preferenceChanged);
    connect(&sparkleUpdater, &SparkleUpdater::canCheckForUpdatesChanged, this,
        &GeneralSettingsViewController::updatesChanged);
    connect(&sparkleUpdater.updaterController()->updater(), &SPUUpdater::finished, this,
        [this](const SPUUpdateCheck &check) {
            m_lastCheck = check;
            Q_EMIT updatesChanged();
        });
}

void GeneralSettingsViewController::setLaunchAtLogin(bool launches)
{
    if (launches == m_launchAtLogin)
        return;
    try {
        if (launches)
            m_loginItem.registerService();
        else
            m_loginItem.unregisterService();
        m_launchAtLogin = launches;
    } catch (const FileError &) {
        // The switch, which has moved already, is told to go back.
    }
    Q_EMIT launchAtLoginChanged();
}

void GeneralSettingsViewController::setShowDateInMenuBar(bool shows)
{
    m_appState.defaults().setBool(shows, kShowDate);
}

void GeneralSettingsViewController::setShowNextEvent(bool shows)
{
    m_appState.defaults().setBool(shows, kShowNextEvent);
}

QStringList GeneralSettingsViewController::countdownFormats() const
{
    QStringList names;
    for (const CountdownFormat format : kAllCountdownFormats)
        names.append(displayName(format));
    return names;
}

void GeneralSettingsViewController::setCountdownFormat(int index)
{
    m_appState.setCountdownFormat(kAllCountdownFormats.at(static_cast<std::size_t>(index)));
}

QString GeneralSettingsViewController::dateFormat() const
{
    return m_appState.defaults().stringForKey(kDateFormat).value_or(m_appState.menuBarDateFormat());
}

void GeneralSettingsViewController::setDateFormat(const QString &pattern)
{
    m_appState.defaults().setString(pattern, kDateFormat);
}

bool GeneralSettingsViewController::hourlyChime() const
{
    return m_appState.defaults().boolForKey(kHourlyChime).value_or(false);
}

void GeneralSettingsViewController::setHourlyChime(bool sounds)
{
    m_appState.defaults().setBool(sounds, kHourlyChime);
}

QStringList GeneralSettingsViewController::languages() const
{
    return { qtTrId("language.system"), qtTrId("English"), qtTrId("Italiano") };
}

int GeneralSettingsViewController::language() const
{
    const QString stored = m_appState.appLanguage();
    const auto *const found = std::ranges::find_if(kLanguages, [&](QLatin1String tag) { return tag == stored; });
    return found == kLanguages.end() ? -1 : static_cast<int>(found - kLanguages.begin());
}

void GeneralSettingsViewController::setLanguage(int index)
{
    if (index == language())
        return;
    m_appState.setAppLanguage(kLanguages.at(static_cast<std::size_t>(index)));
    if (!std::exchange(m_showLanguageRestart, true))
        Q_EMIT showLanguageRestartChanged();
}

QString GeneralSettingsViewController::updateStatus() const
{
    if (m_sparkleUpdater.updaterController()->updater().isChecking())
        return qtTrId("updates.checking");
    if (!m_lastCheck)
        return canCheckForUpdates() ? QString() : qtTrId("updates.none");
    switch (m_lastCheck->kind) {
    case SPUUpdateCheck::Kind::UpToDate:
        return qtTrId("updates.upToDate");
    case SPUUpdateCheck::Kind::Available:
        return qtTrId("updates.available %@").arg(m_lastCheck->item->displayVersionString);
    case SPUUpdateCheck::Kind::Unreachable:
        return qtTrId("updates.unreachable");
    case SPUUpdateCheck::Kind::Malformed:
        return qtTrId("updates.malformed");
    }
    return {};
}

bool GeneralSettingsViewController::hasUpdate() const
{
    return m_lastCheck && m_lastCheck->kind == SPUUpdateCheck::Kind::Available;
}

void GeneralSettingsViewController::checkForUpdates()
{
    m_sparkleUpdater.updaterController()->checkForUpdates();
}

void GeneralSettingsViewController::openUpdate()
{
    if (hasUpdate())
        m_appState.openURL(m_lastCheck->item->link);
}

} // namespace mintaro
