#pragma once

#include "Platform/UserNotifications/UNNotificationRequest.h"

#include <QCoroTask>
#include <QFlags>

namespace mintaro {

/// How a notification is presented.
enum class UNNotificationPresentationOption { Sound = 1 << 1, Banner = 1 << 4 };
Q_DECLARE_FLAGS(UNNotificationPresentationOptions, UNNotificationPresentationOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(UNNotificationPresentationOptions)

/// What the user did with a notification.
struct UNNotificationResponse
{
    UNNotificationRequest request;
    QString actionIdentifier;
    /// Lets a window that is opened in consequence come to the front (XDG Activation); empty where the desktop gave
    /// none.
    QString activationToken;
};

/// Whom the notification centre asks and tells, on the main thread.
class UNUserNotificationCenterDelegate
{
public:
    virtual ~UNUserNotificationCenterDelegate() = default;

    [[nodiscard]] virtual UNNotificationPresentationOptions willPresent(const UNNotificationRequest &request) = 0;
    /// Done when the task is.
    [[nodiscard]] virtual QCoro::Task<> didReceive(UNNotificationResponse response) = 0;
};

} // namespace mintaro
