#include "Platform/EventKit/Folders/ChangeBurst.h"

#include <gtest/gtest.h>

namespace mintaro {

namespace {

using namespace std::chrono_literals;
using Writing = ChangeBurst::Writing;

class ChangeBurstTest : public testing::Test
{
protected:
    [[nodiscard]] static ChangeBurst::TimePoint at(std::chrono::milliseconds time)
    {
        return ChangeBurst::TimePoint {} + 1h + time;
    }
    void add(const char *name, Writing writing, std::chrono::milliseconds time)
    {
        m_burst.addObject(u"c"_qs, QString::fromLatin1(name), writing, at(time));
    }
    [[nodiscard]] QStringList told(std::chrono::milliseconds time) { return m_burst.take(at(time)).objects[u"c"_qs]; }

    ChangeBurst m_burst;
};

TEST_F(ChangeBurstTest, NothingToTellIsNeverDue)
{
    EXPECT_EQ(m_burst.due(), std::nullopt);
    EXPECT_TRUE(m_burst.take(at(1h)).isEmpty());
}

TEST_F(ChangeBurstTest, TellsOnce100MillisecondsAfterTheLastChange)
{
    add("a", Writing::Done, 0ms);
    add("b", Writing::Done, 60ms);
    EXPECT_EQ(m_burst.due(), at(160ms));
    EXPECT_TRUE(m_burst.take(at(159ms)).isEmpty());
    EXPECT_EQ(told(160ms), QStringList({ u"a"_qs, u"b"_qs }));
    EXPECT_EQ(m_burst.due(), std::nullopt);
}

TEST_F(ChangeBurstTest, TellsAtTheLatest500MillisecondsAfterTheFirstChange)
{
    for (auto time = 0ms; time <= 480ms; time += 40ms)
        add("a", Writing::Done, time);
    EXPECT_EQ(m_burst.due(), at(500ms));
}

TEST_F(ChangeBurstTest, HoldsAnObjectBackWhileItIsWritten)
{
    add("new", Writing::Begun, 0ms);
    add("other", Writing::Done, 10ms);
    EXPECT_EQ(told(110ms), QStringList({ u"other"_qs }));
    add("new", Writing::Untouched, 120ms);
    EXPECT_TRUE(told(250ms).isEmpty());
    add("new", Writing::Done, 300ms);
    EXPECT_EQ(told(400ms), QStringList({ u"new"_qs }));
}

TEST_F(ChangeBurstTest, TellsOfAnObjectThatIsNeverCompleted)
{
    add("new", Writing::Begun, 0ms);
    EXPECT_EQ(m_burst.due(), at(500ms));
    EXPECT_EQ(told(500ms), QStringList({ u"new"_qs }));
}

TEST_F(ChangeBurstTest, AnyObjectOfACollectionIsAnEmptyList)
{
    add("a", Writing::Done, 0ms);
    m_burst.addObjectsOf(u"c"_qs, at(0ms));
    m_burst.addCollections(at(0ms));
    StoreChanges changes = m_burst.take(at(100ms));
    EXPECT_TRUE(changes.collections);
    ASSERT_TRUE(changes.objects.contains(u"c"_qs));
    EXPECT_TRUE(changes.objects[u"c"_qs].isEmpty());
}

} // namespace

} // namespace mintaro
