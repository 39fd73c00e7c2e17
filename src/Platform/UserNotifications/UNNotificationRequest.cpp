#include "Platform/UserNotifications/UNNotificationRequest.h"

namespace mintaro {

using namespace std::chrono;

UNCalendarNotificationTrigger UNCalendarNotificationTrigger::atMinute(Date date, const Calendar &calendar)
{
    DateComponents components = calendar.components(date);
    components.second = 0;
    return { components, calendar.timeZone().secondsFromGMT(floor<seconds>(date)) };
}

std::optional<Date> UNCalendarNotificationTrigger::date() const
{
    const year_month_day day { year { dateComponents.year }, month { static_cast<unsigned>(dateComponents.month) },
        std::chrono::day { static_cast<unsigned>(dateComponents.day) } };
    if (!day.ok())
        return std::nullopt;
    return sys_days { day } + hours { dateComponents.hour } + minutes { dateComponents.minute } - secondsFromGMT;
}

} // namespace mintaro
