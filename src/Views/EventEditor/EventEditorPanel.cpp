#include "Views/EventEditor/EventEditorPanel.h"

namespace mintaro {

EventEditorPanel::Editor::Editor(AppState &appState, ViewEngine &views, const std::optional<EKEvent> &existingEvent)
    : controller(appState, existingEvent)
    , view(views.makeEventEditorView(controller))
    , panel(view->size().toSize())
{
    panel.setTitle(controller.heading());
    panel.setContent(view.get());
}

EventEditorPanel::EventEditorPanel(AppState &appState, ViewEngine &views)
    : m_appState(appState)
    , m_views(views)
{
}

EventEditorPanel::~EventEditorPanel() = default;

void EventEditorPanel::open(const std::optional<EKEvent> &existingEvent)
{
    close();
    m_editor = std::make_unique<Editor>(m_appState, m_views, existingEvent);
    connect(&m_editor->controller, &EventEditorViewController::closeRequested, this, &EventEditorPanel::close);
    connect(&m_editor->panel, &Panel::closed, this, &EventEditorPanel::close);
    m_editor->controller.loadData();
    m_editor->panel.showCentered();
}

void EventEditorPanel::close()
{
    if (!m_editor)
        return;
    disconnect(&m_editor->controller, nullptr, this, nullptr);
    disconnect(&m_editor->panel, nullptr, this, nullptr);
    m_editor->controller.keepRestored();
    m_editor->panel.hide();
    m_closed.push_back(std::move(m_editor));
    QMetaObject::invokeMethod(
        this, [this] { m_closed.clear(); }, Qt::QueuedConnection);
}

} // namespace mintaro
