#include "Views/Notifications/NotificationPanel.h"

#include <algorithm>

namespace mintaro {

NotificationPanel::Card::Card(ViewEngine &views, const PresentedNotification &notification)
    : controller(notification)
    , view(views.makeNotificationView(controller))
    , window(view->size().toSize())
{
    window.setTitle(notification.title);
    window.setContent(view.get());
}

NotificationPanel::NotificationPanel(std::function<ViewEngine &()> views)
    : m_views(std::move(views))
{
}

NotificationPanel::~NotificationPanel() = default;

void NotificationPanel::setTop(int distance)
{
    m_top = distance;
    stack();
}

void NotificationPanel::present(const PresentedNotification &notification)
{
    remove(notification.identifier);
    const auto &card = m_cards.emplace_back(std::make_unique<Card>(m_views(), notification));
    const QString identifier = notification.identifier;
    const auto close = [this, identifier] {
        remove(identifier);
        Q_EMIT closed(identifier);
    };
    connect(
        &card->controller, &NotificationViewController::chosen, this, [this, identifier, close](const QString &action) {
            Q_EMIT activated(identifier, action, {});
            close();
        });
    connect(&card->controller, &NotificationViewController::dismissed, this, close);
    connect(&card->window, &NotificationWindow::closed, this, close);
    stack();
}

void NotificationPanel::withdraw(const QString &identifier)
{
    remove(identifier);
}

void NotificationPanel::remove(const QString &identifier)
{
    const auto found
        = std::ranges::find_if(m_cards, [&](const auto &card) { return card->controller.identifier() == identifier; });
    if (found == m_cards.end())
        return;
    disconnect(&(*found)->controller, nullptr, this, nullptr);
    disconnect(&(*found)->window, nullptr, this, nullptr);
    (*found)->window.hide();
    // Later: it may be a button of its own that removes it.
    m_removed.push_back(std::move(*found));
    m_cards.erase(found);
    QMetaObject::invokeMethod(
        this, [this] { m_removed.clear(); }, Qt::QueuedConnection);
    stack();
}

void NotificationPanel::stack()
{
    int distance = m_top;
    for (const auto &card : m_cards) {
        card->window.showBelow(distance);
        distance += card->window.stackingHeight();
    }
}

} // namespace mintaro
