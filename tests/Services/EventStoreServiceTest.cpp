#include "Services/EventStoreService.h"

#include "support/World.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

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
        world.notifications };
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

} // namespace
} // namespace mintaro
