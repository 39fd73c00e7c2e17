#include "Platform/Foundation/ISO8601.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

struct MomentCase
{
    const char *name;
    const char *text;
    const char *moment; ///< a reading in UTC; null: makes no sense
};

class MomentTest : public testing::TestWithParam<MomentCase>
{
protected:
    // A system zone in which clock readings of 29 March, 02:00 to 03:00, do not exist.
    MomentTest() { useSystemZone("Europe/Rome"); }
    ~MomentTest() override { useSystemZone("UTC"); }

    static void useSystemZone(const char *name)
    {
        qputenv("TZ", name);
        tzset();
    }
};

TEST_P(MomentTest, IsReadInTheZoneGiven)
{
    const auto moment = dateFromIso8601(QLatin1String(GetParam().text), zone("Asia/Kolkata"));
    EXPECT_EQ(moment, GetParam().moment ? std::optional(at(GetParam().moment)) : std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Rows, MomentTest,
    testing::Values(MomentCase { "WithoutOffset", "2026-03-07T09:00", "2026-03-07 03:30" },
        MomentCase { "WithSeconds", "2026-03-07T09:00:00", "2026-03-07 03:30" },
        MomentCase { "Utc", "2026-03-07T09:00:00Z", "2026-03-07 09:00" },
        MomentCase { "Offset", "2026-03-07T09:00:00+02:00", "2026-03-07 07:00" },
        MomentCase { "Day", "2026-03-07", "2026-03-06 18:30" },
        MomentCase { "BasicUtc", "20260307T090000Z", "2026-03-07 09:00" },
        MomentCase { "BasicWithoutOffset", "20260307T090000", "2026-03-07 03:30" },
        MomentCase { "BasicDay", "20260307", "2026-03-06 18:30" },
        MomentCase { "ReadingThatTheSystemsZoneLacks", "2026-03-29T02:30:00", "2026-03-28 21:00" },
        MomentCase { "BasicReadingThatTheSystemsZoneLacks", "20260329T023000", "2026-03-28 21:00" },
        MomentCase { "BasicUtcReadingThatTheSystemsZoneLacks", "20260329T023000Z", "2026-03-29 02:30" },
        MomentCase { "NoSuchDay", "2026-02-30T09:00", nullptr },
        MomentCase { "NoSuchHour", "20260307T250000", nullptr }, MomentCase { "Word", "tomorrow", nullptr },
        MomentCase { "Empty", "", nullptr }),
    kRowName);

} // namespace
} // namespace mintaro
