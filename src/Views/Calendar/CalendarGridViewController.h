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

public:
    using QObject::QObject;

    [[nodiscard]] AppState *appState() const { return m_appState; }
    void setAppState(AppState *appState);
    /// Seven, from the first column on.
    [[nodiscard]] QStringList weekdaySymbols() const;
    [[nodiscard]] bool showWeekNumbers() const;

    /// A tap on a cell, by its index in the grid.
    Q_INVOKABLE void selectDay(int index);
    /// The end of a horizontal drag over `translation` points, negative to the left.
    Q_INVOKABLE void endSwipe(double translation);

Q_SIGNALS:
    void layoutChanged();
    /// The grid now shows another month that the user went to, which lies this way: -1 for before, 1 for after.
    void monthShown(int direction);

private:
    void onGridChanged();

    AppState *m_appState = nullptr;
    QStringList m_symbolsFromSunday;
    Date m_shownMonth {};
    /// Which way the user went to a month that the grid does not show yet; 0 for no way.
    int m_pendingDirection = 0;
};

} // namespace mintaro
