#pragma once

#include "App/AppState.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// What the toolbar's buttons do.
class BottomToolbarController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mintaro::AppState *appState MEMBER m_appState REQUIRED)

public:
    using QObject::QObject;

    Q_INVOKABLE void openNewEvent();
    Q_INVOKABLE void openSettings();
    /// Ends the program at once.
    Q_INVOKABLE void quit();

private:
    AppState *m_appState = nullptr;
};

} // namespace mintaro
