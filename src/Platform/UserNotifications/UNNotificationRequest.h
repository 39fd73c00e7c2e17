#pragma once

#include "Platform/Foundation/Calendar.h"

#include <QMap>

namespace mintaro {

/// What a notification says. Its texts are plain: characters that elsewhere are markup stand for themselves.
struct UNNotificationContent
{
    QString title;
    QString body;
    bool hasSound = false;
    /// Of a registered category, which gives it its actions; empty for none.
    QString categoryIdentifier;
    QMap<QString, QString> userInfo;
};

/// The minute in which something is to be shown, once.
struct UNCalendarNotificationTrigger
{
    /// Year, month, day, hour and minute; the rest is not looked at.
    DateComponents dateComponents;
    /// How far the clocks that show them are ahead of UTC: in autumn they show an hour twice.
    std::chrono::seconds secondsFromGMT {};

    /// Drops what is more exact than a minute.
    [[nodiscard]] static UNCalendarNotificationTrigger atMinute(Date date, const Calendar &calendar);
    /// The minute's first moment. Empty where the components are no day of the calendar.
    [[nodiscard]] std::optional<Date> date() const;
};

struct UNNotificationRequest
{
    /// A request takes the place of an earlier one with the same.
    QString identifier;
    UNNotificationContent content;
    /// In place of `content` where the machine slept through the minute.
    UNNotificationContent lateContent;
    UNCalendarNotificationTrigger trigger;
    /// Of what it announces. From its end on the request is not worth showing.
    DateInterval occasion;
};

} // namespace mintaro
