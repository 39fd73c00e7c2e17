#include "Platform/Foundation/TimeZone.h"

#include "Platform/Foundation/Environment.h"
#include "support/Printers.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace mintaro {

TEST(TimeZone, ReadingsBecomeMomentsAsRfc5545Asks)
{
    const struct
    {
        const char *rule;
        const char *zoneName;
        const char *reading;
        const char *expected;
    } rows[] = {
        { "an ordinary reading", "Europe/Rome", "2026-07-01 12:00", "2026-07-01T10:00:00Z" },
        { "in a gap: the offset before it", "Europe/Rome", "2026-03-29 02:30", "2026-03-29T01:30:00Z" },
        { "in an overlap: the earlier moment", "Europe/Rome", "2026-10-25 02:30", "2026-10-25T00:30:00Z" },
        { "half an hour of change", "Australia/Lord_Howe", "2026-04-05 01:45", "2026-04-04T14:45:00Z" },
        { "rules newer than the formatter's", "Africa/Cairo", "2026-07-01 12:00", "2026-07-01T09:00:00Z" },
        { "after the list in the zone's file", "Europe/Rome", "2050-07-01 12:00", "2050-07-01T10:00:00Z" },
        { "beyond the table", "Europe/Rome", "2150-07-01 12:00", "2150-07-01T10:00:00Z" },
        { "before the table", "Europe/Rome", "1850-07-01 12:00", "1850-07-01T11:10:04Z" },
        { "a link to another name", "US/Eastern", "2026-07-01 12:00", "2026-07-01T16:00:00Z" },
    };
    for (const auto &row : rows)
        EXPECT_EQ(text(at(row.reading, zone(row.zoneName))), QLatin1String(row.expected)) << row.rule;
}

TEST(TimeZone, OnlyNamesOfTheDatabaseAreZones)
{
    for (const char *name : { "", "Mars/Olympus", "UTC+3", "W. Europe Standard Time", "../../etc/passwd" })
        EXPECT_FALSE(TimeZone::named(QLatin1String(name))) << name;
}

TEST(Environment, FollowsAChangeOfZoneAndTellsOnce)
{
    const FixedClock clock(at("2026-11-22 23:30"));
    Environment environment(clock, Locale(), TimeZone());
    QSignalSpy told(&environment, &Environment::significantTimeChange);

    environment.setTimeZone(zone("Europe/Rome"));
    environment.setTimeZone(zone("Europe/Rome"));

    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(environment.calendar().components(environment.now()).day, 23);
}

} // namespace mintaro
