#include "Views/Agenda/AgendaListViewController.h"

#include "support/World.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace mintaro {
namespace {

using testing::ElementsAre;
using Model = AgendaListViewController;

class AgendaListTest : public testing::Test
{
protected:
    AgendaListTest()
    {
        world.addCalendar("work");
        world.addEvent("work", "standup", during("20260307T090000Z", "20260307T093000Z"));
        world.addEvent("work", "review", during("20260307T130000Z", "20260307T140000Z") + "\nLOCATION:Room 1");
        world.addEvent("work", "lunch", during("20260308T120000Z", "20260308T130000Z"));
        world.addEvent("work", "talk", during("20260312T120000Z", "20260312T130000Z"));
    }

    void load()
    {
        world.loaded();
        model.setAppState(&world.state());
    }

    void refresh() { QCoro::waitFor(world.state().refreshAll()); }

    [[nodiscard]] QVariant data(int row, Model::Role role) const { return model.data(model.index(row), role); }

    [[nodiscard]] QStringList titles() const
    {
        QStringList titles;
        for (int row = 0; row < model.rowCount(); ++row)
            titles.append(data(row, Model::TitleRole).toString());
        return titles;
    }

    World world { "2026-03-07 12:00", "en_US" };
    Model model;
    QAbstractItemModelTester tester { &model, QAbstractItemModelTester::FailureReportingMode::Fatal };
    QSignalSpy inserts { &model, &Model::rowsInserted };
    QSignalSpy removals { &model, &Model::rowsRemoved };
    QSignalSpy changes { &model, &Model::dataChanged };
    QSignalSpy resets { &model, &Model::modelReset };
};

TEST_F(AgendaListTest, HasAHeadingOverEachDay)
{
    load();
    EXPECT_THAT(titles(),
        ElementsAre(
            u"Today"_qs, u"standup"_qs, u"review"_qs, u"Tomorrow"_qs, u"lunch"_qs, u"Thursday, Mar 12"_qs, u"talk"_qs));
    EXPECT_TRUE(data(0, Model::IsTodayRole).toBool());
    EXPECT_FALSE(data(3, Model::IsTodayRole).toBool());
    EXPECT_EQ(data(2, Model::AccessibleNameRole).toString(), u"review, 13:00 - 14:00, Room 1"_qs);
}

TEST_F(AgendaListTest, OffersWhatCanBeDoneToARow)
{
    world.backend->addCollection(u"holidays"_qs).isWritable = false;
    world.addEvent("holidays", "feast", during("20260307T150000Z", "20260307T160000Z"));
    world.addEvent("holidays", "call", during("20260307T160000Z", "20260307T170000Z") + "\nURL:https://zoom.us/j/1");
    world.addEvent("work", "meeting", during("20260307T170000Z", "20260307T180000Z") + "\nURL:https://zoom.us/j/1");
    world.addReminder("work", "milk", "DUE:20260307T080000Z");
    world.addReminder("work", "done", "DUE:20260307T080000Z\nSTATUS:COMPLETED\nURL:https://example.org");
    load();
    const auto menuOf = [this](const QString &title) {
        QStringList entries;
        if (model.prepareMenu(static_cast<int>(titles().indexOf(title)))) {
            for (int row = 0; row < model.menu()->rowCount(); ++row) {
                const QModelIndex entry = model.menu()->index(row);
                const QString symbol = entry.data(ContextMenuModel::SymbolRole).toString();
                entries.append(symbol.isEmpty()
                        ? u"-"_qs
                        : symbol + u": "_qs + entry.data(ContextMenuModel::TitleRole).toString());
            }
        }
        return entries.join(u'\n');
    };
    const QString always = u"doc.on.doc: Copy Event Details\ncalendar: Open in Calendar"_qs;
    const QString meeting = u"\n-\nvideo.fill: Join Zoom\nlink: Copy Meeting Link"_qs;
    const QString edit = u"pencil: Edit Event\n"_qs;
    const QString remove = u"\n-\ntrash: Delete Event"_qs;
    EXPECT_EQ(menuOf(u"lunch"_qs), edit + always + remove);
    EXPECT_EQ(menuOf(u"meeting"_qs), edit + always + meeting + remove);
    EXPECT_EQ(menuOf(u"feast"_qs), always);
    EXPECT_EQ(menuOf(u"call"_qs), always + meeting);
    EXPECT_EQ(menuOf(u"milk"_qs),
        u"checkmark.circle: Mark as Completed\ndoc.on.doc: Copy Reminder Details\nlist.bullet: Open in Reminders\n"
        "-\ntrash: Delete Reminder"_qs);
    EXPECT_EQ(menuOf(u"done"_qs),
        u"checkmark.circle: Mark as Incomplete\nlink: Open Link\ndoc.on.doc: Copy Reminder Details\n"
        "list.bullet: Open in Reminders\n-\ntrash: Delete Reminder"_qs);
    for (const QString &title : { u"Today"_qs, u"none of that title"_qs })
        EXPECT_TRUE(menuOf(title).isEmpty()) << title.toStdString();
}

TEST_F(AgendaListTest, DimsEventsThatAreOverButNoReminders)
{
    world.addReminder("work", "milk", "DUE:20260307T080000Z");
    world.addEvent("work", "ends-now", during("20260307T110000Z", "20260307T120000Z"));
    load();
    ASSERT_THAT(titles().mid(0, 5), ElementsAre(u"Today"_qs, u"milk"_qs, u"standup"_qs, u"ends-now"_qs, u"review"_qs));
    EXPECT_EQ(data(1, Model::KindRole).toInt(), Model::Reminder);
    EXPECT_FALSE(data(1, Model::IsPastRole).toBool());
    EXPECT_TRUE(data(2, Model::IsPastRole).toBool());
    EXPECT_FALSE(data(3, Model::IsPastRole).toBool());

    world.clock.moment += std::chrono::seconds { 30 };
    world.state().updateCountdown();
    EXPECT_TRUE(data(3, Model::IsPastRole).toBool());
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(AgendaListTest, SameDataTellsNobody)
{
    load();
    const auto before = inserts.size();
    refresh();
    EXPECT_EQ(inserts.size(), before);
    EXPECT_EQ(removals.size() + changes.size() + resets.size(), 0);
}

TEST_F(AgendaListTest, InsertsWhatIsNewAlone)
{
    load();
    inserts.clear();
    world.addEvent("work", "call", during("20260307T120000Z", "20260307T121500Z"));
    world.tellOfChange();
    refresh();
    ASSERT_EQ(inserts.size(), 1);
    EXPECT_EQ(inserts[0][1].toInt(), 2);
    EXPECT_EQ(inserts[0][2].toInt(), 2);
    EXPECT_EQ(removals.size() + changes.size() + resets.size(), 0);
}

TEST_F(AgendaListTest, RemovesAnEmptiedDayWithItsHeading)
{
    load();
    inserts.clear();
    world.backend->contents[u"work"_qs].erase(u"lunch.ics"_qs);
    world.tellOfChange();
    refresh();
    ASSERT_EQ(removals.size(), 1);
    EXPECT_EQ(removals[0][1].toInt(), 3);
    EXPECT_EQ(removals[0][2].toInt(), 4);
    EXPECT_EQ(inserts.size() + changes.size() + resets.size(), 0);
}

TEST_F(AgendaListTest, LeavesTheRowsBetweenTwoChangesAlone)
{
    load();
    inserts.clear();
    world.backend->contents[u"work"_qs].erase(u"standup.ics"_qs);
    world.addEvent("work", "call", during("20260312T090000Z", "20260312T093000Z"));
    world.tellOfChange();
    refresh();
    ASSERT_EQ(removals.size(), 1);
    EXPECT_EQ(removals[0][2].toInt(), 1);
    ASSERT_EQ(inserts.size(), 1);
    EXPECT_EQ(inserts[0][1].toInt(), 5);
    EXPECT_EQ(inserts[0][2].toInt(), 5);
    EXPECT_EQ(changes.size() + resets.size(), 0);
}

TEST_F(AgendaListTest, ChangesTheRowThatDiffersAlone)
{
    load();
    inserts.clear();
    world.addEvent("work", "review", during("20260307T130000Z", "20260307T143000Z"));
    world.tellOfChange();
    refresh();
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 2);
    EXPECT_EQ(data(2, Model::TimeRangeRole).toString(), u"13:00 - 14:30"_qs);
    EXPECT_EQ(inserts.size() + removals.size() + resets.size(), 0);
}

TEST_F(AgendaListTest, KeepsTheRowsThatTwoSelectionsShare)
{
    load();
    inserts.clear();
    world.state().setSelectedDate(at("2026-03-08"));
    ASSERT_EQ(removals.size(), 1);
    EXPECT_EQ(removals[0][2].toInt(), 2);
    EXPECT_EQ(inserts.size() + changes.size() + resets.size(), 0);
}

TEST_F(AgendaListTest, RenamesHeadingsWhenTheDayTurns)
{
    load();
    world.state().setPopoverVisible(true);
    world.clock.moment = at("2026-03-08 00:00");
    Q_EMIT world.environment.significantTimeChange();
    EXPECT_EQ(data(0, Model::TitleRole).toString(), u"Saturday, Mar 7"_qs);
    EXPECT_EQ(data(3, Model::TitleRole).toString(), u"Today"_qs);
    EXPECT_TRUE(data(3, Model::IsTodayRole).toBool());
}

TEST_F(AgendaListTest, ToldApartByAccessThenByContent)
{
    world.backend->isAccessible = false;
    model.setAppState(&world.loaded());
    EXPECT_EQ(model.state(), Model::NoAccess);
    world.backend->isAccessible = true;
    world.loaded();
    EXPECT_EQ(model.state(), Model::List);
    world.state().setSelectedDate(at("2026-05-01"));
    EXPECT_EQ(model.state(), Model::Empty);
}

TEST_F(AgendaListTest, JoinsTheMeetingOfItsRow)
{
    world.addEvent("work", "call", during("20260307T120000Z", "20260307T121500Z") + "\nURL:https://zoom.us/j/1");
    load();
    for (const int row : { -1, 0, 1, 2, 99 })
        model.joinMeeting(row);
    QCoreApplication::processEvents();
    EXPECT_THAT(world.workspace.opened, ElementsAre(u"https://zoom.us/j/1"_qs));
    EXPECT_EQ(data(2, Model::ServiceRole).toString(), u"Zoom"_qs);
}

} // namespace
} // namespace mintaro
