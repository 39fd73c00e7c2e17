#pragma once

#include <QString>

#include <vector>

namespace mintaro {

/// Something that the user may choose on a notification.
struct UNNotificationAction
{
    QString identifier;
    QString title; ///< as it is shown

    friend bool operator==(const UNNotificationAction &, const UNNotificationAction &) = default;
};

/// A kind of notification, which offers certain actions.
struct UNNotificationCategory
{
    QString identifier;
    std::vector<UNNotificationAction> actions;
};

/// The user chose the notification itself.
inline constexpr QLatin1String kUNNotificationDefaultActionIdentifier("default");

} // namespace mintaro
