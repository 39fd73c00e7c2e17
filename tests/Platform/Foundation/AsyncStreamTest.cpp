#include "Platform/Foundation/AsyncStream.h"

#include <QCoroTask>

#include <gtest/gtest.h>

#include <vector>

namespace mintaro {

namespace {

QCoro::Task<> collect(AsyncStream<int> stream, std::vector<int> &into, bool &ended)
{
    while (const auto element = co_await stream.next())
        into.push_back(*element);
    ended = true;
}

} // namespace

TEST(AsyncStream, KeepsEveryElementAndEndsAfterTheLast)
{
    std::optional<AsyncStream<int>::Continuation> producer;
    bool terminated = false;
    std::vector<int> got;
    bool ended = false;
    {
        AsyncStream<int> stream([&](const auto &continuation) {
            producer = continuation;
            continuation.setOnTermination([&] { terminated = true; });
        });
        producer->yield(1);
        producer->yield(2);
        [[maybe_unused]] const auto task = collect(std::move(stream), got, ended);
        producer->yield(3);
    }
    EXPECT_EQ(got, (std::vector { 1, 2, 3 }));
    EXPECT_FALSE(ended);
    EXPECT_FALSE(terminated);

    producer->finish();
    EXPECT_TRUE(ended);
    EXPECT_TRUE(terminated);
    producer->yield(4);
    EXPECT_EQ(got.size(), 3U);
}

} // namespace mintaro
