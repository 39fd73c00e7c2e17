#pragma once

#include "Views/Components/ThemeController.h"
#include "Views/Main/MenuBarLabel.h"

#include <QQmlEngine>
#include <QQuickItem>

#include <memory>

namespace mintaro {

class EventEditorViewController;
class FaviconService;
class NotificationViewController;
class SettingsViewController;
class TimezonePickerViewController;

/// The QML engine with all that the views need, and a maker of the views that stand by themselves. For the main thread.
class ViewEngine
{
public:
    /// All must outlive the object and the items that it makes. Without `favicons` links have no icons.
    ViewEngine(
        AppState &appState, MenuBarLabel &label, const Appearance &appearance, FaviconService *favicons = nullptr);

    /// Never null: a view that does not load is a fault of the build and ends the program with the reason.
    [[nodiscard]] std::unique_ptr<QQuickItem> makeMainPopoverView();
    [[nodiscard]] std::unique_ptr<QQuickItem> makeMenuBarLabel();
    /// `controller` must outlive the item.
    [[nodiscard]] std::unique_ptr<QQuickItem> makeEventEditorView(EventEditorViewController &controller);
    /// `controller` must outlive the item.
    [[nodiscard]] std::unique_ptr<QQuickItem> makeNotificationView(NotificationViewController &controller);
    /// `controller` must outlive the item.
    [[nodiscard]] std::unique_ptr<QQuickItem> makeSettingsView(SettingsViewController &controller);
    /// `controller` must outlive the item.
    [[nodiscard]] std::unique_ptr<QQuickItem> makeTimezonePickerView(TimezonePickerViewController &controller);

private:
    [[nodiscard]] std::unique_ptr<QQuickItem> make(const QString &view, const QVariantMap &properties);

    AppState &m_appState;
    MenuBarLabel &m_label;
    ThemeController m_theme;
    QQmlEngine m_engine;
};

} // namespace mintaro
