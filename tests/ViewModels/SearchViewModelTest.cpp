#include "ViewModels/SearchViewModel.h"

#include "support/World.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

namespace mintaro {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SearchViewModelTest : public testing::Test
{
protected:
    SearchViewModelTest()
    {
        world.addCalendar("work");
        world.addCalendar("home");
        EXPECT_TRUE(world.database->requestAccess());
    }

    [[nodiscard]] QStringList titles()
    {
        QStringList titles;
        for (const CalendarEvent &event : model.results())
            titles.append(event.title);
        return titles;
    }

    QStringList found(const QString &text)
    {
        model.setSearchText(text);
        QCoro::waitFor(model.search());
        return titles();
    }

    World world { "2026-03-07 12:00", "en_GB", "Europe/Rome" };
    SearchViewModel &model = *world.state().searchVM();
};

struct QueryCase
{
    const char *name;
    QString text;
    bool isFound;
};

class QueryTest : public SearchViewModelTest, public testing::WithParamInterface<QueryCase>
{
};

TEST_P(QueryTest, LooksAtTitleLocationAndNotes)
{
    world.addEvent("work", "uid",
        during("20260310T100000Z", "20260310T110000Z")
            + "\nSUMMARY:Board meeting\nLOCATION:Sala "
              "Vesuvio\nDESCRIPTION:bring\\nslides\nURL:https://example.org/agenda"
              "\nATTENDEE;CN=Priya:mailto:priya@example.org");
    EXPECT_EQ(!found(GetParam().text).isEmpty(), GetParam().isFound);
    EXPECT_FALSE(model.isSearching());
}

INSTANTIATE_TEST_SUITE_P(Rows, QueryTest,
    testing::Values(QueryCase { "Title", u"meet"_qs, true }, QueryCase { "Location", u"Vesuvio"_qs, true },
        QueryCase { "Notes", u"slides"_qs, true }, QueryCase { "OtherCase", u"bOARD"_qs, true },
        QueryCase { "SpaceAround", u" \t\u00a0board \u3000"_qs, true },
        QueryCase { "SpaceWithin", u"board  meeting"_qs, false },
        QueryCase { "LineBreakWithin", u"bring\nslides"_qs, true },
        QueryCase { "LineBreakBehind", u"board\n"_qs, false }, QueryCase { "SpacesOnly", u" \t "_qs, false },
        QueryCase { "Nothing", u""_qs, false }, QueryCase { "AcrossFields", u"meetingsala"_qs, false },
        QueryCase { "Address", u"agenda"_qs, false }, QueryCase { "Attendee", u"priya"_qs, false },
        QueryCase { "CalendarsName", u"work"_qs, false }),
    kRowName);

TEST_F(SearchViewModelTest, CoversAYearEachWayInEveryCalendar)
{
    world.defaults.setStringArray({ QStringLiteral("work") }, QStringLiteral("SelectedCalendars"));
    world.addEvent("work", "trip over", during("20250307T090000Z", "20250307T110000Z"));
    world.addEvent("work", "trip running", during("20250307T090000Z", "20250307T110001Z"));
    world.addEvent("home", "trip hidden", during("20260310T100000Z", "20260310T110000Z"));
    world.addEvent("work", "trip last", during("20270307T105959Z", "20270307T120000Z"));
    world.addEvent("work", "trip after", during("20270307T110000Z", "20270307T120000Z"));
    EXPECT_THAT(found(u"trip"_qs), ElementsAre(u"trip running"_qs, u"trip hidden"_qs, u"trip last"_qs));
}

TEST_F(SearchViewModelTest, AYearIsOneOfTheCalendar)
{
    const TimeZone rome = zone("Europe/Rome");
    const struct
    {
        const char *rule;
        const char *now;
        const char *start;
        const char *end;
    } rows[] = {
        { "the same clock", "2026-03-28 12:00", "2025-03-28 12:00", "2027-03-28 12:00" },
        { "a leap day is clamped", "2028-02-29 12:00", "2027-02-28 12:00", "2029-02-28 12:00" },
    };
    for (const auto &row : rows) {
        world.clock.moment = at(row.now, rome);
        EXPECT_EQ(SearchViewModel::range(world.environment).start, at(row.start, rome)) << row.rule;
        EXPECT_EQ(SearchViewModel::range(world.environment).end, at(row.end, rome)) << row.rule;
    }
}

TEST_F(SearchViewModelTest, ShowsEachOccurrenceThatMatchesInTheStoresOrder)
{
    world.addEvent("work", "course",
        during("20260310T100000Z", "20260310T110000Z")
            + "\nSUMMARY:Hebrew\nLOCATION:https://meet.google.com/stn-dupx-yes\nRRULE:FREQ=DAILY;COUNT=3"
              "\nEND:VEVENT\nBEGIN:VEVENT\nUID:course\nSUMMARY:Cancelled\nRECURRENCE-ID:20260311T100000Z\n"
            + during("20260311T100000Z", "20260311T110000Z"));
    world.addEvent("home", "homework", during("20260310T080000Z", "20260310T090000Z") + "\nSUMMARY:For Hebrew");
    ASSERT_THAT(found(u"hebrew"_qs), ElementsAre(u"For Hebrew"_qs, u"Hebrew"_qs, u"Hebrew"_qs));
    EXPECT_EQ(model.results()[1].id, model.results()[2].id);
    EXPECT_EQ(model.results()[2].startDate, at("2026-03-12 10:00"));
    ASSERT_TRUE(model.results()[1].meetingInfo);
    EXPECT_FALSE(model.results()[0].meetingInfo);
    EXPECT_THAT(found(u"cancelled"_qs), ElementsAre(u"Cancelled"_qs));
}

TEST_F(SearchViewModelTest, LeavesOutWhatTheUserDeclined)
{
    world.backend->held.front().userAddresses = { QStringLiteral("me@example.org") };
    world.addEvent("work", "demo one",
        during("20260310T100000Z", "20260310T110000Z") + "\nATTENDEE;PARTSTAT=DECLINED:mailto:me@example.org");
    world.addEvent("work", "demo two",
        during("20260311T100000Z", "20260311T110000Z") + "\nATTENDEE;PARTSTAT=ACCEPTED:mailto:me@example.org");
    EXPECT_THAT(found(u"demo"_qs), ElementsAre(u"demo two"_qs));
}

class OverlapTest : public SearchViewModelTest
{
protected:
    OverlapTest()
    {
        world.addEvent("work", "first", during("20260310T100000Z", "20260310T110000Z"));
        world.addEvent("work", "second", during("20260310T100000Z", "20260310T110000Z"));
        QObject::connect(&model, &SearchViewModel::resultsChanged, &model,
            [this] { shown.append(titles().join(u' ') + (model.isSearching() ? u"..."_qs : QString())); });
    }

    QCoro::Task<> searching(const QString &text)
    {
        model.setSearchText(text);
        return model.search();
    }

    /// What each change of the results showed, with dots where the search was not over.
    QStringList shown;
};

TEST_F(OverlapTest, LastToFinishDecides)
{
    const QSignalSpy searches(&model, &SearchViewModel::isSearchingChanged);
    const auto first = searching(u"first"_qs);
    EXPECT_TRUE(model.isSearching());
    const auto second = searching(u"second"_qs);
    QCoro::waitFor(first);
    QCoro::waitFor(second);
    EXPECT_THAT(shown, ElementsAre(u"first..."_qs, u"second"_qs));
    EXPECT_FALSE(model.isSearching());
    EXPECT_EQ(searches.size(), 2) << "once on, and off with the first to finish";
}

TEST_F(OverlapTest, EmptyQueryClearsAtOnceAndLeavesTheProgressAlone)
{
    EXPECT_THAT(found(u"first"_qs), ElementsAre(u"first"_qs));
    const auto search = searching(u"second"_qs);
    EXPECT_TRUE(searching(u"  "_qs).isReady());
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_TRUE(model.isSearching());
    QCoro::waitFor(search);
    EXPECT_THAT(shown, ElementsAre(u"first..."_qs, u"..."_qs, u"second..."_qs));
    EXPECT_FALSE(model.isSearching());
}

TEST_F(OverlapTest, TypingAndClearingSearchNothing)
{
    EXPECT_THAT(found(u"first"_qs), ElementsAre(u"first"_qs));
    const QSignalSpy searches(&model, &SearchViewModel::isSearchingChanged);
    model.setSearchText(u"second"_qs);
    EXPECT_THAT(titles(), ElementsAre(u"first"_qs));
    model.clear();
    EXPECT_EQ(model.searchText(), QString());
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_EQ(searches.size(), 0);
}

TEST_F(SearchViewModelTest, SearchEndsWithoutTheModelToo)
{
    EventStoreService service(EKEventStore(world.database), MeetingURLDetector(), world.notifications);
    auto mortal = std::make_unique<SearchViewModel>(service, world.environment);
    mortal->setSearchText(u"trip"_qs);
    const auto search = mortal->search();
    EXPECT_FALSE(search.isReady());
    mortal.reset();
    QCoro::waitFor(search);
    EXPECT_TRUE(search.isReady());
}

} // namespace
} // namespace mintaro
