#include "main/AppDelegate.h"

#include "Platform/UserNotifications/UNNotificationCategory.h"
#include "Services/NotificationService.h"
#include "main/UpdateNotification.h"

namespace mintaro {

UNNotificationPresentationOptions AppDelegate::willPresent(const UNNotificationRequest &)
{
    return UNNotificationPresentationOption::Banner | UNNotificationPresentationOption::Sound;
}

QCoro::Task<> AppDelegate::didReceive(UNNotificationResponse response)
{
    const QString &action = response.actionIdentifier;
    if (action != MeetingNotification::kJoinAction && action != kShowUpdateAction
        && action != kUNNotificationDefaultActionIdentifier)
        co_return;
    const auto &userInfo = response.request.content.userInfo;
    const QString link = userInfo.value(MeetingNotification::kMeetingURL, userInfo.value(kUpdateURL));
    if (const auto url = URL::fromString(link); url && !link.isEmpty())
        co_await m_meetingOpener.open(*url, response.activationToken);
}

} // namespace mintaro
