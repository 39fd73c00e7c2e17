#include "Views/Main/BottomToolbarController.h"

#include <QCoreApplication>

namespace mintaro {

void BottomToolbarController::openNewEvent()
{
    m_appState->openNewEvent();
}

void BottomToolbarController::openSettings()
{
    m_appState->openSettings();
}

void BottomToolbarController::quit()
{
    QCoreApplication::quit();
}

} // namespace mintaro
