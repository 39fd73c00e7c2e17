#pragma once

#include "App/AppContext.h"
#include "Platform/AppKit/Appearance.h"
#include "Platform/AppKit/DesktopCalendarApplication.h"
#include "Platform/AppKit/DesktopWorkspace.h"
#include "Platform/AppKit/GeneralPasteboard.h"
#include "Platform/AppKit/PanelChip.h"
#include "Platform/AppKit/PopoverWindow.h"
#include "Platform/AppKit/StatusItem.h"
#include "Platform/AppKit/SystemSound.h"
#include "Platform/ServiceManagement/SMAppService.h"
#include "Platform/UserNotifications/DesktopNotifications.h"
#include "Services/FaviconService.h"
#include "Services/HourlyChimeService.h"
#include "Update/SparkleUpdater.h"
#include "Views/EventEditor/EventEditorPanel.h"
#include "Views/Main/MenuBarLabel.h"
#include "Views/Notifications/NotificationPanel.h"
#include "Views/Settings/SettingsScene.h"
#include "Views/ViewEngine.h"
#include "main/AppDelegate.h"

#include <QElapsedTimer>

namespace mintaro {

/// The program: builds everything, wires it and owns it. There is no main window: the panel item with its popover is
/// the application. The QML engine exists from the first window on.
class MintaroApp : public QObject, private EventEditorOpener, private SettingsOpener
{
    Q_OBJECT

public:
    explicit MintaroApp(const ContextOptions &options);
    ~MintaroApp() override;

    /// Shows the item and begins to load.
    void start();
    /// Both open it where the item was clicked last, else below our own chip, else in the top right corner.
    void showPopover();
    void togglePopover();
    /// Opens the one settings window, or raises it.
    void openSettings() override;

    [[nodiscard]] AppState &appState() { return m_appState; }

private:
    void openEventEditor(const std::optional<EKEvent> &existingEvent) override;
    void onItemClicked(std::optional<QPoint> where);
    void onErrorMessageChanged();
    void onUpdateCheckFinished(const SPUUpdateCheck &check);
    void showError();
    void onPopoverOpened();
    void onPopoverClosed();
    void updateStatusItem();
    void updateIconColor();
    void updateMenu();
    void onHostChanged(StatusHost host);
    [[nodiscard]] AppState::Dependencies dependencies();
    [[nodiscard]] bool isPopoverOpen() const { return m_popover && m_popover->isVisible(); }
    [[nodiscard]] std::optional<QPoint> anchor() const;
    [[nodiscard]] ViewEngine &views();
    [[nodiscard]] PopoverWindow &popover();

    AppContext m_context;
    DesktopWorkspace m_workspace;
    GeneralPasteboard m_pasteboard;
    DesktopCalendarApplication m_calendarApplication;
    Appearance m_appearance;
    SystemSound m_sounds;
    DesktopNotifications m_desktopNotifications;
    UNUserNotificationCenter m_userNotifications;
    AppDelegate m_appDelegate;
    AppState m_appState;
    MenuBarLabel m_label;
    URLSession m_session;
    FaviconService m_favicons;
    HourlyChimeService m_hourlyChime;
    SMAppService m_loginItem;
    SparkleUpdater m_sparkleUpdater;
    StatusItem m_statusItem;
    /// Of the item, where its host has told it.
    std::optional<QPoint> m_lastClick;
    /// Runs from the moment at which an error came, until the popover goes.
    QElapsedTimer m_sinceError;
    std::unique_ptr<ViewEngine> m_views;
    NotificationPanel m_notificationPanel;
    std::unique_ptr<EventEditorPanel> m_eventEditor;
    std::unique_ptr<SettingsScene> m_settings;
    std::unique_ptr<PopoverWindow> m_popover;
    std::unique_ptr<QQuickItem> m_popoverContent;
    std::unique_ptr<PanelChip> m_chip;
    std::unique_ptr<QQuickItem> m_chipContent;
};

} // namespace mintaro
