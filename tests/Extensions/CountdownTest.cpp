#include "Extensions/Countdown.h"

#include "Platform/Foundation/Translations.h"
#include "support/Printers.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

using namespace std::chrono_literals;

struct CountdownCase
{
    const char *name;
    std::chrono::seconds left;
    const char *english;
    const char *italian;
    const char *compact;
};

class CountdownTest : public testing::TestWithParam<CountdownCase>
{
protected:
    const Date now = at("2026-03-07 09:00");
    const Date moment = now + GetParam().left;
};

TEST_P(CountdownTest, IsInWholeMinutes)
{
    EXPECT_EQ(relativeCountdown(moment, now), QString::fromUtf8(GetParam().english));
    EXPECT_EQ(compactCountdown(moment, now), QString::fromUtf8(GetParam().compact));
}

TEST_P(CountdownTest, SpeaksTheLanguageOfTheTexts)
{
    const auto texts = installTranslations(Locale::fromIdentifier(QStringLiteral("it_IT")));
    EXPECT_EQ(relativeCountdown(moment, now), QString::fromUtf8(GetParam().italian));
}

INSTANTIATE_TEST_SUITE_P(Rows, CountdownTest,
    testing::Values(CountdownCase { "LongBegun", -90min, "now", "adesso", "now" },
        CountdownCase { "BeginsThisSecond", 0s, "now", "adesso", "now" },
        CountdownCase { "OneSecondIsNoMinute", 1s, "in 0 min", "tra 0 min", "0m" },
        CountdownCase { "HalfAMinute", 30s, "in 0 min", "tra 0 min", "0m" },
        CountdownCase { "MinutesAreCut", 119s, "in 1 min", "tra 1 min", "1m" },
        CountdownCase { "LastSecondBelowTheHour", 3599s, "in 59 min", "tra 59 min", "59m" },
        CountdownCase { "FullHour", 60min, "in 1 h", "tra 1 h", "1h" },
        CountdownCase { "RestWithoutZeroFill", 61min, "in 1 h 1 min", "tra 1 h 1 min", "1h1" },
        CountdownCase { "HourAndAHalf", 90min, "in 1 h 30 min", "tra 1 h 30 min", "1h30" },
        CountdownCase { "HoursGoOnWithoutDays", 3000min, "in 50 h", "tra 50 h", "50h" }),
    kRowName);

TEST(CountdownEdgeTest, LessThanASecondLeftIsNotNowYet)
{
    EXPECT_EQ(compactCountdown(at("2026-03-07") + 1ms, at("2026-03-07")), QStringLiteral("0m"));
}

} // namespace
} // namespace mintaro
