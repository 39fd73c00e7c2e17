#include "Platform/Foundation/Calendar.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

namespace mintaro {

namespace {

Calendar calendar(const char *locale = "en_US", const char *zoneName = "UTC")
{
    return Calendar(Locale::fromIdentifier(QLatin1String(locale)), zone(zoneName));
}

} // namespace

TEST(Calendar, AddsDaysAndMonthsByTheCalendar)
{
    const struct
    {
        const char *rule;
        Calendar::Component component;
        int value;
        const char *from;
        const char *expected;
        const char *zoneName;
    } rows[] = {
        { "a short month clamps", Calendar::Component::Month, 1, "2026-01-31 08:00", "2026-02-28 08:00", "UTC" },
        { "a leap day is kept where there is one", Calendar::Component::Month, -12, "2028-02-29", "2027-02-28", "UTC" },
        { "over the year's end", Calendar::Component::Month, 2, "2026-11-30", "2027-01-30", "UTC" },
        { "the clock reading stays over a clock change", Calendar::Component::Day, 1, "2026-03-28 12:00",
            "2026-03-29 12:00", "Europe/Rome" },
        { "a reading inside the gap moves on by the gap", Calendar::Component::Day, 1, "2026-03-28 02:30",
            "2026-03-29 03:30", "Europe/Rome" },
    };
    for (const auto &row : rows) {
        const TimeZone rowZone = zone(row.zoneName);
        const auto result
            = calendar("en_US", row.zoneName).dateByAdding(row.component, row.value, at(row.from, rowZone));
        ASSERT_TRUE(result) << row.rule;
        EXPECT_EQ(text(*result), text(at(row.expected, rowZone))) << row.rule;
    }
}

TEST(Calendar, NothingIsAddedBeyondTheYearsItKnows)
{
    EXPECT_FALSE(calendar().dateByAdding(Calendar::Component::Day, 1, at("9999-12-31")));
}

TEST(Calendar, AddingNothingKeepsTheSecondOfTwoEqualReadings)
{
    const Date second = at("2026-10-25 01:30"); // 02:30 in Rome for the second time
    EXPECT_EQ(calendar("it_IT", "Europe/Rome").dateByAdding(Calendar::Component::Month, 0, second), second);
}

TEST(Calendar, TheDayBeginsWhenItsFirstMomentComes)
{
    // Midnight does not exist on this day: the clocks go from 23:59:59 to 01:00.
    const Calendar cairo = calendar("ar_EG", "Africa/Cairo");
    EXPECT_EQ(text(cairo.startOfDay(at("2026-04-24 12:00", cairo.timeZone()))), QStringLiteral("2026-04-23T22:00:00Z"));
}

TEST(Calendar, WeekRulesAreTheLocales)
{
    const struct
    {
        const char *locale;
        const char *day;
        int firstWeekday;
        int week;
    } rows[] = {
        { "it_IT", "2027-01-01", 2, 53 },
        { "it_IT", "2026-12-28", 2, 53 },
        { "en_US", "2026-12-28", 1, 1 },
        { "en_US", "2027-01-01", 1, 1 },
        { "en_GB", "2026-01-01", 2, 1 },
        { "ar_EG", "2026-01-03", 7, 2 },
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.locale);
        EXPECT_EQ(calendar(row.locale).firstWeekday(), row.firstWeekday);
        EXPECT_EQ(calendar(row.locale).weekOfYear(at(row.day)), row.week) << row.day;
    }
}

} // namespace mintaro
