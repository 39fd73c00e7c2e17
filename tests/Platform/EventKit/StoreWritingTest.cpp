#include "EngineFixture.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace mintaro {
namespace {

using namespace std::chrono;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

constexpr EKSpan kThis = EKSpan::ThisEvent;
constexpr EKSpan kFuture = EKSpan::FutureEvents;

const QByteArray kEvent
    = "BEGIN:VEVENT\nUID:one\nSUMMARY:Old\nLOCATION:Here\nDTSTART:20260302T090000Z\nDTEND:20260302T100000Z\nEND:VEVENT";
const QByteArray kSeries = "BEGIN:VEVENT\nUID:one\nSUMMARY:Old\nDTSTART:20260302T090000Z\nDTEND:"
                           "20260302T100000Z\nRRULE:FREQ=DAILY;COUNT=4\nEND:VEVENT";

class StoreWritingTest : public EngineFixture
{
protected:
    StoreWritingTest() { backend->addCollection(QStringLiteral("home")); }

    EKEvent at(const char *start)
    {
        for (const EKEvent &each : events()) {
            if (each.startDate() == utc(start))
                return each;
        }
        ADD_FAILURE() << "nothing at " << start;
        return {};
    }

    /// Another program changes the object; nobody was told yet.
    void replaceIn(const char *before, const char *after, const QString &name = QStringLiteral("a.ics"))
    {
        put(QByteArray(backend->contents[QStringLiteral("work")][name].text).replace(before, after), name);
    }

    std::string text(const char *name = "a.ics", const char *collection = "work") const
    {
        const auto &objects = backend->contents.at(QString::fromLatin1(collection));
        const auto found = objects.find(QString::fromLatin1(name));
        return found == objects.end() ? std::string() : found->second.text.toStdString();
    }

    EKCalendarRef calendar(const char *identifier)
    {
        for (const EKCalendarRef &each : database->calendars()) {
            if (each->calendarIdentifier == QLatin1String(identifier))
                return each;
        }
        return nullptr;
    }

    /// "start calendar title" of all events.
    std::vector<std::string> shown()
    {
        std::vector<std::string> all;
        for (const EKEvent &each : events()) {
            all.push_back((mintaro::text(each.startDate()).mid(4, 7) + u' ' + each.calendar()->title + u' '
                + each.title().value_or(QString()))
                              .toStdString());
        }
        return all;
    }

    static EKEvent titled(EKEvent event, const char *title)
    {
        event.setTitle(QString::fromUtf8(title));
        return event;
    }

    EKEvent newEvent(const char *start, const char *end)
    {
        EKEvent event;
        event.setCalendar(calendar("work"));
        event.setTitle(QStringLiteral("New"));
        event.setStartDate(utc(start));
        event.setEndDate(utc(end));
        return event;
    }

    template <typename Act>
    static std::string problemOf(const Act &act)
    {
        try {
            act();
        } catch (const EKError &error) {
            return error.what();
        }
        return "no error";
    }
    std::string problemOfSaving(const EKEvent &event, EKSpan span = kThis)
    {
        return problemOf([&] { static_cast<void>(database->save(event, span)); });
    }
};

TEST_F(StoreWritingTest, MergesWhatAnotherProgramChanged)
{
    put(calendarOf(kEvent));
    EKEvent event = at("20260302T090000Z");
    replaceIn("LOCATION:Here\n", "LOCATION:There\nX-NEW:1\n");
    replaceIn("DTEND:20260302T100000Z", "DTEND:20260302T113000Z");
    const EKEvent saved = database->save(titled(event, "New"), kThis);
    EXPECT_EQ(saved.title(), QStringLiteral("New"));
    EXPECT_EQ(saved.location(), QStringLiteral("There"));
    EXPECT_EQ(saved.endDate(), utc("20260302T113000Z"));
    EXPECT_THAT(text(), HasSubstr("X-NEW:1"));
    EXPECT_TRUE(log.isEmpty());
}

TEST_F(StoreWritingTest, OfTwoChangesOfOneFieldOursStandsAndTheLogSaysSo)
{
    put(calendarOf(kEvent));
    EKEvent event = at("20260302T090000Z");
    event.setStartDate(utc("20260303T090000Z"));
    event.setEndDate(utc("20260303T100000Z"));
    replaceIn("SUMMARY:Old", "SUMMARY:Theirs");
    replaceIn("DTSTART:20260302T090000Z\nDTEND:20260302T100000Z", "DTSTART:20260305T090000Z\nDTEND:20260305T100000Z");
    static_cast<void>(database->save(titled(event, "Ours"), kThis));
    EXPECT_THAT(shown(), ElementsAre("0303T09 work Ours"));
    EXPECT_THAT(log.join(u'\n').toStdString(), HasSubstr("title, start, end"));
}

TEST_F(StoreWritingTest, TriesAgainWhereAnotherProgramWasQuicker)
{
    put(calendarOf(kSeries));
    const EKEvent event = at("20260303T090000Z");
    int races = 2;
    backend->onWrite = [&] {
        if (races-- > 0)
            replaceIn("SUMMARY:Old", races == 1 ? "X-ONE:1\nSUMMARY:Old" : "X-TWO:2\nSUMMARY:Old");
    };
    static_cast<void>(database->save(titled(event, "New"), kFuture));
    EXPECT_THAT(text(), testing::AllOf(HasSubstr("X-ONE:1"), HasSubstr("X-TWO:2")));
    EXPECT_THAT(shown(), ElementsAre("0302T09 work Old", "0303T09 work New", "0304T09 work New", "0305T09 work New"));
    EXPECT_EQ(backend->contents.at(QStringLiteral("work")).size(), 2U);
}

TEST_F(StoreWritingTest, WhatIsGoneIsNotBroughtBack)
{
    put(calendarOf(kSeries));
    const EKEvent event = at("20260304T090000Z");
    const struct
    {
        const char *what;
        std::function<void()> happens;
    } cases[] = {
        { "excluded", [&] { replaceIn("RRULE", "EXDATE:20260304T090000Z\nRRULE"); } },
        { "ended", [&] { put(calendarOf(QByteArray(kSeries).replace("COUNT=4", "COUNT=2"))); } },
        { "another event", [&] { put(calendarOf(QByteArray(kSeries).replace("UID:one", "UID:two"))); } },
        { "removed", [&] { backend->contents[QStringLiteral("work")].clear(); } },
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.what);
        each.happens();
        const auto before = text();
        for (const EKSpan span : { kThis, kFuture }) {
            EXPECT_THAT(problemOfSaving(titled(event, "New"), span), HasSubstr("no longer exists"));
            EXPECT_THAT(problemOf([&] { database->remove(event, span); }), HasSubstr("no longer exists"));
        }
        EXPECT_EQ(text(), before);
    }
}

TEST_F(StoreWritingTest, FollowsAnObjectToItsNewName)
{
    put(calendarOf(kEvent));
    const EKEvent event = at("20260302T090000Z");
    backend->contents[QStringLiteral("work")].clear();
    put(calendarOf(kEvent), QStringLiteral("b.ics"));
    static_cast<void>(database->save(titled(event, "New"), kThis));
    EXPECT_THAT(text("b.ics"), HasSubstr("SUMMARY:New"));
}

TEST_F(StoreWritingTest, AFailureLeavesEverythingAsItWas)
{
    put(calendarOf(kSeries));
    EKEvent event = titled(at("20260303T090000Z"), "New");
    const auto before = text();
    int writes = 0;
    for (const int failing : { 1, 2 }) {
        writes = 0;
        backend->onWrite = [&] {
            if (++writes == failing)
                throw EKError("the disk is full");
        };
        EXPECT_EQ(problemOfSaving(event, kFuture), "the disk is full");
        backend->onWrite = [] {};
        EXPECT_EQ(text(), before);
        EXPECT_EQ(backend->contents.at(QStringLiteral("work")).size(), 1U);
    }
}

TEST_F(StoreWritingTest, SaysWhyItDoesNotSave)
{
    put(calendarOf(kEvent));
    backend->addCollection(QStringLiteral("feed")).isWritable = false;
    const EKEvent event = at("20260302T090000Z");
    EKEvent backwards = event;
    backwards.setEndDate(utc("20260301T090000Z"));
    EXPECT_THAT(problemOfSaving(backwards), HasSubstr("ends before it starts"));
    EKEvent elsewhere = event;
    elsewhere.setCalendar(calendar("feed"));
    EXPECT_THAT(problemOfSaving(elsewhere), HasSubstr("\"feed\" cannot be changed"));
    EKEvent homeless;
    homeless.setStartDate(utc("20260302T090000Z"));
    homeless.setEndDate(utc("20260302T100000Z"));
    EXPECT_THAT(problemOfSaving(homeless), HasSubstr("no calendar"));
    EKEvent timeless;
    timeless.setCalendar(calendar("work"));
    EXPECT_THAT(problemOfSaving(timeless), HasSubstr("no start"));
    for (const char *rule : { "FREQ=SOMETIMES", "FREQ=DAILY;X=1\nATTENDEE:mailto:x" }) {
        EKEvent senseless = event;
        senseless.setRecurrenceRules({ { rule } });
        EXPECT_THAT(problemOfSaving(senseless), HasSubstr("makes no sense"));
    }
    EKEvent endless = event;
    endless.setEndDate(utc("99991231T235900Z"));
    EXPECT_THAT(problemOfSaving(endless), HasSubstr("too far"));
    EXPECT_EQ(text(), calendarOf(kEvent).toStdString());
}

TEST_F(StoreWritingTest, WhatCannotBeReadIsNotChanged)
{
    put(calendarOf("BEGIN:VEVENT\nUID:one\nDTSTART:20260302T090000Z\nDTEND:someday\nEND:VEVENT\n"
        + QByteArray(kEvent).replace("one", "two").replace("0302", "0303")));
    const auto before = text();
    EXPECT_THAT(problemOfSaving(titled(at("20260302T090000Z"), "New")), HasSubstr("cannot be read"));
    EXPECT_EQ(text(), before);
    static_cast<void>(database->save(titled(at("20260303T090000Z"), "New"), kThis));
    EXPECT_THAT(text(), HasSubstr("DTEND:someday"));
}

TEST_F(StoreWritingTest, SavingWithoutAChangeWritesNothing)
{
    put(calendarOf(QByteArray(kSeries).replace("SUMMARY:Old", "SUMMARY:Old\nLOCATION:")));
    EKEvent event = at("20260303T090000Z");
    event.setTitle(QStringLiteral("Old"));
    event.setLocation(std::nullopt);
    event.setStartDate(event.startDate());
    event.setRecurrenceRules({ { "FREQ=DAILY;COUNT=4" } });
    event.setCalendar(calendar("work"));
    backend->onWrite = [] { ADD_FAILURE() << "written"; };
    static_cast<void>(database->save(event, kFuture));
    backend->onWrite = [] {};
}

TEST_F(StoreWritingTest, WritesANewEventAsOtherProgramsExpectIt)
{
    ASSERT_TRUE(database->requestAccess());
    EKEvent event = newEvent("20260701T090000Z", "20260701T103000Z");
    event.setTitle(QStringLiteral("Größe; 1, \\2\nnext"));
    event.setNotes(QString(100, u'ü'));
    event.setAlarms({ { std::nullopt, minutes { -15 } }, { std::nullopt, days { -1 } } });
    event.setRecurrenceRules({ { "FREQ=WEEKLY;UNTIL=20260801" } });
    const EKEvent saved = database->save(event, kThis);
    EXPECT_EQ(saved.title(), event.title());
    EXPECT_EQ(saved.notes(), event.notes());
    EXPECT_EQ(saved.alarms(), event.alarms());
    const QByteArray uid = saved.calendarItemExternalIdentifier().toUtf8();
    const QByteArray written = QByteArray::fromStdString(text(uid + ".ics"));
    for (const QByteArray &line : written.split('\n'))
        EXPECT_LE(line.size(), 76) << line.toStdString();
    const QByteArray unfolded = QByteArray(written).replace("\r\n ", "");
    const qsizetype at = unfolded.indexOf("BEGIN:VEVENT");
    EXPECT_TRUE(unfolded.startsWith("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:"));
    EXPECT_TRUE(unfolded.contains("BEGIN:VTIMEZONE\r\nTZID:Europe/Rome\r\n"));
    EXPECT_EQ(unfolded.mid(at).toStdString(),
        ("BEGIN:VEVENT\r\nUID:" + uid
            + "\r\nCREATED:20260301T090000Z\r\nDTSTAMP:20260301T090000Z\r\nLAST-MODIFIED:20260301T090000Z\r\n"
              "DTSTART;TZID=Europe/Rome:20260701T110000\r\nDTEND;TZID=Europe/Rome:20260701T123000\r\n"
              "SUMMARY:Größe\\; 1\\, \\\\2\\nnext\r\nDESCRIPTION:"
            + QByteArray("ü").repeated(100)
            + "\r\nRRULE:FREQ=WEEKLY;UNTIL=20260801T215959Z\r\n"
              "BEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:Größe\\; 1\\, "
              "\\\\2\\nnext\r\nTRIGGER:-PT15M\r\nEND:VALARM\r\n"
              "BEGIN:VALARM\r\nACTION:DISPLAY\r\nDESCRIPTION:Größe\\; 1\\, "
              "\\\\2\\nnext\r\nTRIGGER:-P1D\r\nEND:VALARM\r\n"
              "END:VEVENT\r\nEND:VCALENDAR\r\n")
            .toStdString());
}

TEST_F(StoreWritingTest, TheHourThatAClockReadsTwiceIsWrittenInUtc)
{
    ASSERT_TRUE(database->requestAccess());
    const EKEvent saved = database->save(newEvent("20261025T013000Z", "20261025T020000Z"), kThis);
    EXPECT_EQ(saved.startDate(), utc("20261025T013000Z"));
    EXPECT_EQ(saved.endDate(), utc("20261025T020000Z"));
}

TEST_F(StoreWritingTest, AWholeDayLastsUntilItsEnd)
{
    ASSERT_TRUE(database->requestAccess());
    EKEvent event = newEvent("20260305T120000Z", "20260306T120000Z");
    event.setAllDay(true);
    const EKEvent saved = database->save(event, kThis);
    EXPECT_EQ(saved.startDate(), utc("20260304T230000Z"));
    EXPECT_EQ(saved.endDate(), utc("20260306T225959Z"));
    EXPECT_THAT(text((saved.calendarItemExternalIdentifier() + QLatin1String(".ics")).toUtf8().constData()),
        HasSubstr("DTEND;VALUE=DATE:20260307\r\n"));
}

TEST_F(StoreWritingTest, AlarmsStayUnlessTheyAreSet)
{
    const QByteArray alarms
        = "BEGIN:VALARM\nTRIGGER:-PT10M\nACTION:AUDIO\nX-OWN:1\nEND:VALARM\nBEGIN:VALARM\nACTION:X-ODD\nEND:VALARM\n";
    put(calendarOf(QByteArray(kEvent).replace("END:VEVENT", alarms + "END:VEVENT")));
    static_cast<void>(database->save(titled(at("20260302T090000Z"), "New"), kThis));
    EXPECT_THAT(text(), HasSubstr(alarms.toStdString()));
    EKEvent event = at("20260302T090000Z");
    event.setAlarms({ { std::nullopt, minutes { -10 } }, { std::nullopt, minutes { -5 } } });
    static_cast<void>(database->save(event, kThis));
    EXPECT_THAT(text(),
        testing::AllOf(HasSubstr("ACTION:AUDIO\nX-OWN:1"), Not(HasSubstr("X-ODD")), HasSubstr("TRIGGER:-PT5M")));
}

TEST_F(StoreWritingTest, OnlyTheOrganizerRaisesTheSequence)
{
    backend->held.front().userAddresses = QStringList { QStringLiteral("me@example.org") };
    for (const bool isOwn : { true, false }) {
        SCOPED_TRACE(isOwn);
        put(calendarOf(QByteArray(kEvent).replace("SUMMARY",
            isOwn ? "ORGANIZER:mailto:Me@example.org\nSUMMARY" : "ORGANIZER:mailto:boss@example.org\nSUMMARY")));
        ASSERT_TRUE(database->requestAccess());
        StoreChanges changes;
        changes.objects[QStringLiteral("work")] = {};
        backend->tell(changes);
        EKEvent event = at("20260302T090000Z");
        event.setEndDate(utc("20260302T110000Z"));
        static_cast<void>(database->save(event, kThis));
        EXPECT_EQ(text().find("SEQUENCE:1") != std::string::npos, isOwn);
    }
}

TEST_F(StoreWritingTest, MovesToAnotherCalendar)
{
    const struct
    {
        const char *what;
        QByteArray components;
        const char *at;
        EKSpan span;
        std::vector<std::string> shown;
    } cases[] = {
        { "alone", kEvent, "20260302T090000Z", kThis, { "0302T09 home New" } },
        { "out of an object with others",
            kEvent + '\n' + QByteArray(kEvent).replace("one", "two").replace("Old", "Two"), "20260302T090000Z", kThis,
            { "0302T09 work Two", "0302T09 home New" } },
        { "a series", kSeries, "20260302T090000Z", kFuture,
            { "0302T09 home New", "0303T09 home New", "0304T09 home New", "0305T09 home New" } },
        { "one of a series", kSeries, "20260303T090000Z", kThis,
            { "0302T09 work Old", "0303T09 home New", "0304T09 work Old", "0305T09 work Old" } },
        { "the rest of a series", kSeries, "20260304T090000Z", kFuture,
            { "0302T09 work Old", "0303T09 work Old", "0304T09 home New", "0305T09 home New" } },
    };
    ASSERT_TRUE(database->requestAccess());
    for (const auto &each : cases) {
        SCOPED_TRACE(each.what);
        backend->contents.clear();
        put(calendarOf(each.components));
        StoreChanges changes;
        changes.objects[QStringLiteral("work")] = changes.objects[QStringLiteral("home")] = {};
        backend->tell(changes);
        EKEvent event = titled(at(each.at), "New");
        event.setCalendar(calendar("home"));
        const EKEvent saved = database->save(event, each.span);
        EXPECT_EQ(saved.calendar()->title, QStringLiteral("home"));
        EXPECT_THAT(shown(), testing::UnorderedElementsAreArray(each.shown));
    }
}

TEST_F(StoreWritingTest, MovesNothingOverTheSameEvent)
{
    put(calendarOf(kEvent));
    backend->put(QStringLiteral("home"), QStringLiteral("x.ics"), calendarOf(kEvent));
    EKEvent event = events().at(0);
    event.setCalendar(calendar("home"));
    EXPECT_THAT(problemOfSaving(event), HasSubstr("\"home\" already has this event"));
    EXPECT_EQ(text(), calendarOf(kEvent).toStdString());
}

TEST_F(StoreWritingTest, OfTwoObjectsWithOneUidTheOneThatWasMeant)
{
    put(calendarOf(kEvent));
    put(calendarOf(QByteArray(kEvent).replace("0302", "0303")), QStringLiteral("b.ics"));
    const EKEvent saved = database->save(titled(at("20260303T090000Z"), "New"), kThis);
    EXPECT_EQ(saved.title(), QStringLiteral("New"));
    EXPECT_EQ(text(), calendarOf(kEvent).toStdString());
    EXPECT_THAT(text("b.ics"), HasSubstr("SUMMARY:New"));
    database->remove(saved, kThis);
    EXPECT_THAT(shown(), ElementsAre("0302T09 work Old"));
}

TEST_F(StoreWritingTest, ExceptionsInObjectsOfTheirOwnBelongToTheirSeries)
{
    const QByteArray exception = calendarOf(
        "BEGIN:VEVENT\nUID:one\nRECURRENCE-ID:20260304T090000Z\nSUMMARY:Stray\nDTSTART:20260304T120000Z\nEND:VEVENT");
    const struct
    {
        const char *what;
        const char *at;
        EKSpan span;
        bool isRemoval;
        std::vector<std::string> shown;
    } cases[] = {
        { "changed", "20260304T120000Z", kThis, false,
            { "0302T09 work Old", "0303T09 work Old", "0304T12 work New", "0305T09 work Old" } },
        { "removed", "20260304T120000Z", kThis, true, { "0302T09 work Old", "0303T09 work Old", "0305T09 work Old" } },
        { "divided", "20260303T090000Z", kFuture, false,
            { "0302T09 work Old", "0303T09 work New", "0304T12 work Stray", "0305T09 work New" } },
        { "cut off", "20260303T090000Z", kFuture, true, { "0302T09 work Old" } },
        { "all removed", "20260302T090000Z", kFuture, true, {} },
    };
    ASSERT_TRUE(database->requestAccess());
    for (const auto &each : cases) {
        SCOPED_TRACE(each.what);
        backend->contents.clear();
        put(calendarOf(kSeries), QStringLiteral("b.ics"));
        put(exception, QStringLiteral("a.ics"));
        StoreChanges changes;
        changes.objects[QStringLiteral("work")] = {};
        backend->tell(changes);
        if (each.isRemoval)
            database->remove(at(each.at), each.span);
        else
            static_cast<void>(database->save(titled(at(each.at), "New"), each.span));
        EXPECT_THAT(shown(), testing::ElementsAreArray(each.shown));
    }
}

/// The store with a journal.
class RestoringTest : public StoreWritingTest
{
protected:
    RestoringTest()
    {
        auto memory = std::make_unique<MemoryBackend>();
        backend = memory.get();
        backend->addCollection(QStringLiteral("work"));
        backend->addCollection(QStringLiteral("home"));
        database = std::make_shared<CalendarDatabase>(std::move(memory), nullptr, environment, notifications,
            Logger(QStringLiteral("EventStore"), [](const LogMessage &) {}),
            std::make_unique<ChangeJournal>(folder.path(), clock));
    }

    QTemporaryDir folder;
};

TEST_F(RestoringTest, BringsBackWhatAChangeTookAndTakesAwayWhatItMade)
{
    const struct
    {
        const char *what;
        std::function<void()> act;
    } cases[] = {
        { "changed", [&] { static_cast<void>(database->save(titled(at("20260303T090000Z"), "New"), kThis)); } },
        { "divided", [&] { static_cast<void>(database->save(titled(at("20260303T090000Z"), "New"), kFuture)); } },
        { "moved",
            [&] {
                EKEvent event = at("20260302T090000Z");
                event.setCalendar(calendar("home"));
                static_cast<void>(database->save(event, kFuture));
            } },
        { "removed", [&] { database->remove(at("20260302T090000Z"), kFuture); } },
    };
    put(calendarOf(kSeries));
    const std::vector<std::string> before = shown();
    for (const auto &each : cases) {
        SCOPED_TRACE(each.what);
        each.act();
        const std::vector<std::string> changed = shown();
        EXPECT_NE(changed, before);
        const QString id = database->journal().back().id;
        EXPECT_EQ(database->journalText(id), calendarOf(kSeries));
        EXPECT_TRUE(database->restore(id));
        EXPECT_EQ(shown(), before);
        EXPECT_EQ(text(), calendarOf(kSeries).toStdString());
        EXPECT_FALSE(database->restore(id));
    }
    EXPECT_THAT(
        problemOf([&] { static_cast<void>(database->restore(QStringLiteral("x"))); }), HasSubstr("no such entry"));
}

TEST_F(RestoringTest, FollowsAnObjectToItsNewName)
{
    put(calendarOf(kEvent));
    static_cast<void>(database->save(titled(at("20260302T090000Z"), "New"), kThis));
    put(backend->contents[QStringLiteral("work")][QStringLiteral("a.ics")].text, QStringLiteral("b.ics"));
    backend->contents[QStringLiteral("work")].erase(QStringLiteral("a.ics"));
    database->follow();
    StoreChanges changes;
    changes.objects[QStringLiteral("work")] = {};
    backend->tell(changes);
    EXPECT_TRUE(database->restore(database->journal().back().id));
    EXPECT_THAT(shown(), ElementsAre("0302T09 work Old"));
}

TEST_F(StoreWritingTest, FindsAnEventByItsIdentifierAndStart)
{
    put(calendarOf(kSeries));
    put(calendarOf(QByteArray(kEvent).replace("one", "with/slash").replace("0302", "0401")), QStringLiteral("b.ics"));
    const QString series = at("20260302T090000Z").eventIdentifier();
    const QString single = at("20260401T090000Z").eventIdentifier();
    EXPECT_EQ(database->eventWithIdentifier(series, utc("20260304T090000Z"))->startDate(), utc("20260304T090000Z"));
    EXPECT_EQ(database->eventWithIdentifier(series, std::nullopt)->startDate(), utc("20260302T090000Z"));
    EXPECT_FALSE(database->eventWithIdentifier(series, utc("20260304T100000Z")));
    EXPECT_EQ(database->eventWithIdentifier(single, utc("20200101T090000Z"))->startDate(), utc("20260401T090000Z"));
    EXPECT_FALSE(database->eventWithIdentifier(series + u'x', std::nullopt));
}

TEST_F(StoreWritingTest, NewEventsComeToTheDefaultCalendar)
{
    ASSERT_TRUE(database->requestAccess());
    EXPECT_EQ(database->defaultCalendarForNewEvents()->title, QStringLiteral("work"));
    backend->held[1].isDefault = true;
    StoreChanges changes;
    changes.collections = true;
    backend->tell(changes);
    EXPECT_EQ(database->defaultCalendarForNewEvents()->title, QStringLiteral("home"));
    backend->held[0].isWritable = backend->held[1].isWritable = false;
    backend->tell(changes);
    EXPECT_EQ(database->defaultCalendarForNewEvents(), nullptr);
}

} // namespace
} // namespace mintaro
