#pragma once

#include "App/AppState.h"
#include "Platform/Foundation/DateFormatter.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// The month's title and the controls beside it.
class MonthNavigationBarController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mintaro::AppState *appState READ appState WRITE setAppState REQUIRED)
    Q_PROPERTY(QString monthTitle READ monthTitle NOTIFY monthTitleChanged)

public:
    using QObject::QObject;

    [[nodiscard]] AppState *appState() const { return m_appState; }
    void setAppState(AppState *appState);
    /// Month and year in the locale's words.
    [[nodiscard]] QString monthTitle() const;

    Q_INVOKABLE void showPreviousMonth();
    Q_INVOKABLE void showNextMonth();
    Q_INVOKABLE void showToday();

Q_SIGNALS:
    void monthTitleChanged();

private:
    AppState *m_appState = nullptr;
    std::optional<DateFormatter> m_format;
};

} // namespace mintaro
