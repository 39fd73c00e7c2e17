#include "EngineFixture.h"

namespace mintaro {

struct ReminderRow
{
    const char *rule;
    const char *lines;
    /// The due moment seen from Rome; empty for none.
    const char *due;
    bool hasTime;
    bool isCompleted;
};

class Reminders : public EngineFixture, public ::testing::WithParamInterface<ReminderRow>
{
};

TEST_P(Reminders, AreReadFromTasks)
{
    const ReminderRow &row = GetParam();
    put(calendarOf(QByteArray("BEGIN:VTODO\nUID:t\nSUMMARY:task\n") + row.lines + "\nEND:VTODO"));
    const auto list = reminders();
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].calendarItemIdentifier(), u"work/t"_qs);
    EXPECT_EQ(list[0].title(), u"task"_qs);
    EXPECT_EQ(list[0].isCompleted(), row.isCompleted);
    const auto due = list[0].dueDateComponents();
    const auto date = due ? due->date(environment.calendar()) : std::nullopt;
    EXPECT_EQ(date ? text(*date).toStdString() : std::string(), row.due);
    EXPECT_EQ(due && due->hasTime, row.hasTime);
}

INSTANTIATE_TEST_SUITE_P(Table, Reminders,
    ::testing::Values(ReminderRow { "NoDue", "PRIORITY:1", "", false, false },
        ReminderRow { "DueOnADay", "DUE;VALUE=DATE:20260715", "20260714T220000Z", false, false },
        ReminderRow { "DueFloating", "DUE:20260715T090000", "20260715T070000Z", true, false },
        ReminderRow { "DueInAZone", "DUE;TZID=America/New_York:20260715T090000", "20260715T130000Z", true, false },
        ReminderRow { "DueInUtc", "DUE:20260715T090000Z", "20260715T090000Z", true, false },
        ReminderRow { "StartAndDuration", "DTSTART:20260715T090000Z\nDURATION:PT2H", "20260715T110000Z", true, false },
        ReminderRow { "StartAlone", "DTSTART:20260715T090000Z", "", false, false },
        ReminderRow { "CompletedByStatus", "STATUS:COMPLETED", "", false, true },
        ReminderRow { "CompletedByMoment", "COMPLETED:20260101T000000Z", "", false, true },
        ReminderRow { "CompletedByPercent", "PERCENT-COMPLETE:100", "", false, true },
        ReminderRow { "HalfDone", "PERCENT-COMPLETE:50", "", false, false },
        ReminderRow { "Repeating", "DUE:20260715T090000Z\nRRULE:FREQ=DAILY", "20260715T090000Z", true, false }),
    [](const auto &row) { return std::string(row.param.rule); });

class ReminderList : public EngineFixture
{
};

TEST_F(ReminderList, TextsLinkAndCompletion)
{
    put(calendarOf(
        "BEGIN:VTODO\nUID:t\nDESCRIPTION:see\\nthere\nURL:https://a.b/\nCOMPLETED:20260102T030405Z\nEND:VTODO"));
    const auto list = reminders();
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].notes(), u"see\nthere"_qs);
    EXPECT_EQ(list[0].url(), u"https://a.b/"_qs);
    EXPECT_EQ(list[0].completionDate(), utc("2026-01-02T03:04:05Z"));
    EXPECT_TRUE(events().empty());
}

TEST_F(ReminderList, ASeriesIsOneReminderAndACalledOffTaskIsNone)
{
    put(calendarOf("BEGIN:VTODO\nUID:t\nRECURRENCE-ID:20260716T090000Z\nDUE:20260716T100000Z\nEND:VTODO\n"
                   "BEGIN:VTODO\nUID:t\nDUE:20260715T090000Z\nRRULE:FREQ=DAILY\nSUMMARY:series\nEND:VTODO\n"
                   "BEGIN:VTODO\nUID:off\nSTATUS:CANCELLED\nEND:VTODO"));
    const auto list = reminders();
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].title(), u"series"_qs);
}

} // namespace mintaro
