#include "Views/EventEditor/AlertPickerController.h"
#include "Views/EventEditor/CalendarPickerController.h"
#include "Views/EventEditor/RecurrencePickerController.h"

#include "support/Printers.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

namespace mintaro {
namespace {

using namespace std::chrono_literals;
using testing::Optional;

TEST(RecurrencePickerTest, ShowsTheRowOfTheFrequency)
{
    const struct
    {
        const char *rule;
        int row;
    } rows[] = {
        { "FREQ=DAILY;COUNT=3", 1 },
        { "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,TU", 2 },
        { "FREQ=MONTHLY;BYDAY=2TU", 3 },
        { "FREQ=YEARLY;UNTIL=20300101", 4 },
        { "FREQ=HOURLY", 0 },
        { "nonsense", 0 },
    };
    RecurrencePickerController picker;
    EXPECT_EQ(picker.selectedIndex(), 0);
    const QSignalSpy picked(&picker, &RecurrencePickerController::picked);
    for (const auto &row : rows) {
        picker.setRecurrenceRule(EKRecurrenceRule { row.rule });
        EXPECT_EQ(picker.selectedIndex(), row.row) << row.rule;
        EXPECT_EQ(picker.recurrenceRule()->rule, row.rule);
    }
    EXPECT_EQ(picked.size(), 0);
}

TEST(RecurrencePickerTest, WritesTheRuleOfAnotherRowOnly)
{
    RecurrencePickerController picker;
    const QSignalSpy picked(&picker, &RecurrencePickerController::picked);
    picker.setRecurrenceRule(EKRecurrenceRule { "FREQ=WEEKLY;INTERVAL=2" });
    picker.pick(2);
    EXPECT_EQ(picker.recurrenceRule()->rule, "FREQ=WEEKLY;INTERVAL=2");
    picker.pick(5);
    picker.pick(-1);
    EXPECT_EQ(picked.size(), 0);
    picker.pick(3);
    EXPECT_EQ(picker.recurrenceRule()->rule, "FREQ=MONTHLY");
    picker.pick(0);
    EXPECT_FALSE(picker.recurrenceRule());
    EXPECT_EQ(picked.size(), 2);
    // It shows "none", and is none from here on.
    picker.setRecurrenceRule(EKRecurrenceRule { "FREQ=HOURLY" });
    picker.pick(0);
    EXPECT_FALSE(picker.recurrenceRule());
}

TEST(AlertPickerTest, ShowsTheRowOfTheOffset)
{
    AlertPickerController picker;
    EXPECT_EQ(picker.selectedIndex(), 0);
    const QSignalSpy picked(&picker, &AlertPickerController::picked);
    picker.setAlertOffset(0s);
    EXPECT_EQ(picker.selectedIndex(), 1);
    picker.setAlertOffset(-86400s);
    EXPECT_EQ(picker.selectedIndex(), 7);
    picker.setAlertOffset(-7200s);
    EXPECT_EQ(picker.selectedIndex(), 7);
    EXPECT_THAT(picker.alertOffset(), Optional(-7200s));
    picker.setAlertOffset(std::nullopt);
    EXPECT_EQ(picker.selectedIndex(), 0);
    EXPECT_EQ(picked.size(), 0);
}

TEST(AlertPickerTest, WritesOnTheUsersChoice)
{
    AlertPickerController picker;
    const QSignalSpy picked(&picker, &AlertPickerController::picked);
    picker.setAlertOffset(-7200s);
    // It shows "none", and is none from here on.
    picker.pick(0);
    EXPECT_EQ(picker.alertOffset(), std::nullopt);
    picker.pick(4);
    EXPECT_THAT(picker.alertOffset(), Optional(-900s));
    EXPECT_EQ(picker.selectedIndex(), 4);
    picker.pick(4);
    picker.pick(8);
    EXPECT_EQ(picked.size(), 2);
}

TEST(CalendarPickerTest, FollowsTheListAndTheChoice)
{
    const auto calendar = [](const char *identifier) {
        auto made = std::make_shared<EKCalendar>();
        made->calendarIdentifier = QLatin1String(identifier);
        return EKCalendarRef(made);
    };
    CalendarPickerController picker;
    const QSignalSpy picked(&picker, &CalendarPickerController::picked);
    picker.pick(0);
    picker.setSelectedCalendarID(u"home"_qs);
    EXPECT_EQ(picker.selectedIndex(), -1);
    picker.setCalendars({ calendar("work"), calendar("home") });
    EXPECT_EQ(picker.selectedIndex(), 1);
    picker.setSelectedCalendarID(u"gone"_qs);
    EXPECT_EQ(picker.selectedIndex(), -1);
    picker.setSelectedCalendarID(std::nullopt);
    EXPECT_EQ(picker.selectedIndex(), -1);
    EXPECT_EQ(picked.size(), 0);
    picker.pick(0);
    EXPECT_EQ(picker.selectedCalendarID(), u"work"_qs);
    EXPECT_EQ(picked.size(), 1);
}

} // namespace
} // namespace mintaro
