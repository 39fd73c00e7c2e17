#include "Models/CalendarEvent.h"

#include "Extensions/DateHelpers.h"

#include <QCoreApplication>
#include <QUuid>

namespace mintaro {

CalendarEvent CalendarEvent::fromEvent(const EKEvent &event, std::optional<MeetingInfo> meetingInfo)
{
    CalendarEvent record;
    record.id = event.eventIdentifier();
    if (record.id.isEmpty())
        record.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    record.title = event.title().value_or(qtTrId("Untitled"));
    record.startDate = event.startDate();
    record.endDate = event.endDate();
    record.isAllDay = event.isAllDay();
    if (const auto &calendar = event.calendar()) {
        record.calendarColor = calendar->cgColor;
        record.calendarTitle = calendar->title;
    }
    record.location = event.location();
    record.notes = event.notes();
    record.meetingInfo = std::move(meetingInfo);
    record.ekEvent = event;
    return record;
}

CalendarEvent CalendarEvent::fromReminder(const ReminderItem &reminder, Date now)
{
    CalendarEvent record;
    record.id = QStringLiteral("reminder-") + reminder.id;
    record.title = reminder.title;
    record.startDate = reminder.dueDate.value_or(now);
    record.endDate = record.startDate;
    // So that a reminder sorts among the day's all-day items.
    record.isAllDay = true;
    record.calendarColor = reminder.listColor;
    record.isReminder = true;
    record.isCompleted = reminder.isCompleted;
    record.reminderIdentifier = reminder.id;
    record.reminderURL = reminder.url;
    return record;
}

QString CalendarEvent::timeRange(const TimeZone &timeZone) const
{
    if (isAllDay)
        return qtTrId("All Day");
    return clockReading(startDate, timeZone) + QStringLiteral(" - ") + clockReading(endDate, timeZone);
}

} // namespace mintaro
