#pragma once

#include "App/AppState.h"
#include "Platform/ServiceManagement/SMAppService.h"
#include "Update/SparkleUpdater.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// The General tab: the label, the reminders, the language, launch at login and updates. It keeps no preference: each
/// is read from where it is held and written there at once.
class GeneralSettingsViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings have one")
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY launchAtLoginChanged)
    Q_PROPERTY(bool showDateInMenuBar READ showDateInMenuBar WRITE setShowDateInMenuBar NOTIFY preferenceChanged)
    Q_PROPERTY(bool showNextEvent READ showNextEvent WRITE setShowNextEvent NOTIFY preferenceChanged)
    Q_PROPERTY(bool showMeetingIcon READ showMeetingIcon WRITE setShowMeetingIcon NOTIFY preferenceChanged)
    Q_PROPERTY(QList<QString> countdownFormats READ countdownFormats CONSTANT)
    /// Of countdownFormats.
    Q_PROPERTY(int countdownFormat READ countdownFormat WRITE setCountdownFormat NOTIFY preferenceChanged)
    Q_PROPERTY(int maxTitleLength READ maxTitleLength WRITE setMaxTitleLength NOTIFY preferenceChanged)
    Q_PROPERTY(QString dateFormat READ dateFormat WRITE setDateFormat NOTIFY preferenceChanged)
    Q_PROPERTY(bool meetingReminders READ meetingReminders WRITE setMeetingReminders NOTIFY preferenceChanged)
    Q_PROPERTY(int reminderMinutes READ reminderMinutes WRITE setReminderMinutes NOTIFY preferenceChanged)
    Q_PROPERTY(bool hourlyChime READ hourlyChime WRITE setHourlyChime NOTIFY preferenceChanged)
    Q_PROPERTY(QList<QString> languages READ languages CONSTANT)
    /// Of languages; -1 where what is stored is none of them.
    Q_PROPERTY(int language READ language WRITE setLanguage NOTIFY preferenceChanged)
    Q_PROPERTY(bool showLanguageRestart READ showLanguageRestart NOTIFY showLanguageRestartChanged)
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY updatesChanged)
    /// What is known of updates.
    Q_PROPERTY(QString updateStatus READ updateStatus NOTIFY updatesChanged)
    /// There is a newer version, and a place where it can be had.
    Q_PROPERTY(bool hasUpdate READ hasUpdate NOTIFY updatesChanged)

public:
    /// All must outlive the object.
    GeneralSettingsViewController(AppState &appState, SMAppService &loginItem, SparkleUpdater &sparkleUpdater);

    [[nodiscard]] bool launchAtLogin() const { return m_launchAtLogin; }
    /// Goes back where the desktop's folder does not take it.
    void setLaunchAtLogin(bool launches);
    [[nodiscard]] bool showDateInMenuBar() const { return m_appState.showDateInMenuBar(); }
    void setShowDateInMenuBar(bool shows);
    [[nodiscard]] bool showNextEvent() const { return m_appState.showNextEventInMenuBar(); }
    void setShowNextEvent(bool shows);
    [[nodiscard]] bool showMeetingIcon() const { return m_appState.showMeetingIconInMenuBar(); }
    void setShowMeetingIcon(bool shows) { m_appState.setShowMeetingIconInMenuBar(shows); }
    [[nodiscard]] QStringList countdownFormats() const;
    [[nodiscard]] int countdownFormat() const { return static_cast<int>(m_appState.countdownFormat()); }
    void setCountdownFormat(int index);
    [[nodiscard]] int maxTitleLength() const { return m_appState.menuBarMaxTitleLength(); }
    void setMaxTitleLength(int length) { m_appState.setMenuBarMaxTitleLength(length); }
    /// As it is stored; the label shows a line of bounded length.
    [[nodiscard]] QString dateFormat() const;
    void setDateFormat(const QString &pattern);
    [[nodiscard]] bool meetingReminders() const { return m_appState.meetingNotificationsEnabled(); }
    void setMeetingReminders(bool isEnabled) { m_appState.setMeetingNotificationsEnabled(isEnabled); }
    [[nodiscard]] int reminderMinutes() const { return m_appState.meetingNotificationMinutes(); }
    void setReminderMinutes(int minutes) { m_appState.setMeetingNotificationMinutes(minutes); }
    [[nodiscard]] bool hourlyChime() const;
    void setHourlyChime(bool sounds);
    [[nodiscard]] QStringList languages() const;
    [[nodiscard]] int language() const;
    /// Tells besides that it holds from the next launch on, until the view goes.
    void setLanguage(int index);
    [[nodiscard]] bool showLanguageRestart() const { return m_showLanguageRestart; }
    [[nodiscard]] bool canCheckForUpdates() const { return m_sparkleUpdater.canCheckForUpdates(); }
    [[nodiscard]] QString updateStatus() const;
    [[nodiscard]] bool hasUpdate() const;

    Q_INVOKABLE void checkForUpdates();
    /// Opens the page of the newer version.
    Q_INVOKABLE void openUpdate();

Q_SIGNALS:
    void launchAtLoginChanged();
    void preferenceChanged();
    void showLanguageRestartChanged();
    void updatesChanged();

private:
    AppState &m_appState;
    SMAppService &m_loginItem;
    SparkleUpdater &m_sparkleUpdater;
    bool m_launchAtLogin;
    bool m_showLanguageRestart = false;
    std::optional<SPUUpdateCheck> m_lastCheck;
};

} // namespace mintaro
