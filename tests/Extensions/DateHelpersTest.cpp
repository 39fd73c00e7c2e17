#include "Extensions/DateHelpers.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

Calendar calendarIn(const char *zoneName)
{
    return Calendar(Locale {}, zone(zoneName));
}

struct MonthCase
{
    const char *name;
    const char *zoneName;
    const char *moment; ///< a reading in the zone, as are the others
    const char *start;
    const char *lastMinute; ///< that endOfMonth ends
};

class MonthBoundsTest : public testing::TestWithParam<MonthCase>
{
};

TEST_P(MonthBoundsTest, AreReadingsInTheZone)
{
    const MonthCase &row = GetParam();
    const TimeZone timeZone = zone(row.zoneName);
    const Calendar calendar = calendarIn(row.zoneName);
    const Date moment = at(row.moment, timeZone);
    EXPECT_EQ(text(startOfMonth(moment, calendar)), text(at(row.start, timeZone)));
    EXPECT_EQ(text(endOfMonth(moment, calendar)), text(at(row.lastMinute, timeZone) + std::chrono::seconds { 59 }));
}

INSTANTIATE_TEST_SUITE_P(Rows, MonthBoundsTest,
    testing::Values(MonthCase { "LeapFebruary", "UTC", "2028-02-10 12:00", "2028-02-01", "2028-02-29 23:59" },
        MonthCase { "FirstMoment", "UTC", "2026-02-01", "2026-02-01", "2026-02-28 23:59" },
        MonthCase { "LastMinute", "UTC", "2026-12-31 23:59", "2026-12-01", "2026-12-31 23:59" },
        MonthCase { "ClocksGoForward", "Europe/Rome", "2026-03-29 04:00", "2026-03-01", "2026-03-31 23:59" },
        MonthCase { "ClocksGoBack", "Europe/Rome", "2026-10-02 04:00", "2026-10-01", "2026-10-31 23:59" },
        MonthCase { "EastOfTheDateLine", "Pacific/Kiritimati", "2026-03-01 01:00", "2026-03-01", "2026-03-31 23:59" }),
    kRowName);

TEST(DateKeyTest, HasNoLeadingZeros)
{
    const Calendar utc = calendarIn("UTC");
    EXPECT_EQ(dateKey(at("2026-03-07"), utc), QStringLiteral("2026-3-7"));
    EXPECT_EQ(dateKey(at("2026-12-25"), utc), QStringLiteral("2026-12-25"));
    EXPECT_EQ(dateKey(at("2027-01-01"), utc), QStringLiteral("2027-1-1"));
}

TEST(DateKeyTest, IsTheDayOfTheZone)
{
    const Date moment = at("2026-03-07 23:30");
    EXPECT_EQ(dateKey(moment, calendarIn("Europe/Rome")), QStringLiteral("2026-3-8"));
    EXPECT_EQ(dateKey(moment, calendarIn("America/New_York")), QStringLiteral("2026-3-7"));
}

TEST(EndOfDayTest, IsOfTheSameDayWhenItHas23Hours)
{
    const TimeZone rome = zone("Europe/Rome");
    const Date end = endOfDay(at("2026-03-29 01:00", rome), calendarIn("Europe/Rome"));
    EXPECT_EQ(text(end), QStringLiteral("2026-03-29T21:59:59Z"));
}

TEST(ClockReadingTest, HasTwoDigitsAnd24Hours)
{
    EXPECT_EQ(clockReading(at("2026-03-07 09:05"), zone("UTC")), QStringLiteral("09:05"));
    EXPECT_EQ(clockReading(at("2026-03-07 23:30"), zone("Europe/Rome")), QStringLiteral("00:30"));
    EXPECT_EQ(clockReading(at("1969-12-31 23:59"), zone("UTC")), QStringLiteral("23:59"));
}

} // namespace
} // namespace mintaro
