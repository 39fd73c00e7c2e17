#include "Views/Calendar/CalendarGridViewController.h"

#include "Platform/Foundation/DateFormatter.h"

namespace mintaro {

namespace {

constexpr double kSwipeDistance = 50;
constexpr int kDaysInWeek = 7;
/// The first cell that belongs to the shown month in every month.
constexpr std::size_t kCellInMonth = 10;
/// That cell's day moves by less while the month stays, when the week's first day changes.
constexpr std::chrono::days kDaysWithinMonth { 20 };

} // namespace

void CalendarGridViewController::setAppState(AppState *appState)
{
    m_appState = appState;
    m_symbolsFromSunday = DateFormatter::veryShortWeekdaySymbols(appState->environment().locale());
    if (m_symbolsFromSunday.size() != kDaysInWeek)
        m_symbolsFromSunday = QStringLiteral("S M T W T F S").split(u' ');
    connect(&appState->defaults(), &UserDefaults::changed, this, [this](const QString &key) {
        if (key == QLatin1String("WeekStartsOnMonday") || key == QLatin1String("ShowWeekNumbers"))
            Q_EMIT layoutChanged();
    });
    connect(appState, &AppState::monthDateChanged, this, [this] { m_pendingDirection = 0; });
    connect(appState, &AppState::monthNavigated, this, [this](int delta) { m_pendingDirection = delta < 0 ? -1 : 1; });
    connect(appState->calendarVM(), &CalendarViewModel::dataChanged, this, &CalendarGridViewController::onGridChanged);
    connect(
        appState->calendarVM(), &CalendarViewModel::isEmptyChanged, this, &CalendarGridViewController::onGridChanged);
    onGridChanged();
    Q_EMIT layoutChanged();
}

QStringList CalendarGridViewController::weekdaySymbols() const
{
    QStringList symbols = m_symbolsFromSunday;
    if (m_appState && m_appState->weekStartsOnMonday())
        symbols.append(symbols.takeFirst());
    return symbols;
}

bool CalendarGridViewController::showWeekNumbers() const
{
    return m_appState && m_appState->showWeekNumbers();
}

void CalendarGridViewController::selectDay(int index)
{
    const auto &items = m_appState->calendarVM()->dayItems();
    if (index >= 0 && static_cast<std::size_t>(index) < items.size())
        m_appState->selectDay(items[static_cast<std::size_t>(index)].date);
}

void CalendarGridViewController::endSwipe(double translation)
{
    if (translation > kSwipeDistance)
        m_appState->navigateMonth(-1);
    else if (translation < -kSwipeDistance)
        m_appState->navigateMonth(1);
}

void CalendarGridViewController::onGridChanged()
{
    const auto &items = m_appState->calendarVM()->dayItems();
    if (items.empty())
        return;
    const Date month = items[kCellInMonth].date;
    const Date before = std::exchange(m_shownMonth, month);
    const bool isOtherMonth = std::chrono::abs(month - before) > kDaysWithinMonth;
    if (isOtherMonth && m_pendingDirection != 0)
        Q_EMIT monthShown(std::exchange(m_pendingDirection, 0));
}

} // namespace mintaro
