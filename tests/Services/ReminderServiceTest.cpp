#include "Services/ReminderService.h"

#include "support/World.h"

#include <gmock/gmock.h>

namespace mintaro {
namespace {

using testing::ElementsAre;

class ReminderServiceTest : public testing::Test
{
protected:
    ReminderServiceTest()
    {
        world.addCalendar("errands");
        world.addReminder("errands", "milk", "DUE:20260310T100000Z");
        world.addReminder("errands", "nameless", "SUMMARY:\nSTATUS:COMPLETED\nCOMPLETED:20260301T100000Z");
        EXPECT_TRUE(QCoro::waitFor(service.requestAccess()));
    }

    std::optional<EKReminder> reminder(const QString &id)
    {
        const auto all = EKEventStore(world.database)
                             .fetchRemindersMatchingPredicate(EKEventStore::predicateForReminders(std::nullopt));
        const auto found = std::ranges::find(all, id, &EKReminder::calendarItemIdentifier);
        return found == all.end() ? std::nullopt : std::optional(*found);
    }

    World world { "2026-03-07 12:00" };
    ReminderService service { EKEventStore(world.database), world.clock, world.log };
};

TEST_F(ReminderServiceTest, TogglesCompletionWithItsMoment)
{
    const QString milk = u"errands/milk"_qs;
    const QString nameless = u"errands/nameless"_qs;
    QCoro::waitFor(service.toggleCompletion(milk));
    EXPECT_TRUE(reminder(milk)->isCompleted());
    EXPECT_EQ(reminder(milk)->completionDate(), world.clock.moment);
    for (const QString &id : { milk, nameless }) {
        QCoro::waitFor(service.toggleCompletion(id));
        EXPECT_FALSE(reminder(id)->isCompleted());
        EXPECT_EQ(reminder(id)->completionDate(), std::nullopt);
    }
    EXPECT_THAT(world.takeLog(),
        ElementsAre(u"info Reminders: Reminder toggled: milk"_qs, u"info Reminders: Reminder toggled: milk"_qs,
            u"info Reminders: Reminder toggled: untitled"_qs));
}

TEST_F(ReminderServiceTest, DeletesOneAndSaysNothingOfAStaleOne)
{
    QCoro::waitFor(service.deleteReminder(u"errands/milk"_qs));
    EXPECT_FALSE(reminder(u"errands/milk"_qs));
    EXPECT_TRUE(reminder(u"errands/nameless"_qs));
    EXPECT_THAT(world.takeLog(), ElementsAre(u"info Reminders: Reminder deleted: milk"_qs));
    QCoro::waitFor(service.deleteReminder(u"errands/milk"_qs));
    QCoro::waitFor(service.toggleCompletion(u"errands/milk"_qs));
    EXPECT_TRUE(world.takeLog().isEmpty());
}

TEST_F(ReminderServiceTest, LogsWhatTheStoreRefuses)
{
    world.backend->onWrite = [] { throw EKError("disk full"); };
    QCoro::waitFor(service.toggleCompletion(u"errands/milk"_qs));
    QCoro::waitFor(service.deleteReminder(u"errands/milk"_qs));
    EXPECT_THAT(world.takeLog(),
        ElementsAre(u"error Reminders: Failed to toggle reminder: disk full"_qs,
            u"error Reminders: Failed to delete reminder: disk full"_qs));
    EXPECT_FALSE(reminder(u"errands/milk"_qs)->isCompleted());
}

} // namespace
} // namespace mintaro
