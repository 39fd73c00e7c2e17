#pragma once

#include "Platform/AppKit/Panel.h"
#include "Views/EventEditor/EventEditorViewController.h"
#include "Views/ViewEngine.h"

namespace mintaro {

/// The panel with the event editor in it, of which there is at most one. For the main thread.
class EventEditorPanel : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the object.
    EventEditorPanel(AppState &appState, ViewEngine &views);
    ~EventEditorPanel() override;

    /// Opens the editor on `existingEvent`, or where that is absent on a new one, in place of one that is open.
    void open(const std::optional<EKEvent> &existingEvent);
    /// Null where none is open.
    [[nodiscard]] Panel *panel() const { return m_editor ? &m_editor->panel : nullptr; }

private:
    struct Editor
    {
        Editor(AppState &appState, ViewEngine &views, const std::optional<EKEvent> &existingEvent);
        EventEditorViewController controller;
        std::unique_ptr<QQuickItem> view;
        Panel panel;
    };

    /// Takes the editor from the screen at once. It goes later: it may be a key of its own that closes it.
    void close();

    AppState &m_appState;
    ViewEngine &m_views;
    std::unique_ptr<Editor> m_editor;
    std::vector<std::unique_ptr<Editor>> m_closed;
};

} // namespace mintaro
