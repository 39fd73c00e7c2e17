#include "EngineFixture.h"
#include "Platform/EventKit/CalendarPalette.h"
#include "Platform/EventKit/IntervalIndex.h"

#include <random>

namespace mintaro {

class Database : public EngineFixture
{
protected:
    void tell(const QString &name)
    {
        StoreChanges changes;
        changes.objects[u"work"_qs] = { name };
        backend->tell(changes);
    }

    int posted = 0;
    std::unique_ptr<NotificationCenter::Observation> observation
        = notifications.addObserver(QLatin1String(kEKEventStoreChangedNotification), [this] { ++posted; });
};

struct OverlapRow
{
    const char *rule;
    const char *lines;
    const char *from;
    const char *to;
    bool overlaps;
};

class Overlap : public EngineFixture, public ::testing::WithParamInterface<OverlapRow>
{
};

TEST_P(Overlap, IsThatOfCalDav)
{
    put(eventOf(GetParam().lines));
    EXPECT_EQ(!events(GetParam().from, GetParam().to).empty(), GetParam().overlaps);
}

constexpr char kHour[] = "DTSTART:20260301T090000Z\nDTEND:20260301T100000Z";
constexpr char kMoment[] = "DTSTART:20260301T090000Z";
constexpr char kBackwards[] = "DTSTART:20260301T090000Z\nDTEND:20260301T080000Z";
constexpr char kDay[] = "DTSTART;VALUE=DATE:20260301";
constexpr char kDays[] = "DTSTART;VALUE=DATE:20260301\nDTEND;VALUE=DATE:20260304";
constexpr char kFloating[] = "DTSTART:20260301T090000\nDURATION:PT1H";

INSTANTIATE_TEST_SUITE_P(Table, Overlap,
    ::testing::Values(OverlapRow { "Inside", kHour, "2026-03-01T09:15:00Z", "2026-03-01T09:30:00Z", true },
        OverlapRow { "EndsAtTheBegin", kHour, "2026-03-01T10:00:00Z", "2026-03-01T11:00:00Z", false },
        OverlapRow { "BeginsAtTheEnd", kHour, "2026-03-01T08:00:00Z", "2026-03-01T09:00:00Z", false },
        OverlapRow { "MomentAtTheBegin", kMoment, "2026-03-01T09:00:00Z", "2026-03-01T10:00:00Z", true },
        OverlapRow { "MomentAtTheEnd", kMoment, "2026-03-01T08:00:00Z", "2026-03-01T09:00:00Z", false },
        OverlapRow { "EndBeforeStartIsAMoment", kBackwards, "2026-03-01T08:00:00Z", "2026-03-01T09:00:00Z", false },
        OverlapRow { "EndBeforeStartIsFound", kBackwards, "2026-03-01T09:00:00Z", "2026-03-01T09:01:00Z", true },
        OverlapRow { "DayBeginsAtLocalMidnight", kDay, "2026-02-28T22:00:00Z", "2026-02-28T23:00:01Z", true },
        OverlapRow { "NotBeforeLocalMidnight", kDay, "2026-02-28T22:00:00Z", "2026-02-28T23:00:00Z", false },
        OverlapRow { "DayEndsAtLocalMidnight", kDay, "2026-03-01T23:00:00Z", "2026-03-02T10:00:00Z", false },
        OverlapRow { "LastOfSeveralDays", kDays, "2026-03-03T22:00:00Z", "2026-03-04T10:00:00Z", true },
        OverlapRow { "FloatingIsLocal", kFloating, "2026-03-01T08:00:00Z", "2026-03-01T08:01:00Z", true },
        OverlapRow { "FloatingIsNotUtc", kFloating, "2026-03-01T09:00:00Z", "2026-03-01T09:30:00Z", false }),
    [](const auto &row) { return std::string(row.param.rule); });

TEST_F(Database, HoldsNothingBeforeAccess)
{
    put(eventOf(kHour));
    EXPECT_TRUE(database->calendars().empty());
    EXPECT_TRUE(database->events({ utc("2026-01-01T00:00:00Z"), utc("2027-01-01T00:00:00Z"), std::nullopt }).empty());
    backend->isAccessible = false;
    EXPECT_FALSE(database->requestAccess());
    EXPECT_EQ(backend->reads, 0);
}

TEST_F(Database, AWholeDayEndsInItsLastSecond)
{
    put(eventOf(kDays));
    const auto list = events();
    ASSERT_EQ(list.size(), 1u);
    EXPECT_TRUE(list[0].isAllDay());
    EXPECT_EQ(text(list[0].startDate()), u"20260228T230000Z"_qs);
    EXPECT_EQ(text(list[0].endDate()), u"20260303T225959Z"_qs);
}

TEST_F(Database, DaysFollowTheZoneOfTheQuery)
{
    put(eventOf(kDay));
    EXPECT_EQ(text(events()[0].startDate()), u"20260228T230000Z"_qs);
    environment.setTimeZone(*TimeZone::named(u"America/New_York"_qs));
    EXPECT_EQ(text(events()[0].startDate()), u"20260301T050000Z"_qs);
    EXPECT_EQ(posted, 1);
}

TEST_F(Database, AnswersInOrderOfStartsThenCalendarsThenObjects)
{
    backend->addCollection(u"home"_qs);
    const auto at = [](const QByteArray &hour, const QByteArray &title) {
        return calendarOf(
            "BEGIN:VEVENT\nUID:" + title + "\nDTSTART:20260301T" + hour + "0000Z\nSUMMARY:" + title + "\nEND:VEVENT");
    };
    backend->put(u"home"_qs, u"a.ics"_qs, at("09", "home"));
    put(at("09", "second"), u"b.ics"_qs);
    put(at("09", "first"), u"a.ics"_qs);
    put(at("08", "early"), u"z.ics"_qs);
    EXPECT_EQ(titles(events()), QStringList({ u"early"_qs, u"first"_qs, u"second"_qs, u"home"_qs }));
}

TEST_F(Database, RestrictsToTheGivenCalendars)
{
    put(eventOf(kHour));
    ASSERT_TRUE(database->requestAccess());
    const auto count = [this](std::vector<QString> identifiers) {
        return database->events({ utc("2026-01-01T00:00:00Z"), utc("2027-01-01T00:00:00Z"), identifiers }).size();
    };
    EXPECT_EQ(count({ u"work"_qs }), 1u);
    EXPECT_EQ(count({}), 0u);
    EXPECT_EQ(count({ u"other"_qs }), 0u);
}

TEST_F(Database, ReadsAgainOnlyWhatChanged)
{
    put(eventOf(kHour), u"a.ics"_qs);
    put(calendarOf("BEGIN:VEVENT\nUID:two\nDTSTART:20260301T090000Z\nSUMMARY:old\nEND:VEVENT"), u"b.ics"_qs);
    EXPECT_EQ(events().size(), 2u);
    EXPECT_EQ(backend->reads, 2);
    put(calendarOf("BEGIN:VEVENT\nUID:two\nDTSTART:20260301T090000Z\nSUMMARY:new\nEND:VEVENT"), u"b.ics"_qs);
    tell(u"b.ics"_qs);
    EXPECT_EQ(titles(events()), QStringList({ u"-"_qs, u"new"_qs }));
    EXPECT_EQ(backend->reads, 3);
    EXPECT_EQ(posted, 1);
}

TEST_F(Database, AChangeThatIsNoneTellsNobody)
{
    put(eventOf(kHour));
    EXPECT_EQ(events().size(), 1u);
    tell(u"a.ics"_qs);
    tell(u"never-was.ics"_qs);
    backend->tell({ true, {} });
    EXPECT_EQ(posted, 0);
    backend->contents[u"work"_qs].clear();
    backend->tell({ true, {} });
    EXPECT_EQ(posted, 1);
    EXPECT_TRUE(events().empty());
}

TEST_F(Database, SeriesFollowAChangeOfTheirObject)
{
    put(eventOf("DTSTART:20260301T090000Z\nRRULE:FREQ=DAILY;COUNT=5"));
    EXPECT_EQ(events().size(), 5u);
    put(eventOf("DTSTART:20260301T090000Z\nRRULE:FREQ=DAILY;COUNT=3"));
    tell(u"a.ics"_qs);
    EXPECT_EQ(events().size(), 3u);
}

struct UnreadableRow
{
    const char *rule;
    const char *text;
    QStringList titles;
};

class UnreadableObject : public Database, public ::testing::WithParamInterface<UnreadableRow>
{
};

TEST_P(UnreadableObject, KeepsItsContentUntilItCanBeRead)
{
    put(eventOf("SUMMARY:old\nDTSTART:20260301T090000Z"));
    EXPECT_EQ(titles(events()), QStringList { QStringLiteral("old") });
    put(GetParam().text);
    backend->tell({ false, { { QStringLiteral("work"), { QStringLiteral("a.ics") } } } });
    EXPECT_EQ(titles(events()), GetParam().titles);
    put(eventOf("SUMMARY:new\nDTSTART:20260301T090000Z"));
    backend->tell({ false, { { QStringLiteral("work"), { QStringLiteral("a.ics") } } } });
    EXPECT_EQ(titles(events()), QStringList { QStringLiteral("new") });
}

INSTANTIATE_TEST_SUITE_P(Table, UnreadableObject,
    ::testing::Values(UnreadableRow { "Empty", "", { QStringLiteral("old") } },
        UnreadableRow { "NoCalendar", "half of a fi", { QStringLiteral("old") } },
        UnreadableRow {
            "CutBeforeItsStart", "BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:one\nSUMM", { QStringLiteral("old") } },
        UnreadableRow { "WellFormedAndBare", "BEGIN:VCALENDAR\nVERSION:2.0\nEND:VCALENDAR\n", {} }),
    [](const auto &row) { return std::string(row.param.rule); });

TEST_F(Database, CollectionsComeAndGo)
{
    put(eventOf(kHour));
    EXPECT_EQ(events().size(), 1u);
    backend->addCollection(u"home"_qs);
    backend->put(u"home"_qs, u"h.ics"_qs, eventOf(kHour));
    backend->tell({ true, {} });
    EXPECT_EQ(events().size(), 2u);
    backend->held.erase(backend->held.begin());
    backend->tell({ true, {} });
    EXPECT_EQ(events().size(), 1u);
    EXPECT_EQ(posted, 2);
}

TEST_F(Database, ALaterDuplicateUidIsShownNamedAndDistinct)
{
    put(eventOf(kHour), u"a.ics"_qs);
    put(eventOf(kHour), u"b.ics"_qs);
    const auto list = events();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].eventIdentifier(), u"work/one"_qs);
    EXPECT_EQ(list[1].eventIdentifier(), u"work/one/b.ics"_qs);
    ASSERT_EQ(log.size(), 1);
    EXPECT_TRUE(log[0].contains(u"work/b.ics"));
    backend->contents[u"work"_qs].erase(u"a.ics"_qs);
    tell(u"a.ics"_qs);
    EXPECT_EQ(events()[0].eventIdentifier(), u"work/one"_qs);
}

TEST_F(Database, CalendarsTellWhatTheyHold)
{
    const QByteArray todo = calendarOf("BEGIN:VTODO\nUID:t\nEND:VTODO");
    backend->addCollection(u"tasks"_qs);
    backend->put(u"tasks"_qs, u"t.ics"_qs, todo);
    backend->addCollection(u"mixed"_qs);
    backend->put(u"mixed"_qs, u"t.ics"_qs, todo);
    backend->put(u"mixed"_qs, u"e.ics"_qs, eventOf(kHour));
    backend->addCollection(u"list"_qs).isReminderList = true;
    ASSERT_TRUE(database->requestAccess());
    EKEventStore store(database);
    const auto identifiers = [&store](EKEntityType type) {
        QStringList result;
        for (const auto &calendar : store.calendarsForEntityType(type))
            result.append(calendar->calendarIdentifier);
        return result;
    };
    EXPECT_EQ(identifiers(EKEntityType::Event), QStringList({ u"work"_qs, u"mixed"_qs }));
    EXPECT_EQ(identifiers(EKEntityType::Reminder), QStringList({ u"tasks"_qs, u"mixed"_qs, u"list"_qs }));
    EXPECT_EQ(store.calendarWithIdentifier(u"none"_qs), nullptr);
    EXPECT_EQ(store.calendarWithIdentifier(u"work"_qs)->cgColor, paletteColor(u"work"_qs));
}

TEST(IntervalIndex, FindsWhatALinearSearchFinds)
{
    struct Interval
    {
        std::int64_t start;
        std::int64_t end;
    };
    std::mt19937 random(7);
    const auto number
        = [&random](int below) { return static_cast<std::int64_t>(random() % static_cast<unsigned>(below)); };
    std::vector<Interval> all;
    for (int i = 0; i < 500; ++i) {
        const std::int64_t start = number(1'000);
        all.push_back({ start, start + (i % 50 == 0 ? number(1'000) : number(5)) });
    }
    const IntervalIndex<Interval> index(all);
    for (int i = 0; i < 200; ++i) {
        const std::int64_t begin = number(1'000);
        const std::int64_t end = begin + 1 + number(30);
        const auto expected = std::count_if(all.begin(), all.end(),
            [&](const Interval &each) { return each.start < end && (each.end > begin || each.start >= begin); });
        std::ptrdiff_t found = 0;
        index.overlapping(begin, end, [&found](const Interval &) { ++found; });
        ASSERT_EQ(found, expected) << begin << ' ' << end;
    }
}

} // namespace mintaro
