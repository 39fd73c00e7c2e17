#include "Views/EventEditor/MonthPopupController.h"

namespace mintaro {

void MonthPopupController::setAppState(AppState *appState)
{
    m_appState = appState;
    m_month.emplace(appState->environment());
    m_titleFormat = DateFormatter::withTemplate(QStringLiteral("yMMMM"), appState->environment().locale());
    Q_EMIT appStateChanged();
    setHighlightedDay(m_highlightedDay);
}

void MonthPopupController::setHighlightedDay(Date day)
{
    m_highlightedDay = day;
    if (m_month)
        m_month->generateMonth(day, day, {}, m_appState->weekStartsOnMonday() ? WeekStart::Monday : WeekStart::Sunday);
    Q_EMIT highlightedDayChanged();
}

QString MonthPopupController::title() const
{
    return m_titleFormat ? m_titleFormat->string(m_highlightedDay, m_appState->environment().timeZone()) : QString();
}

void MonthPopupController::moveByDays(int days)
{
    move(Calendar::Component::Day, days);
}

void MonthPopupController::moveByMonths(int months)
{
    move(Calendar::Component::Month, months);
}

void MonthPopupController::moveToToday()
{
    setHighlightedDay(m_appState->environment().now());
}

void MonthPopupController::highlight(int index)
{
    const auto &items = m_month->dayItems();
    if (index >= 0 && static_cast<std::size_t>(index) < items.size())
        setHighlightedDay(items[static_cast<std::size_t>(index)].date);
}

void MonthPopupController::move(Calendar::Component component, int value)
{
    if (const auto day = m_appState->environment().calendar().dateByAdding(component, value, m_highlightedDay))
        setHighlightedDay(*day);
}

} // namespace mintaro
