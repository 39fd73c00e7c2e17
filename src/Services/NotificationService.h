#pragma once

#include "Models/CalendarEvent.h"
#include "Platform/UserNotifications/UNUserNotificationCenter.h"

#include <vector>

namespace mintaro {

/// What the reminders of meetings are made of.
namespace MeetingNotification {
inline constexpr QLatin1String kCategory("MEETING_REMINDER");
inline constexpr QLatin1String kJoinAction("JOIN_MEETING");
/// An identifier of a request is this and the event's.
inline constexpr QLatin1String kIdentifierPrefix("meeting-");
/// Keys of the user info: the event's identifier, and the link that joins.
inline constexpr QLatin1String kEventID("eventId");
inline constexpr QLatin1String kMeetingURL("meetingURL");
} // namespace MeetingNotification

/// Reminds of the meetings of the coming 24 hours. It keeps nothing: what is pending is in the notification centre. For
/// the main thread.
class NotificationService
{
public:
    /// Both must outlive the object.
    NotificationService(UNUserNotificationCenter &center, const Environment &environment, LogSink log);

    void registerCategories();
    /// Whether notifications may be shown; where that cannot be asked, the log says why.
    [[nodiscard]] QCoro::Task<bool> requestPermission();
    /// Puts reminders of the events that have a meeting's link in place of those before. Occurrences of one series
    /// share an identifier, and the one whose reminder comes first has it. Reminders on the screen whose meeting is not
    /// among the events any more, at its time, are taken away.
    void scheduleUpcomingMeetingNotifications(const std::vector<CalendarEvent> &events, int minutesBefore);
    /// Nothing where the reminder's time has passed.
    void scheduleMeetingReminder(const CalendarEvent &event, int minutesBefore);
    void removeAllPendingMeetingNotifications();

private:
    void withdrawStale(const std::vector<CalendarEvent> &events);
    [[nodiscard]] UNNotificationContent content(const CalendarEvent &event, int minutesBefore) const;
    [[nodiscard]] UNNotificationContent lateContent(const CalendarEvent &event, int minutesBefore) const;

    UNUserNotificationCenter &m_center;
    const Environment &m_environment;
    Logger m_logger;
};

} // namespace mintaro
