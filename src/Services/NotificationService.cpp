#include "Services/NotificationService.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>
#include <stdexcept>

namespace mintaro {

namespace {

using namespace MeetingNotification;

QString identifierOf(const CalendarEvent &event)
{
    return kIdentifierPrefix + event.id;
}

Date fireDate(const CalendarEvent &event, int minutesBefore)
{
    return event.startDate - std::chrono::minutes { minutesBefore };
}

QStringList meetingIdentifiers(const std::vector<UNNotificationRequest> &requests)
{
    QStringList identifiers;
    for (const UNNotificationRequest &request : requests) {
        if (request.identifier.startsWith(kIdentifierPrefix))
            identifiers.append(request.identifier);
    }
    return identifiers;
}

} // namespace

NotificationService::NotificationService(UNUserNotificationCenter &center, const Environment &environment, LogSink log)
    : m_center(center)
    , m_environment(environment)
    , m_logger(QStringLiteral("Notifications"), std::move(log))
{
}

void NotificationService::registerCategories()
{
    auto categories = m_center.notificationCategories();
    std::erase_if(categories, [](const UNNotificationCategory &category) { return category.identifier == kCategory; });
    categories.push_back({ kCategory, { { kJoinAction, qtTrId("notification.joinMeeting") } } });
    m_center.setNotificationCategories(std::move(categories));
}

QCoro::Task<bool> NotificationService::requestPermission()
{
    const Logger logger = m_logger;
    try {
        co_return co_await m_center.requestAuthorization();
    } catch (const std::runtime_error &error) {
        logger.error(QStringLiteral("Notification permission error: %1").arg(QString::fromUtf8(error.what())));
        co_return false;
    }
}

void NotificationService::removeAllPendingMeetingNotifications()
{
    m_center.removePendingNotificationRequests(meetingIdentifiers(m_center.pendingNotificationRequests()));
}

void NotificationService::scheduleUpcomingMeetingNotifications(
    const std::vector<CalendarEvent> &events, int minutesBefore)
{
    removeAllPendingMeetingNotifications();
    withdrawStale(events);
    const Date now = m_environment.now();
    const Date windowEnd = m_environment.calendar().dateByAdding(Calendar::Component::Day, 1, now).value_or(now);
    std::vector<CalendarEvent> meetings;
    std::ranges::copy_if(events, std::back_inserter(meetings), [&](const CalendarEvent &event) {
        return event.meetingInfo && !event.isAllDay && event.startDate > now && event.startDate < windowEnd;
    });
    std::ranges::stable_sort(meetings, {}, &CalendarEvent::startDate);
    QSet<QString> scheduled;
    for (const CalendarEvent &meeting : meetings) {
        if (fireDate(meeting, minutesBefore) <= now || scheduled.contains(meeting.id))
            continue;
        scheduled.insert(meeting.id);
        scheduleMeetingReminder(meeting, minutesBefore);
    }
    m_logger.info(QStringLiteral("Scheduled %1 meeting notifications").arg(meetings.size()));
}

void NotificationService::scheduleMeetingReminder(const CalendarEvent &event, int minutesBefore)
{
    const Date fires = fireDate(event, minutesBefore);
    if (fires <= m_environment.now())
        return;
    try {
        m_center.add({ .identifier = identifierOf(event),
            .content = content(event, minutesBefore),
            .lateContent = lateContent(event, minutesBefore),
            .trigger = UNCalendarNotificationTrigger::atMinute(fires, m_environment.calendar()),
            .occasion = { event.startDate, event.endDate } });
    } catch (const std::invalid_argument &error) {
        m_logger.error(QStringLiteral("Failed to schedule notification: %1").arg(QString::fromUtf8(error.what())));
    }
}

void NotificationService::withdrawStale(const std::vector<CalendarEvent> &events)
{
    QStringList stale;
    for (const UNNotificationRequest &request : m_center.deliveredNotifications()) {
        const bool isStanding = std::ranges::any_of(events, [&](const CalendarEvent &event) {
            return identifierOf(event) == request.identifier && event.startDate == request.occasion.start;
        });
        if (!isStanding && request.identifier.startsWith(kIdentifierPrefix))
            stale.append(request.identifier);
    }
    m_center.removeDeliveredNotifications(stale);
}

UNNotificationContent NotificationService::content(const CalendarEvent &event, int minutesBefore) const
{
    UNNotificationContent content;
    content.body = qtTrId("notification.eventIn %@ %lld", minutesBefore).arg(event.title);
    content.hasSound = true;
    content.userInfo.insert(kEventID, event.id);
    const auto &meeting = event.meetingInfo;
    if (!meeting) {
        content.title = qtTrId("notification.eventStartingSoon");
        return content;
    }
    content.title = qtTrId("notification.meetingSoon %@ %@ %lld", minutesBefore).arg(meeting->service, event.title);
    content.categoryIdentifier = kCategory;
    content.userInfo.insert(kMeetingURL, meeting->deepLinkURL.value_or(meeting->url).absoluteString());
    return content;
}

UNNotificationContent NotificationService::lateContent(const CalendarEvent &event, int minutesBefore) const
{
    // How many minutes are left is not known beforehand.
    UNNotificationContent late = content(event, minutesBefore);
    late.title = event.title;
    late.body = event.timeRange(m_environment.timeZone());
    return late;
}

} // namespace mintaro
