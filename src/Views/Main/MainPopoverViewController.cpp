#include "Views/Main/MainPopoverViewController.h"

#include <QCoreApplication>

namespace mintaro {

void MainPopoverViewController::setAppState(AppState *appState)
{
    m_appState = appState;
    connect(appState, &AppState::pendingDeleteEventChanged, this, &MainPopoverViewController::deleteMessageChanged);
    Q_EMIT deleteMessageChanged();
}

QString MainPopoverViewController::deleteMessage() const
{
    if (!m_appState || !m_appState->pendingDeleteEvent())
        return {};
    return qtTrId("Are you sure you want to delete \"%@\"?").arg(m_appState->pendingDeleteEvent()->title);
}

void MainPopoverViewController::deletePending(int span)
{
    const std::optional<CalendarEvent> event = m_appState->pendingDeleteEvent();
    cancelDelete();
    if (event)
        m_appState->deleteEvent(*event, static_cast<EKSpan>(span));
}

void MainPopoverViewController::cancelDelete()
{
    m_appState->setShowingDeleteConfirmation(false);
    m_appState->setShowingSpanPicker(false);
    m_appState->setPendingDeleteEvent(std::nullopt);
}

void MainPopoverViewController::dismissError()
{
    m_appState->setErrorMessage({});
}

} // namespace mintaro
