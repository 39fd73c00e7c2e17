#pragma once

#include "App/AppState.h"
#include "Platform/Foundation/DateFormatter.h"
#include "ViewModels/CalendarViewModel.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// A month to pick a day from. One day is highlighted; the month that is shown is that day's.
class MonthPopupController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mintaro::AppState *appState READ appState WRITE setAppState REQUIRED)
    Q_PROPERTY(mintaro::Date highlightedDay READ highlightedDay WRITE setHighlightedDay NOTIFY highlightedDayChanged)
    Q_PROPERTY(mintaro::CalendarViewModel *month READ month NOTIFY appStateChanged)
    Q_PROPERTY(QString title READ title NOTIFY highlightedDayChanged)

public:
    using QObject::QObject;

    [[nodiscard]] AppState *appState() const { return m_appState; }
    void setAppState(AppState *appState);
    [[nodiscard]] Date highlightedDay() const { return m_highlightedDay; }
    void setHighlightedDay(Date day);
    [[nodiscard]] CalendarViewModel *month() { return m_month ? &*m_month : nullptr; }
    /// Month and year in the locale's words.
    [[nodiscard]] QString title() const;

    Q_INVOKABLE void moveByDays(int days);
    /// A month that is too short clamps the day.
    Q_INVOKABLE void moveByMonths(int months);
    Q_INVOKABLE void moveToToday();
    /// Highlights the day of a cell of the month.
    Q_INVOKABLE void highlight(int index);

Q_SIGNALS:
    void appStateChanged();
    void highlightedDayChanged();

private:
    void move(Calendar::Component component, int value);

    AppState *m_appState = nullptr;
    std::optional<CalendarViewModel> m_month;
    std::optional<DateFormatter> m_titleFormat;
    Date m_highlightedDay {};
};

} // namespace mintaro
