#pragma once

#include "App/AppState.h"
#include "Views/Settings/CalendarChecklist.h"

namespace mintaro {

/// The Calendars tab: which calendars and reminder lists are shown. Lists count at once, calendars from the next
/// refresh on.
class CalendarsSettingsViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings have one")
    Q_PROPERTY(bool hasCalendarAccess READ hasCalendarAccess NOTIFY hasCalendarAccessChanged)
    /// Why not, in the store's words; empty where it says nothing.
    Q_PROPERTY(QString accessFailure READ accessFailure NOTIFY accessFailureChanged)
    Q_PROPERTY(mintaro::CalendarChecklist *calendars READ calendars CONSTANT)
    Q_PROPERTY(mintaro::CalendarChecklist *reminderLists READ reminderLists CONSTANT)

public:
    /// `appState` must outlive the object.
    explicit CalendarsSettingsViewController(AppState &appState);

    [[nodiscard]] bool hasCalendarAccess() const { return m_appState.hasCalendarAccess(); }
    [[nodiscard]] QString accessFailure() const { return m_appState.accessFailure(); }
    /// Under their sources.
    [[nodiscard]] CalendarChecklist *calendars() { return &m_calendars; }
    [[nodiscard]] CalendarChecklist *reminderLists() { return &m_reminderLists; }

    /// Asks the store anew, for access too where there was none; to be called each time the tab appears.
    Q_INVOKABLE void appear();
    QCoro::Task<> loadCalendars();
    Q_INVOKABLE void openPrivacySettings() { m_appState.openPrivacySettings(); }

Q_SIGNALS:
    void hasCalendarAccessChanged();
    void accessFailureChanged();

private:
    AppState &m_appState;
    CalendarChecklist m_calendars;
    CalendarChecklist m_reminderLists;
    /// Nobody else needs to know what the store has.
    bool m_hasAppeared = false;
};

} // namespace mintaro
