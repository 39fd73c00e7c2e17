#include "Platform/Foundation/Actor.h"

#include <QCoroTask>

#include <gtest/gtest.h>

#include <stdexcept>

namespace mintaro {

TEST(Actor, RunsElsewhereAndComesBackOnEveryPath)
{
    Actor actor(QStringLiteral("test"));
    QThread *const here = QThread::currentThread();
    const auto visit = [&](bool fails) -> QCoro::Task<bool> {
        bool wasElsewhere = false;
        try {
            co_await actor.perform([&] {
                wasElsewhere = QThread::currentThread() != here;
                if (fails)
                    throw std::runtime_error("no");
            });
        } catch (const std::runtime_error &) {
            co_return wasElsewhere &&fails &&QThread::currentThread() == here;
        }
        co_return wasElsewhere && !fails && QThread::currentThread() == here;
    };
    EXPECT_TRUE(QCoro::waitFor(visit(false)));
    EXPECT_TRUE(QCoro::waitFor(visit(true)));
}

TEST(Actor, RunsOneThingAtATimeInTheOrderOfAsking)
{
    Actor actor(QStringLiteral("test"));
    std::vector<int> order;
    std::vector<QCoro::Task<int>> tasks;
    for (int i = 0; i < 20; ++i) {
        tasks.push_back(actor.perform([&order, i] {
            order.push_back(i);
            return i;
        }));
    }
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(QCoro::waitFor(tasks[static_cast<std::size_t>(i)]), i);
    EXPECT_TRUE(std::ranges::is_sorted(order));
}

} // namespace mintaro
