#pragma once

#include "Platform/Foundation/Environment.h"
#include "Platform/Sparkle/SUAppcast.h"
#include "Platform/UserNotifications/UNNotificationCategory.h"
#include "Platform/UserNotifications/UNNotificationRequest.h"

namespace mintaro {

/// Key of the user info: where the version can be had.
inline constexpr QLatin1String kUpdateURL("updateURL");
/// The action that goes there.
inline constexpr QLatin1String kShowUpdateAction("SHOW_UPDATE");

/// The kind of notification that it is, to be registered beforehand.
[[nodiscard]] UNNotificationCategory updateCategory();
/// Tells of a version that the daily look found, at the next full minute.
[[nodiscard]] UNNotificationRequest updateNotification(
    const SUAppcastItem &item, const QString &ownVersion, const Environment &environment);

} // namespace mintaro
