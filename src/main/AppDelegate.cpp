#include "main/AppDelegate.h"

#include "Platform/UserNotifications/UNNotificationCategory.h"
#include "Services/NotificationService.h"

namespace mintaro {

UNNotificationPresentationOptions AppDelegate::willPresent(const UNNotificationRequest &)
{
    return UNNotificationPresentationOption::Banner | UNNotificationPresentationOption::Sound;
}

QCoro::Task<> AppDelegate::didReceive(UNNotificationResponse response)
{
    const QString &action = response.actionIdentifier;
    if (action != MeetingNotification::kJoinAction && action != kUNNotificationDefaultActionIdentifier)
        co_return;
    const auto link = response.request.content.userInfo.constFind(MeetingNotification::kMeetingURL);
    if (link == response.request.content.userInfo.constEnd())
        co_return;
    if (const auto url = URL::fromString(*link))
        co_await m_meetingOpener.open(*url, response.activationToken);
}

} // namespace mintaro
