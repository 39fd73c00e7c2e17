#include "ViewModels/EventsViewModel.h"

#include "support/World.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

namespace mintaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EventsViewModelTest : public testing::Test
{
protected:
    EventsViewModelTest()
    {
        for (const auto &[name, color] :
            { std::pair("work", "#ff0000"), { "home", "#00ff00" }, { "club", "#0000ff" }, { "team", "#ffff00" } })
            world.addCalendar(name, color);
    }

    EventsViewModel &fetched(QSet<QString> selection = {}, HidePastEvents hidePastEvents = HidePastEvents::No)
    {
        EXPECT_TRUE(world.database->requestAccess());
        EventsViewModel &model = world.state().eventsVM();
        QCoro::waitFor(model.fetchEvents(at("2026-03-01"), at("2026-04-01"), std::move(selection), hidePastEvents));
        return model;
    }

    /// "2026-3-7: a b" for each day.
    QStringList days(QSet<QString> selection = {}, HidePastEvents hidePastEvents = HidePastEvents::No)
    {
        QStringList lines;
        for (const DayEvents &day : fetched(std::move(selection), hidePastEvents).dayEvents()) {
            QString line = day.id(world.environment.calendar()) + u':';
            for (const CalendarEvent &event : day.events)
                line += u' ' + event.title;
            lines.append(line);
        }
        return lines;
    }

    World world { "2026-03-07 12:00", "en_GB", "Europe/Rome" };
};

TEST_F(EventsViewModelTest, FilesAnEventUnderItsFirstDayAlone)
{
    world.addEvent("work", "evening", during("20260307T225900Z", "20260308T010000Z"));
    world.addEvent("work", "night", during("20260307T230000Z", "20260308T010000Z"));
    world.addEvent("work", "trip", allDay("20260310") + "\nDTEND;VALUE=DATE:20260313");
    world.addEvent("work", "early", during("20260308T060000Z", "20260308T070000Z"));
    world.addEvent("work", "before", during("20260227T100000Z", "20260305T100000Z"));
    EXPECT_THAT(days(),
        ElementsAre(QStringLiteral("2026-2-27: before"), QStringLiteral("2026-3-7: evening"),
            QStringLiteral("2026-3-8: night early"), QStringLiteral("2026-3-10: trip")));
}

TEST_F(EventsViewModelTest, KeepsTheStoresOrderAtEqualStarts)
{
    for (const char *name : { "one", "two", "three" })
        world.addEvent("work", name, during("20260307T100000Z", "20260307T110000Z"));
    QStringList stored;
    EXPECT_TRUE(world.database->requestAccess());
    for (const EKEvent &event : world.database->events({ at("2026-03-01"), at("2026-04-01"), std::nullopt }))
        stored.append(event.title().value_or(QString()));
    EXPECT_THAT(days(), ElementsAre(QStringLiteral("2026-3-7: ") + stored.join(u' ')));
}

TEST_F(EventsViewModelTest, TakesAnEmptySelectionForAll)
{
    world.addEvent("work", "w", during("20260310T100000Z", "20260310T110000Z"));
    world.addEvent("home", "h", during("20260310T120000Z", "20260310T130000Z"));
    EXPECT_THAT(days(), ElementsAre(QStringLiteral("2026-3-10: w h")));
    EXPECT_THAT(days({ QStringLiteral("home"), QStringLiteral("gone") }), ElementsAre(QStringLiteral("2026-3-10: h")));
    EXPECT_THAT(days({ QStringLiteral("gone") }), IsEmpty());
}

TEST_F(EventsViewModelTest, HidesWhatEndedBeforeNowIfAsked)
{
    world.addEvent("work", "over", during("20260307T080000Z", "20260307T105959Z"));
    world.addEvent("work", "ends-now", during("20260307T090000Z", "20260307T110000Z"));
    EXPECT_THAT(days(), ElementsAre(QStringLiteral("2026-3-7: over ends-now")));
    EXPECT_THAT(days({}, HidePastEvents::Yes), ElementsAre(QStringLiteral("2026-3-7: ends-now")));
}

struct AttendeeCase
{
    const char *name;
    QByteArray attendees;
    bool isKept;
};

class DeclinedTest : public EventsViewModelTest, public testing::WithParamInterface<AttendeeCase>
{
};

TEST_P(DeclinedTest, IsLeftOut)
{
    world.backend->held.front().userAddresses = { QStringLiteral("me@example.org") };
    world.addEvent("work", "e", during("20260310T100000Z", "20260310T110000Z") + GetParam().attendees);
    EXPECT_EQ(days().size(), GetParam().isKept ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, DeclinedTest,
    testing::Values(AttendeeCase { "NobodyInvited", "", true },
        AttendeeCase { "OthersDeclined", "\nATTENDEE;PARTSTAT=DECLINED:mailto:you@example.org", true },
        AttendeeCase { "UserDeclined",
            "\nATTENDEE;PARTSTAT=ACCEPTED:mailto:you@example.org\nATTENDEE;PARTSTAT=DECLINED:mailto:ME@example.org",
            false },
        AttendeeCase { "UserTentative", "\nATTENDEE;PARTSTAT=TENTATIVE:mailto:me@example.org", true },
        AttendeeCase { "FirstOfTheUsersEntriesDecides",
            "\nATTENDEE;PARTSTAT=ACCEPTED:mailto:me@example.org\nATTENDEE;PARTSTAT=DECLINED:mailto:me@example.org",
            true }),
    kRowName);

TEST_F(EventsViewModelTest, DeclinedConcernsTheOccurrenceAlone)
{
    world.backend->held.front().userAddresses = { QStringLiteral("me@example.org") };
    world.addEvent("work", "e",
        during("20260310T100000Z", "20260310T110000Z")
            + "\nSUMMARY:e\nRRULE:FREQ=DAILY;COUNT=3\nATTENDEE;PARTSTAT=ACCEPTED:mailto:me@example.org\nEND:"
              "VEVENT\nBEGIN:VEVENT\n"
              "UID:e\nSUMMARY:e\nRECURRENCE-ID:20260311T100000Z\nATTENDEE;PARTSTAT=DECLINED:mailto:me@example.org\n"
            + during("20260311T100000Z", "20260311T110000Z"));
    EXPECT_THAT(days(), ElementsAre(QStringLiteral("2026-3-10: e"), QStringLiteral("2026-3-12: e")));
}

struct ColorCase
{
    const char *name;
    std::vector<const char *> calendars;
    std::size_t colors;
};

class DayColorTest : public EventsViewModelTest, public testing::WithParamInterface<ColorCase>
{
};

TEST_P(DayColorTest, AreDifferentAndThreeAtMost)
{
    int hour = 10;
    for (const char *calendar : GetParam().calendars) {
        const QByteArray start = "20260310T" + QByteArray::number(hour++) + "0000Z";
        world.addEvent(calendar, ("e" + QByteArray::number(hour)).constData(), during(start, start));
    }
    const auto colors = fetched().eventColorsByDay();
    EXPECT_EQ(colors.keys(), QStringList { QStringLiteral("2026-3-10") });
    const auto &ofDay = colors.value(QStringLiteral("2026-3-10"));
    EXPECT_EQ(ofDay.size(), GetParam().colors);
    EXPECT_EQ(std::set<Color>(ofDay.begin(), ofDay.end()).size(), ofDay.size());
}

INSTANTIATE_TEST_SUITE_P(Rows, DayColorTest,
    testing::Values(ColorCase { "OneCalendarTwice", { "work", "work" }, 1 },
        ColorCase { "Three", { "work", "home", "work", "club" }, 3 },
        ColorCase { "Four", { "work", "home", "club", "team" }, 3 }),
    kRowName);

TEST_F(EventsViewModelTest, IsLoadingFromCallToResult)
{
    EXPECT_TRUE(world.database->requestAccess());
    EventsViewModel &model = world.state().eventsVM();
    const QSignalSpy loading(&model, &EventsViewModel::isLoadingChanged);
    const auto task = model.fetchEvents(at("2026-03-01"), at("2026-04-01"), {}, HidePastEvents::No);
    EXPECT_TRUE(model.isLoading());
    QCoro::waitFor(task);
    EXPECT_FALSE(model.isLoading());
    EXPECT_EQ(loading.size(), 2);
}

} // namespace
} // namespace mintaro
