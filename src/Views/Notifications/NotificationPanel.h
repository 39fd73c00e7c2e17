#pragma once

#include "Platform/AppKit/NotificationWindow.h"
#include "Views/Notifications/NotificationViewController.h"
#include "Views/ViewEngine.h"

#include <functional>

namespace mintaro {

/// Shows notifications in windows of our own, below one another in the corner of the screen; those that find no room
/// wait until others have gone. For the main thread.
class NotificationPanel : public NotificationPresenter
{
    Q_OBJECT

public:
    /// `views` is first called when there is something to show; what it gives must outlive the object.
    explicit NotificationPanel(std::function<ViewEngine &()> views);
    ~NotificationPanel() override;

    /// What is taken of the screen's upper right corner, in points from its upper edge.
    void setTop(int distance);

    void requestAuthorization() override { }
    void present(const PresentedNotification &notification) override;
    void withdraw(const QString &identifier) override;

private:
    struct Card
    {
        Card(ViewEngine &views, const PresentedNotification &notification);
        NotificationViewController controller;
        std::unique_ptr<QQuickItem> view;
        NotificationWindow window;
    };

    void remove(const QString &identifier);
    void stack();

    std::function<ViewEngine &()> m_views;
    int m_top = 0;
    std::vector<std::unique_ptr<Card>> m_cards;
    std::vector<std::unique_ptr<Card>> m_removed;
};

} // namespace mintaro
