#include "Views/Calendar/MonthNavigationBarController.h"

namespace mintaro {

void MonthNavigationBarController::setAppState(AppState *appState)
{
    m_appState = appState;
    m_format = DateFormatter::withTemplate(QStringLiteral("yMMMM"), appState->environment().locale());
    connect(appState, &AppState::monthDateChanged, this, &MonthNavigationBarController::monthTitleChanged);
    connect(appState, &AppState::significantTimeChange, this, &MonthNavigationBarController::monthTitleChanged);
    Q_EMIT monthTitleChanged();
}

QString MonthNavigationBarController::monthTitle() const
{
    return m_format ? m_format->string(m_appState->monthDate(), m_appState->environment().timeZone()) : QString();
}

void MonthNavigationBarController::showPreviousMonth()
{
    m_appState->navigateMonth(-1);
}

void MonthNavigationBarController::showNextMonth()
{
    m_appState->navigateMonth(1);
}

void MonthNavigationBarController::showToday()
{
    m_appState->showToday();
}

} // namespace mintaro
