#include "Views/EventEditor/EventEditorViewController.h"

#include "Platform/EventKit/Folders/FoldersBackend.h"
#include "support/World.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QSignalSpy>
#include <QTest>

namespace mintaro {
namespace {

using testing::HasSubstr;

/// The editor over a store of real folders.
class EventEditorViewControllerTest : public testing::Test
{
protected:
    EventEditorViewControllerTest()
    {
        const QString root = world.folder.filePath(u"root"_qs);
        QDir().mkpath(root + u"/work"_qs);
        QDir().mkpath(root + u"/home"_qs);
        world.database = std::make_shared<CalendarDatabase>(
            std::make_unique<FoldersBackend>(BaseFolders {}, root), nullptr, world.environment, world.notifications);
        world.database->follow();
    }

    [[nodiscard]] QString path(const QString &name) const { return world.folder.filePath(u"root/"_qs + name); }

    void put(const QByteArray &event)
    {
        QFile file(path(u"work/a.ics"_qs));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:x\nBEGIN:VEVENT\nUID:a\nDTSTAMP:20260101T000000Z\n" + event
            + "\nEND:VEVENT\nEND:VCALENDAR\n");
        file.close();
        world.loaded();
    }

    [[nodiscard]] QByteArray bytes(const QString &name = u"work/a.ics"_qs) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// The first shown event, looked up as for editing.
    EKEvent event()
    {
        QCoro::waitFor(world.state().refreshAll());
        return world.state().eventsVM().dayEvents().front().events.front().ekEvent;
    }

    EventEditorViewController &open(const std::optional<EKEvent> &event)
    {
        editor = std::make_unique<EventEditorViewController>(world.state(), event);
        QCoro::waitFor(editor->loadData());
        return *editor;
    }

    void save(EKSpan span = EKSpan::ThisEvent) { QCoro::waitFor(editor->performSave(span)); }

    /// The only file in a folder, empty without one.
    [[nodiscard]] QByteArray onlyFile(const QString &folder) const
    {
        const QStringList names = QDir(path(folder)).entryList({ u"*.ics"_qs }, QDir::Files);
        return names.size() == 1 ? bytes(folder + u'/' + names.front()) : QByteArray();
    }

    World world { "2026-03-10 14:20", "en_GB", "Europe/Rome" };
    std::unique_ptr<EventEditorViewController> editor;
};

struct UnchangedRow
{
    const char *name;
    const char *event;
    EKSpan span = EKSpan::ThisEvent;
};

void PrintTo(const UnchangedRow &row, std::ostream *out)
{
    *out << row.name;
}

class UnchangedEventTest : public EventEditorViewControllerTest, public testing::WithParamInterface<UnchangedRow>
{
};

TEST_P(UnchangedEventTest, KeepsEveryByteOfItsFile)
{
    put(GetParam().event);
    const QByteArray before = bytes();
    open(event());
    editor->applyParsed({ .title = editor->title() });
    save(GetParam().span);
    EXPECT_EQ(world.state().errorMessage(), QString());
    EXPECT_EQ(bytes(), before);
}

INSTANTIATE_TEST_SUITE_P(Rows, UnchangedEventTest,
    testing::Values(UnchangedRow { "FortnightlyOnTwoDays",
                        "SUMMARY:x\nDTSTART;TZID=Europe/Rome:20260309T090000\nDURATION:PT45M\n"
                        "RRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,WE" },
        UnchangedRow { "FutureEventsOfASeries",
            "SUMMARY:x\nDTSTART:20260309T090000Z\nDTEND:20260309T100000Z\nRRULE:FREQ=DAILY;UNTIL=20260401T000000Z",
            EKSpan::FutureEvents },
        UnchangedRow { "WholeDaysWithTheirEnd", "SUMMARY:x\nDTSTART;VALUE=DATE:20260310\nDTEND;VALUE=DATE:20260313" },
        UnchangedRow { "ADayWithoutAnEnd", "SUMMARY:x\nDTSTART;VALUE=DATE:20260310" },
        UnchangedRow { "AnotherZoneAndAnAlarmWithoutARow",
            "SUMMARY:x\nLOCATION:\nDTSTART;TZID=Asia/Tokyo:20260310T090000\nDTEND;TZID=Asia/Tokyo:20260310T091500\n"
            "BEGIN:VALARM\nACTION:AUDIO\nTRIGGER:-PT2H\nEND:VALARM" },
        UnchangedRow { "AbsoluteAlarm",
            "SUMMARY:x\nDESCRIPTION:a\\nb\nDTSTART:20260310T090000\nDTEND:20260310T100000\n"
            "BEGIN:VALARM\nACTION:DISPLAY\nDESCRIPTION:x\nTRIGGER;VALUE=DATE-TIME:20260310T070000Z\nEND:VALARM" }),
    [](const auto &row) { return row.param.name; });

TEST_F(EventEditorViewControllerTest, KeepsTheFirstOfTwoAlarms)
{
    put("SUMMARY:x\nDTSTART:20260310T090000Z\nDTEND:20260310T100000Z\n"
        "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT5M\nEND:VALARM\n"
        "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT1H\nEND:VALARM");
    EXPECT_EQ(open(event()).alertOffset(), std::chrono::minutes { -5 });
    save();
    EXPECT_EQ(event().alarms(), (std::vector { EKAlarm { {}, std::chrono::minutes { -5 } } }));
}

struct NewEventRow
{
    const char *name;
    const char *now;
    const char *selected;
    const char *start;
};

void PrintTo(const NewEventRow &row, std::ostream *out)
{
    *out << row.name;
}

class NewEventTest : public testing::TestWithParam<NewEventRow>
{
};

TEST_P(NewEventTest, BeginsAtTheNextFullHourOfTheSelectedDay)
{
    World world(GetParam().now);
    world.addCalendar("work");
    world.loaded().setSelectedDate(at(GetParam().selected));
    EventEditorViewController editor(world.state(), std::nullopt);
    QCoro::waitFor(editor.loadData());
    EXPECT_EQ(editor.startDate(), at(GetParam().start));
    EXPECT_EQ(editor.endDate() - editor.startDate(), std::chrono::hours { 1 });
    EXPECT_EQ(editor.selectedCalendarID(), u"work"_qs);
    EXPECT_FALSE(editor.canSave());
}

INSTANTIATE_TEST_SUITE_P(Rows, NewEventTest,
    testing::Values(NewEventRow { "NotBeforeNine", "2026-03-10 06:20", "2026-03-10 06:20", "2026-03-10 09:00" },
        NewEventRow { "OnAnotherDay", "2026-03-10 14:20", "2026-03-20 00:00", "2026-03-20 15:00" },
        NewEventRow { "HourTwentyFourIsNone", "2026-03-10 23:30", "2026-03-12 00:00", "2026-03-12 00:00" }),
    [](const auto &row) { return row.param.name; });

TEST_F(EventEditorViewControllerTest, SavesANewEventInTheChosenCalendarAndCloses)
{
    world.loaded();
    open(std::nullopt);
    const QSignalSpy closed(editor.get(), &EventEditorViewController::closeRequested);
    ASSERT_EQ(editor->calendars().size(), 2U);
    editor->handleSave();
    EXPECT_EQ(closed.count(), 0) << "there is no title";
    editor->setTitle(u" "_qs);
    EXPECT_TRUE(editor->canSave());
    editor->setTitle(u"Lunch"_qs);
    editor->setSelectedCalendarID(editor->calendars()[0]->title == u"home"_qs
            ? editor->calendars()[0]->calendarIdentifier
            : editor->calendars()[1]->calendarIdentifier);
    editor->setRecurrenceRule(EKRecurrenceRule { "FREQ=WEEKLY" });
    editor->setAlertOffset(std::chrono::minutes { -15 });
    editor->handleSave();
    EXPECT_FALSE(editor->showSpanPicker());
    EXPECT_FALSE(editor->canSave()) << "no second save beside the first";
    ASSERT_TRUE(QTest::qWaitFor([&] { return closed.count() == 1; }));
    const std::string text = onlyFile(u"home"_qs).toStdString();
    EXPECT_THAT(text, HasSubstr("SUMMARY:Lunch\r\n"));
    EXPECT_THAT(text, HasSubstr("DTSTART;TZID=Europe/Rome:20260310T150000"));
    EXPECT_THAT(text, HasSubstr("TRIGGER:-PT15M"));
    EXPECT_THAT(text, HasSubstr("RRULE:FREQ=WEEKLY"));
}

TEST_F(EventEditorViewControllerTest, AsksHowFarTheChangeOfASeriesReaches)
{
    put("SUMMARY:x\nDTSTART:20260310T090000Z\nDTEND:20260310T100000Z\nRRULE:FREQ=DAILY;COUNT=3");
    const QByteArray before = bytes();
    open(event()).setTitle(u"y"_qs);
    editor->handleSave();
    EXPECT_TRUE(editor->showSpanPicker());
    EXPECT_EQ(bytes(), before);
    const QSignalSpy closed(editor.get(), &EventEditorViewController::closeRequested);
    editor->chooseSpan(static_cast<int>(EKSpan::FutureEvents));
    EXPECT_FALSE(editor->showSpanPicker());
    ASSERT_TRUE(QTest::qWaitFor([&] { return closed.count() == 1; }));
    EXPECT_THAT(bytes().toStdString(), HasSubstr("SUMMARY:y"));
    EXPECT_EQ(bytes().count("BEGIN:VEVENT"), 1);
}

TEST_F(EventEditorViewControllerTest, ClearingALocationAndAnAlertTakesThemAway)
{
    put("SUMMARY:x\nLOCATION:bar\nDTSTART:20260310T090000Z\nDTEND:20260310T100000Z\n"
        "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT5M\nEND:VALARM");
    open(event()).setLocation({});
    editor->setAlertOffset(std::nullopt);
    save();
    EXPECT_FALSE(bytes().contains("LOCATION") || bytes().contains("VALARM"));
}

TEST_F(EventEditorViewControllerTest, TheEndMovesWithTheStartOnly)
{
    open(std::nullopt);
    const auto rome = [](const char *text) { return at(text, zone("Europe/Rome")); };
    editor->setEndDate(rome("2026-03-11 16:00"));
    editor->setStartDate(rome("2026-03-28 15:00"));
    EXPECT_EQ(editor->endDate(), rome("2026-03-29 16:00")) << "as the clocks show it, though one hour is left out";
    editor->setEndDate(rome("2026-03-28 14:00"));
    EXPECT_EQ(editor->startDate(), rome("2026-03-28 15:00"));
    editor->setAllDay(true);
    EXPECT_EQ(editor->startDate(), rome("2026-03-28 15:00"));
}

TEST_F(EventEditorViewControllerTest, ASentenceSetsWhatItSays)
{
    open(std::nullopt).setLocation(u"home"_qs);
    const Date end = editor->endDate();
    editor->applyParsed({ .title = u"Lunch"_qs, .startDate = at("2026-03-11 12:00") });
    EXPECT_EQ(editor->title(), u"Lunch"_qs);
    EXPECT_EQ(editor->startDate(), at("2026-03-11 12:00"));
    EXPECT_EQ(editor->endDate(), end);
    editor->applyParsed({ .endDate = at("2026-03-11 13:00"), .location = u"Roma"_qs });
    EXPECT_EQ(editor->title(), u"Lunch"_qs);
    EXPECT_EQ(editor->startDate(), at("2026-03-11 12:00"));
    EXPECT_EQ(editor->endDate(), at("2026-03-11 13:00"));
    EXPECT_EQ(editor->location(), u"Roma"_qs);
}

TEST_F(EventEditorViewControllerTest, OffersRejectedInputAgainUntilItIsDropped)
{
    world.loaded();
    open(std::nullopt).setTitle(u"Backwards"_qs);
    editor->setEndDate(editor->startDate() - std::chrono::hours { 1 });
    world.takeLog();
    const QSignalSpy closed(editor.get(), &EventEditorViewController::closeRequested);
    save();
    EXPECT_EQ(closed.count(), 1);
    const QString message = u"Failed to save event: The event ends before it starts."_qs;
    EXPECT_EQ(world.state().errorMessage(), message);
    EXPECT_THAT(world.takeLog(), testing::ElementsAre(u"error AppState: "_qs + message));

    EXPECT_TRUE(open(std::nullopt).isRestored());
    EXPECT_EQ(editor->title(), u"Backwards"_qs);
    EXPECT_LT(editor->endDate(), editor->startDate());
    editor->dropRestored();
    EXPECT_FALSE(editor->isRestored() || editor->canSave());
    EXPECT_EQ(editor->endDate() - editor->startDate(), std::chrono::hours { 1 });
    EXPECT_FALSE(open(std::nullopt).isRestored());
}

TEST_F(EventEditorViewControllerTest, AnEventThatWentMeanwhileIsToldAndItsInputKept)
{
    put("SUMMARY:x\nDTSTART:20260310T090000Z\nDTEND:20260310T100000Z");
    const EKEvent before = event();
    open(before).setNotes(u"long thoughts"_qs);
    ASSERT_TRUE(QFile::remove(path(u"work/a.ics"_qs)));
    save();
    EXPECT_FALSE(world.state().errorMessage().isEmpty());
    EXPECT_FALSE(open(before).isRestored());
    EXPECT_EQ(open(std::nullopt).notes(), u"long thoughts"_qs) << "what has gone cannot be opened again";
    editor->keepRestored();
    EXPECT_EQ(open(std::nullopt).notes(), u"long thoughts"_qs) << "closing the editor drops nothing";
}

TEST_F(EventEditorViewControllerTest, ASaveOutlivesItsEditor)
{
    world.loaded();
    open(std::nullopt).setTitle(u"Lunch"_qs);
    editor->handleSave();
    editor.reset();
    EXPECT_TRUE(QTest::qWaitFor([this] {
        return onlyFile(u"work"_qs).contains("SUMMARY:Lunch") || onlyFile(u"home"_qs).contains("SUMMARY:Lunch");
    }));
}

} // namespace
} // namespace mintaro
