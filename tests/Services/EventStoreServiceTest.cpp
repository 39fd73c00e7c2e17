#include "Services/EventStoreService.h"

#include "support/World.h"

#include <gmock/gmock.h>

namespace mintaro {
namespace {

using testing::ElementsAre;

/// Counts what the stream gives until it ends.
QCoro::Task<> count(AsyncStream<std::monostate> stream, int &elements, bool &hasEnded)
{
    while (const auto element = co_await stream.next())
        ++elements;
    hasEnded = true;
}

class EventStoreServiceTest : public testing::Test
{
protected:
    void post() { world.notifications.post(QLatin1String(kEKEventStoreChangedNotification)); }

    World world { "2026-03-07 12:00" };
    std::optional<EventStoreService> service { std::in_place, EKEventStore(world.database), MeetingURLDetector(),
        world.notifications, world.log };
    int elements = 0;
    bool hasEnded = false;
};

TEST_F(EventStoreServiceTest, StreamBuffersOneElementForEachChange)
{
    auto stream = service->storeChanges();
    post();
    post();
    QCoreApplication::processEvents();
    const auto task = count(std::move(stream), elements, hasEnded);
    EXPECT_EQ(elements, 2);
    EXPECT_FALSE(hasEnded);
    post();
    QCoreApplication::processEvents();
    EXPECT_EQ(elements, 3);
    service.reset();
}

TEST_F(EventStoreServiceTest, StreamEndsWithTheService)
{
    const auto task = count(service->storeChanges(), elements, hasEnded);
    service.reset();
    EXPECT_TRUE(hasEnded);
    post();
    QCoreApplication::processEvents();
    EXPECT_EQ(elements, 0);
}

TEST_F(EventStoreServiceTest, AbandonedStreamIsNoTrouble)
{
    {
        const auto stream = service->storeChanges();
    }
    post();
    QCoreApplication::processEvents();
    service.reset();
    EXPECT_EQ(elements, 0);
}

/// A store of two calendars that can be changed, one that cannot, and a list of reminders.
class EventChangesTest : public EventStoreServiceTest
{
protected:
    EventChangesTest()
    {
        for (const char *calendar : { "work", "shared", "home", "tasks" })
            world.addCalendar(calendar);
        world.backend->held[1].isWritable = false;
        world.backend->held[2].isDefault = true;
        world.backend->held[3].isReminderList = true;
        world.addEvent("work", "daily", during("20260307T140000Z", "20260307T150000Z") + "\nRRULE:FREQ=DAILY;COUNT=3");
        world.addEvent("shared", "fixed", during("20260307T140000Z", "20260307T150000Z"));
        EXPECT_TRUE(QCoro::waitFor(service->requestAccess()));
    }

    EKEvent event(const char *identifier, const char *start)
    {
        return QCoro::waitFor(service->eventWithIdentifier(QLatin1String(identifier), at(start))).value();
    }
};

TEST_F(EventChangesTest, FindsAnOccurrenceByItsStart)
{
    EXPECT_EQ(event("work/daily", "2026-03-08 14:00").endDate(), at("2026-03-08 15:00"));
    EXPECT_FALSE(QCoro::waitFor(service->eventWithIdentifier(u"work/daily"_qs, at("2026-03-08 14:30"))));
    EXPECT_FALSE(QCoro::waitFor(service->eventWithIdentifier(u"work/gone"_qs, at("2026-03-08 14:00"))));
}

TEST_F(EventChangesTest, KnowsWhereEventsCanBeWritten)
{
    QStringList titles;
    for (const EKCalendarRef &calendar : QCoro::waitFor(service->writableCalendars()))
        titles.append(calendar->title);
    EXPECT_THAT(titles, ElementsAre(u"work"_qs, u"home"_qs));
    EXPECT_EQ(QCoro::waitFor(service->defaultCalendarForNewEvents())->title, u"home"_qs);
}

TEST_F(EventChangesTest, SetsTheCalendarThatIsNamedOrTheDefaultOne)
{
    const struct
    {
        std::optional<QString> named;
        QString expected;
    } rows[] = { { u"work"_qs, u"work"_qs }, { u"shared"_qs, u"shared"_qs }, { u"gone"_qs, u"home"_qs },
        { std::nullopt, u"home"_qs } };
    for (const auto &row : rows)
        EXPECT_EQ(QCoro::waitFor(service->setCalendar(EKEvent(), row.named)).calendar()->title, row.expected);

    for (StoreCollection &collection : world.backend->held)
        collection.isWritable = false;
    world.tellOfChange();
    EXPECT_FALSE(QCoro::waitFor(service->setCalendar(EKEvent(), u"gone"_qs)).calendar());
    const EKEvent held = event("work/daily", "2026-03-08 14:00");
    EXPECT_EQ(QCoro::waitFor(service->setCalendar(held, std::nullopt)).calendar()->title, u"work"_qs);
}

TEST_F(EventChangesTest, LogsWhatWasDoneAndNothingOfWhatWasRefused)
{
    EKEvent daily = event("work/daily", "2026-03-08 14:00");
    daily.setLocation(u"Room 4"_qs);
    EXPECT_EQ(QCoro::waitFor(refusal(service->save(daily, EKSpan::ThisEvent))), QString());
    EXPECT_EQ(event("work/daily", "2026-03-08 14:00").location(), u"Room 4"_qs);
    EXPECT_EQ(event("work/daily", "2026-03-09 14:00").location(), std::nullopt);
    EKEvent nameless = QCoro::waitFor(service->setCalendar(EKEvent(), std::nullopt));
    nameless.setStartDate(at("2026-03-10 10:00"));
    nameless.setEndDate(at("2026-03-10 11:00"));
    EXPECT_EQ(QCoro::waitFor(refusal(service->save(nameless, EKSpan::ThisEvent))), QString());
    const EKEvent second = event("work/daily", "2026-03-08 14:00");
    EXPECT_EQ(QCoro::waitFor(refusal(service->deleteEvent(second, EKSpan::FutureEvents))), QString());
    EXPECT_FALSE(QCoro::waitFor(service->eventWithIdentifier(u"work/daily"_qs, at("2026-03-09 14:00"))));
    EXPECT_THAT(world.takeLog(),
        ElementsAre(u"info EventStore: Event saved: daily"_qs, u"info EventStore: Event saved: untitled"_qs,
            u"info EventStore: Event deleted: daily"_qs));

    EKEvent fixed = event("shared/fixed", "2026-03-07 14:00");
    const QString refused = u"The calendar \"shared\" cannot be changed."_qs;
    EXPECT_EQ(QCoro::waitFor(refusal(service->deleteEvent(fixed, EKSpan::ThisEvent))), refused);
    fixed.setTitle(u"moved"_qs);
    EXPECT_EQ(QCoro::waitFor(refusal(service->save(fixed, EKSpan::ThisEvent))), refused);
    EXPECT_TRUE(world.takeLog().isEmpty());
}

} // namespace
} // namespace mintaro
