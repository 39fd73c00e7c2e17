#include "Views/Settings/CalendarsSettingsViewController.h"

#include <QPointer>

namespace mintaro {

CalendarsSettingsViewController::CalendarsSettingsViewController(AppState &appState)
    : m_appState(appState)
    , m_calendars(appState.defaults(), QStringLiteral("SelectedCalendars"), CalendarChecklist::Grouping::BySource)
    , m_reminderLists(appState.defaults(), QStringLiteral("SelectedReminderLists"), CalendarChecklist::Grouping::None)
{
    connect(&appState, &AppState::hasCalendarAccessChanged, this,
        &CalendarsSettingsViewController::hasCalendarAccessChanged);
    connect(&appState, &AppState::hasCalendarAccessChanged, this, &CalendarsSettingsViewController::loadCalendars);
    connect(&appState, &AppState::accessFailureChanged, this, &CalendarsSettingsViewController::accessFailureChanged);
    connect(&appState, &AppState::storeChanged, this, [this] {
        if (m_hasAppeared)
            appear();
    });
}

void CalendarsSettingsViewController::appear()
{
    m_hasAppeared = true;
    if (!hasCalendarAccess() || !accessFailure().isEmpty())
        m_appState.requestAccessAndLoad();
    loadCalendars();
}

QCoro::Task<> CalendarsSettingsViewController::loadCalendars()
{
    const QPointer<CalendarsSettingsViewController> self(this);
    auto calendars = co_await m_appState.eventStore().calendars();
    if (!self)
        co_return;
    auto reminderLists = co_await m_appState.reminderService().reminderLists();
    if (!self)
        co_return;
    m_calendars.setCalendars(std::move(calendars));
    m_reminderLists.setCalendars(std::move(reminderLists));
}

} // namespace mintaro
