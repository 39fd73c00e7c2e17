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
    connect(appState, &AppState::selectedDateChanged, this, [this] {
        m_cursor = m_appState->selectedDate();
        updateCursor();
    });
    connect(appState, &AppState::monthNavigated, this, [this](int delta) { m_pendingDirection = delta < 0 ? -1 : 1; });
    connect(appState->calendarVM(), &CalendarViewModel::dataChanged, this, &CalendarGridViewController::onGridChanged);
    connect(
        appState->calendarVM(), &CalendarViewModel::isEmptyChanged, this, &CalendarGridViewController::onGridChanged);
    m_cursor = appState->selectedDate();
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

std::optional<int> CalendarGridViewController::cellOf(Date day) const
{
    const auto &items = m_appState->calendarVM()->dayItems();
    const Calendar calendar = m_appState->environment().calendar();
    const auto cell
        = std::ranges::find_if(items, [&](const DayItem &item) { return calendar.isDateInSameDay(item.date, day); });
    return cell == items.end() ? std::nullopt : std::optional(static_cast<int>(cell - items.begin()));
}

void CalendarGridViewController::moveCursor(int days)
{
    const Calendar calendar = m_appState->environment().calendar();
    const auto target = calendar.dateByAdding(Calendar::Component::Day, days, m_cursor);
    if (!target)
        return;
    m_cursor = *target;
    if (cellOf(m_cursor))
        updateCursor();
    else if (startOfMonth(m_cursor, calendar) != startOfMonth(m_appState->monthDate(), calendar))
        m_appState->navigateMonth(days < 0 ? -1 : 1);
}

void CalendarGridViewController::updateCursor()
{
    const auto &items = m_appState->calendarVM()->dayItems();
    auto index = cellOf(m_cursor);
    if (!index && !items.empty()) {
        // The user went to another month without it: it goes along.
        const auto today = std::ranges::find_if(items, &DayItem::isToday);
        const auto first = std::ranges::find_if(items, &DayItem::isCurrentMonth);
        const auto cell = today != items.end() ? today : first;
        m_cursor = cell->date;
        index = static_cast<int>(cell - items.begin());
    }
    const int found = index.value_or(-1);
    if (std::exchange(m_cursorIndex, found) != found)
        Q_EMIT cursorIndexChanged();
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
    updateCursor();
    const Date month = items[kCellInMonth].date;
    const Date before = std::exchange(m_shownMonth, month);
    const bool isOtherMonth = std::chrono::abs(month - before) > kDaysWithinMonth;
    if (isOtherMonth && m_pendingDirection != 0)
        Q_EMIT monthShown(std::exchange(m_pendingDirection, 0));
}

} // namespace mintaro
