#include "Views/Notifications/NotificationViewController.h"

namespace mintaro {

NotificationViewController::NotificationViewController(PresentedNotification notification)
    : m_notification(std::move(notification))
{
}

QStringList NotificationViewController::actionTitles() const
{
    QStringList titles;
    for (const UNNotificationAction &action : m_notification.actions)
        titles.append(action.title);
    return titles;
}

void NotificationViewController::choose(int index)
{
    Q_EMIT chosen(m_notification.actions.at(static_cast<std::size_t>(index)).identifier);
}

void NotificationViewController::dismiss()
{
    Q_EMIT dismissed();
}

} // namespace mintaro
