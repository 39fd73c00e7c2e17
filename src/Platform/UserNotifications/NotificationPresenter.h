#pragma once

#include "Platform/UserNotifications/UNNotificationCategory.h"

#include <QObject>

#include <vector>

namespace mintaro {

/// A notification as it comes before the user. Its texts are plain.
struct PresentedNotification
{
    QString identifier;
    QString title;
    QString body;
    bool hasSound = false;
    /// Without any, the notification itself cannot be chosen either.
    std::vector<UNNotificationAction> actions;
};

/// Puts notifications on the screen. For the main thread, which no call keeps waiting.
class NotificationPresenter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Throws std::runtime_error where the desktop has no way to show notifications.
    virtual void requestAuthorization() = 0;
    /// Takes the place of one with the same identifier that is still there.
    virtual void present(const PresentedNotification &notification) = 0;
    /// Takes it from the screen, if it is there. Tells nobody.
    virtual void withdraw(const QString &identifier) = 0;

Q_SIGNALS:
    /// The user chose an action, or the notification itself (kUNNotificationDefaultActionIdentifier). The token is
    /// empty where the desktop gave none.
    void activated(const QString &identifier, const QString &actionIdentifier, const QString &activationToken);
    /// It is not on the screen any more.
    void closed(const QString &identifier);
};

} // namespace mintaro
