#pragma once

#include "App/AppState.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// The weekday header, the week numbers and what a tap or a swipe on the grid does.
class CalendarGridViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mintaro::AppState *appState READ appState WRITE setAppState REQUIRED)
    Q_PROPERTY(QStringList weekdaySymbols READ weekdaySymbols NOTIFY layoutChanged)
    Q_PROPERTY(bool showWeekNumbers READ showWeekNumbers NOTIFY layoutChanged)
    Q_PROPERTY(int cursorIndex READ cursorIndex NOTIFY cursorIndexChanged)

public:
    using QObject::QObject;

    [[nodiscard]] AppState *appState() const { return m_appState; }
    void setAppState(AppState *appState);
    /// Seven, from the first column on.
    [[nodiscard]] QStringList weekdaySymbols() const;
    [[nodiscard]] bool showWeekNumbers() const;

    /// A tap on a cell, by its index in the grid.
    Q_INVOKABLE void selectDay(int index);
    /// The cell that the keyboard stands on; -1 while there are none.
    [[nodiscard]] int cursorIndex() const { return m_cursorIndex; }
    /// Moves that by days, negative for back; beyond the grid to the next month or the one before.
    Q_INVOKABLE void moveCursor(int days);
    /// The end of a horizontal drag over `translation` points, negative to the left.
    Q_INVOKABLE void endSwipe(double translation);

Q_SIGNALS:
    void layoutChanged();
    void cursorIndexChanged();
    /// The grid now shows another month that the user went to, which lies this way: -1 for before, 1 for after.
    void monthShown(int direction);

private:
    void onGridChanged();
    void updateCursor();
    [[nodiscard]] std::optional<int> cellOf(Date day) const;

    AppState *m_appState = nullptr;
    QStringList m_symbolsFromSunday;
    /// The day that the keyboard stands on, which the grid may not show yet, or any more.
    Date m_cursor {};
    int m_cursorIndex = -1;
    Date m_shownMonth {};
    /// Which way the user went to a month that the grid does not show yet; 0 for no way.
    int m_pendingDirection = 0;
};

} // namespace mintaro
