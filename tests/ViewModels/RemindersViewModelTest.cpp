#include "ViewModels/RemindersViewModel.h"

#include "support/World.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

namespace mintaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class RemindersViewModelTest : public testing::Test
{
protected:
    RemindersViewModelTest()
    {
        for (const char *list : { "errands", "home" })
            world.addCalendar(list, "#123456");
    }

    const std::vector<ReminderItem> &fetched(QSet<QString> selection = {})
    {
        EXPECT_TRUE(world.database->requestAccess());
        QCoro::waitFor(world.state().remindersVM().fetchReminders(std::move(selection)));
        return world.state().remindersVM().reminders();
    }

    QStringList titles(QSet<QString> selection)
    {
        QStringList titles;
        for (const ReminderItem &reminder : fetched(std::move(selection)))
            titles.append(reminder.title);
        return titles;
    }

    World world { "2026-03-07 12:00", "en_GB", "Europe/Rome" };
};

TEST_F(RemindersViewModelTest, TakesAnEmptySelectionForAllAndAStaleOneForNone)
{
    world.addReminder("errands", "milk", "DUE:20260310T100000Z");
    world.addReminder("home", "done", "STATUS:COMPLETED");
    const QString home = QStringLiteral("home");
    const QString gone = QStringLiteral("gone");
    EXPECT_THAT(titles({}), UnorderedElementsAre(QStringLiteral("milk"), QStringLiteral("done")));
    EXPECT_THAT(titles({ home, gone }), ElementsAre(QStringLiteral("done")));
    EXPECT_THAT(titles({ gone }), IsEmpty());
}

struct ReminderCase
{
    const char *name;
    QByteArray lines;
    const char *due; ///< a reading in UTC; null: none
    bool isCompleted;
    const char *url; ///< null: none
};

class ReminderMappingTest : public RemindersViewModelTest, public testing::WithParamInterface<ReminderCase>
{
};

TEST_P(ReminderMappingTest, IsMapped)
{
    const ReminderCase &row = GetParam();
    world.addReminder("errands", "r", row.lines);
    const auto &reminders = fetched();
    ASSERT_EQ(reminders.size(), 1U);
    EXPECT_EQ(reminders[0].dueDate, row.due ? std::optional(at(row.due)) : std::nullopt);
    EXPECT_EQ(reminders[0].isCompleted, row.isCompleted);
    EXPECT_EQ(reminders[0].listColor, (Color { 0x12, 0x34, 0x56 }));
    EXPECT_EQ(reminders[0].url ? reminders[0].url->absoluteString() : QString(), QLatin1String(row.url ? row.url : ""));
}

INSTANTIATE_TEST_SUITE_P(Rows, ReminderMappingTest,
    testing::Values(ReminderCase { "WithoutDate", "PRIORITY:1", nullptr, false, nullptr },
        ReminderCase {
            "DueOnADayIsDueAtTheUsersMidnight", "DUE;VALUE=DATE:20260310", "2026-03-09 23:00", false, nullptr },
        ReminderCase { "FloatingIsTheUsersZone", "DUE:20260310T100000", "2026-03-10 09:00", false, nullptr },
        ReminderCase { "CompletedStays", "DUE:20260310T100000Z\nSTATUS:COMPLETED", "2026-03-10 10:00", true, nullptr },
        ReminderCase { "OwnUrlWins", "URL:https://a.example/\nDESCRIPTION:https://b.example/", nullptr, false,
            "https://a.example/" },
        ReminderCase { "FirstLinkOfTheNotes", "DESCRIPTION:see https://b.example/x and https://c.example", nullptr,
            false, "https://b.example/x" },
        ReminderCase { "NotesWithoutLink", "DESCRIPTION:call back", nullptr, false, nullptr }),
    kRowName);

TEST_F(RemindersViewModelTest, TellsOfDifferencesAlone)
{
    world.addReminder("errands", "milk", "DUE:20260310T100000Z");
    const QSignalSpy changes(&world.state().remindersVM(), &RemindersViewModel::remindersChanged);
    EXPECT_EQ(fetched().size(), 1U);
    EXPECT_EQ(fetched().size(), 1U);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_FALSE(world.state().remindersVM().isLoading());
}

} // namespace
} // namespace mintaro
