#pragma once

#include "Platform/UserNotifications/UNUserNotificationCenterDelegate.h"
#include "Services/MeetingOpener.h"

namespace mintaro {

/// Answers for the program where the system has a question: joins the meeting of a reminder that the user
/// chose, or opens the page of a newer version.
class AppDelegate final : public UNUserNotificationCenterDelegate
{
public:
    /// `workspace` must outlive the object and every task.
    explicit AppDelegate(Workspace &workspace)
        : m_meetingOpener(workspace)
    {
    }

    [[nodiscard]] UNNotificationPresentationOptions willPresent(const UNNotificationRequest &request) override;
    [[nodiscard]] QCoro::Task<> didReceive(UNNotificationResponse response) override;

private:
    MeetingOpener m_meetingOpener;
};

} // namespace mintaro
