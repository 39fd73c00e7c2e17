#include "Models/CalendarEvent.h"

#include "support/World.h"

#include <gtest/gtest.h>

#include <QUuid>

namespace mintaro {
namespace {

class CalendarEventTest : public testing::Test
{
protected:
    CalendarEventTest() { world.addCalendar("work", "#123456"); }

    /// The one event of the store, as the lists get it.
    CalendarEvent mapped(const QByteArray &lines)
    {
        world.addEvent("work", "one", lines);
        EXPECT_TRUE(world.database->requestAccess());
        const auto events = world.database->events({ at("2026-03-01"), at("2026-04-01"), std::nullopt });
        EXPECT_EQ(events.size(), 1U);
        return CalendarEvent::fromEvent(events.front(), std::nullopt);
    }

    World world { "2026-03-07 09:00" };
};

TEST_F(CalendarEventTest, TakesWhatTheStoreHolds)
{
    const CalendarEvent event
        = mapped(during("20260310T090000Z", "20260310T103000Z") + "\nLOCATION:Rome\nDESCRIPTION:a\\nb");
    EXPECT_EQ(event.id, event.ekEvent.eventIdentifier());
    EXPECT_EQ(event.title, QStringLiteral("one"));
    EXPECT_EQ(event.startDate, at("2026-03-10 09:00"));
    EXPECT_EQ(event.endDate, at("2026-03-10 10:30"));
    EXPECT_EQ(event.calendarColor, (Color { 0x12, 0x34, 0x56 }));
    EXPECT_EQ(event.calendarTitle, QStringLiteral("work"));
    EXPECT_EQ(event.location, QStringLiteral("Rome"));
    EXPECT_EQ(event.notes, QStringLiteral("a\nb"));
    EXPECT_FALSE(event.isAllDay || event.isReminder || event.isCompleted);
    EXPECT_FALSE(event.reminderIdentifier || event.reminderURL || event.meetingInfo);
    EXPECT_EQ(event.timeRange(TimeZone()), QStringLiteral("09:00 - 10:30"));
    EXPECT_EQ(event.timeRange(zone("Asia/Kolkata")), QStringLiteral("14:30 - 16:00"));
}

TEST_F(CalendarEventTest, WithoutTitleIsUntitled)
{
    world.backend->put(QStringLiteral("work"), QStringLiteral("one.ics"),
        "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VEVENT\nUID:one\nDTSTART:20260310T090000Z\nEND:VEVENT\nEND:VCALENDAR\n");
    EXPECT_TRUE(world.database->requestAccess());
    const auto events = world.database->events({ at("2026-03-01"), at("2026-04-01"), std::nullopt });
    ASSERT_EQ(events.size(), 1U);
    const CalendarEvent event = CalendarEvent::fromEvent(events.front(), std::nullopt);
    EXPECT_EQ(event.title, QStringLiteral("Untitled"));
    EXPECT_FALSE(event.location.has_value());
}

TEST_F(CalendarEventTest, OfAWholeDayHasNoHours)
{
    const CalendarEvent event = mapped(allDay("20260310"));
    EXPECT_TRUE(event.isAllDay);
    EXPECT_EQ(event.startDate, at("2026-03-10"));
    EXPECT_EQ(event.timeRange(zone("Asia/Kolkata")), QStringLiteral("All Day"));
}

TEST_F(CalendarEventTest, WithoutIdentifierGetsOneOfItsOwn)
{
    const CalendarEvent one = CalendarEvent::fromEvent(EKEvent(), std::nullopt);
    const CalendarEvent other = CalendarEvent::fromEvent(EKEvent(), std::nullopt);
    EXPECT_FALSE(QUuid::fromString(one.id).isNull()) << one.id.toStdString();
    EXPECT_NE(one.id, other.id);
}

TEST(ReminderRecordTest, StandsAmongTheAllDayItems)
{
    ReminderItem reminder;
    reminder.id = QStringLiteral("42");
    reminder.title = QString();
    reminder.dueDate = at("2026-03-10 18:00");
    reminder.isCompleted = true;
    reminder.listColor = { 1, 2, 3 };
    reminder.url = URL::fromString(QStringLiteral("https://example.org"));
    const CalendarEvent event = CalendarEvent::fromReminder(reminder, at("2026-03-07"));
    EXPECT_EQ(event.id, QStringLiteral("reminder-42"));
    EXPECT_EQ(event.reminderIdentifier, QStringLiteral("42"));
    EXPECT_TRUE(event.title.isEmpty()) << "a reminder's title has no fallback";
    EXPECT_EQ(event.startDate, at("2026-03-10 18:00"));
    EXPECT_EQ(event.endDate, event.startDate);
    EXPECT_TRUE(event.isAllDay && event.isReminder && event.isCompleted);
    EXPECT_EQ(event.calendarColor, reminder.listColor);
    EXPECT_TRUE(event.calendarTitle.isEmpty());
    EXPECT_EQ(event.reminderURL, reminder.url);
    EXPECT_EQ(event.timeRange(TimeZone()), QStringLiteral("All Day"));
}

TEST(ReminderRecordTest, WithoutDueDateIsOfThePresent)
{
    const CalendarEvent event = CalendarEvent::fromReminder({}, at("2026-03-07 09:00"));
    EXPECT_EQ(event.startDate, at("2026-03-07 09:00"));
    EXPECT_EQ(event.endDate, at("2026-03-07 09:00"));
    EXPECT_TRUE(event.isAllDay);
}

} // namespace
} // namespace mintaro
