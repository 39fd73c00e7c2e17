#include "EngineFixture.h"

#include <gmock/gmock.h>

namespace mintaro {
namespace {

using testing::HasSubstr;
using testing::Not;

class ReminderWritingTest : public EngineFixture
{
protected:
    void putTask(const QByteArray &lines)
    {
        put(calendarOf("BEGIN:VTODO\nUID:one\nSUMMARY:Task\n" + lines + "\nEND:VTODO"));
    }

    void complete(bool isCompleted)
    {
        EKReminder reminder = reminders().at(0);
        reminder.setCompleted(isCompleted);
        reminder.setCompletionDate(isCompleted ? std::optional<Date>(utc("20260301T101112Z")) : std::nullopt);
        database->save(reminder);
    }

    std::string text(const char *name = "a.ics") const
    {
        return backend->contents.at(QStringLiteral("work")).at(QString::fromLatin1(name)).text.toStdString();
    }
    std::size_t objectCount() const { return backend->contents.at(QStringLiteral("work")).size(); }
};

TEST_F(ReminderWritingTest, IsTickedOffAndOpenedAgain)
{
    putTask("STATUS:IN-PROCESS\nX-SORT:12");
    complete(true);
    EXPECT_TRUE(reminders().at(0).isCompleted());
    EXPECT_EQ(reminders().at(0).completionDate(), utc("20260301T101112Z"));
    for (const char *line :
        { "STATUS:COMPLETED\n", "COMPLETED:20260301T101112Z\n", "PERCENT-COMPLETE:100\n", "X-SORT:12\n" })
        EXPECT_THAT(text(), HasSubstr(line));
    complete(false);
    EXPECT_FALSE(reminders().at(0).isCompleted());
    EXPECT_THAT(text(), HasSubstr("STATUS:NEEDS-ACTION\n"));
    EXPECT_THAT(text(), Not(HasSubstr("COMPLETE:")));
}

TEST_F(ReminderWritingTest, OneThatRepeatsGoesOnWithItsNextTime)
{
    struct Case
    {
        const char *lines;
        QStringList dues;
        const char *rule;
    };
    const std::vector<Case> cases {
        { "DTSTART;TZID=Europe/Rome:20260327T090000\nDUE;TZID=Europe/"
          "Rome:20260327T100000\nRRULE:FREQ=DAILY;INTERVAL=2;COUNT=5",
            { QStringLiteral("20260327T090000Z"), QStringLiteral("20260329T080000Z") }, "COUNT=4" },
        { "DUE;VALUE=DATE:20260327\nRRULE:FREQ=WEEKLY",
            { QStringLiteral("20260326T230000Z"), QStringLiteral("20260402T220000Z") }, "RRULE:FREQ=WEEKLY\n" },
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.lines);
        backend->contents.clear();
        putTask(each.lines);
        StoreChanges changes;
        changes.objects[QStringLiteral("work")] = {};
        ASSERT_TRUE(database->requestAccess());
        backend->tell(changes);
        complete(true);
        const std::vector<EKReminder> after = reminders();
        ASSERT_EQ(after.size(), 2U);
        QStringList dues;
        for (const EKReminder &reminder : after)
            dues.append(mintaro::text(*reminder.dueDateComponents()->date(environment.calendar())));
        dues.sort();
        EXPECT_EQ(dues, each.dues);
        EXPECT_EQ(std::count_if(after.begin(), after.end(), [](const auto &one) { return one.isCompleted(); }), 1);
        EXPECT_THAT(text(), Not(HasSubstr("RRULE")));
        for (const auto &[name, object] : backend->contents.at(QStringLiteral("work"))) {
            if (name != QLatin1String("a.ics")) {
                EXPECT_THAT(object.text.toStdString(), HasSubstr(each.rule));
            }
        }
    }
}

TEST_F(ReminderWritingTest, TheLastTimeOfOneThatRepeatsIsDone)
{
    putTask("DUE;VALUE=DATE:20260327\nRRULE:FREQ=WEEKLY;COUNT=1");
    complete(true);
    EXPECT_EQ(reminders().size(), 1U);
    EXPECT_TRUE(reminders().at(0).isCompleted());
}

TEST_F(ReminderWritingTest, IsRemovedAloneOrWithItsObject)
{
    put(calendarOf("BEGIN:VTODO\nUID:one\nEND:VTODO\nBEGIN:VEVENT\nUID:two\nDTSTART:20260301T090000Z\nEND:VEVENT"));
    database->remove(reminders().at(0));
    EXPECT_TRUE(reminders().empty());
    EXPECT_THAT(text(), HasSubstr("UID:two"));
    putTask("DUE:20260301");
    put(calendarOf("BEGIN:VTODO\nUID:three\nEND:VTODO"), QStringLiteral("b.ics"));
    StoreChanges changes;
    changes.objects[QStringLiteral("work")] = {};
    backend->tell(changes);
    database->remove(reminders().at(1));
    EXPECT_EQ(objectCount(), 1U);
}

} // namespace
} // namespace mintaro
