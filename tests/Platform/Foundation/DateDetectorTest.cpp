#include "Platform/Foundation/DateDetector.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

struct DetectorCase
{
    const char *name;
    const char *now; ///< in Rome
    QString text;
    /// "matched text|start|hours" for each match, in Rome.
    QStringList matches;
    QString locale = QStringLiteral("en_US");
};

void PrintTo(const DetectorCase &row, std::ostream *out)
{
    *out << row.text.toStdString();
}

QStringList found(const DetectorCase &row)
{
    const TimeZone rome = zone("Europe/Rome");
    const Locale locale = Locale::fromIdentifier(row.locale);
    const Calendar calendar(locale, rome);
    QStringList found;
    for (const auto &match : DateDetector(locale).matches(row.text, at(row.now, rome), calendar)) {
        const auto offset = rome.secondsFromGMT(std::chrono::floor<std::chrono::seconds>(match.date));
        found.append(QStringLiteral("%1|%2|%3")
                         .arg(row.text.sliced(match.location, match.length), text(match.date + offset).chopped(4))
                         .arg(static_cast<double>(match.duration.count()) / 3600));
    }
    return found;
}

class DateDetectorTest : public testing::TestWithParam<DetectorCase>
{
};

TEST_P(DateDetectorTest, FindsAllInOrder)
{
    EXPECT_EQ(found(GetParam()), GetParam().matches);
}

QStringList list(std::initializer_list<const char *> texts)
{
    QStringList list;
    for (const char *text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}

// What whole sentences mean stands in tests/data/sentences; here is what they do not show.
INSTANTIATE_TEST_SUITE_P(Rows, DateDetectorTest,
    testing::Values(
        DetectorCase { "Several", "2026-11-24 09:30", QStringLiteral("out friday, back on monday at 5; call 15:00"),
            list({ "friday|2026-11-27T12:00|0", "on monday at 5|2026-11-30T17:00|0", "15:00|2026-11-24T15:00|0" }) },
        DetectorCase { "BothLanguages", "2026-11-24 09:30", QStringLiteral("cena domani alle 20, then friday 9am"),
            list({ "domani alle 20|2026-11-25T20:00|0", "friday 9am|2026-11-27T09:00|0" }) },
        DetectorCase { "OffsetsCountUtf16", "2026-11-24 09:30", QStringLiteral("\U0001F389 party tomorrow \U0001F389"),
            list({ "tomorrow|2026-11-25T12:00|0" }) },
        DetectorCase { "DecomposedAccent", "2026-11-24 09:30", QStringLiteral("gioved\u0069\u0300 15.30"),
            list({ "gioved\u0069\u0300 15.30|2026-11-26T15:30|0" }), QStringLiteral("it_IT") },
        DetectorCase {
            "MonthFirstInAmerica", "2026-11-24 09:30", QStringLiteral("12/3"), list({ "12/3|2026-12-03T12:00|0" }) },
        DetectorCase { "DayFirstElsewhere", "2026-11-24 09:30", QStringLiteral("12/3"),
            list({ "12/3|2027-03-12T12:00|0" }), QStringLiteral("en_GB") },
        DetectorCase { "InTheGapItMovesOn", "2026-03-28 20:00", QStringLiteral("tomorrow 02:30"),
            list({ "tomorrow 02:30|2026-03-29T03:30|0" }) },
        DetectorCase { "ElapsedTimeAcrossTheGap", "2026-03-28 20:00", QStringLiteral("in 10 hours"),
            list({ "in 10 hours|2026-03-29T07:00|0" }) },
        DetectorCase { "LengthAcrossTheGapIsElapsed", "2026-03-28 20:00", QStringLiteral("11pm for 8 hours"),
            list({ "11pm for 8 hours|2026-03-28T23:00|8" }) },
        DetectorCase { "ReadingsAcrossTheGap", "2026-03-28 20:00", QStringLiteral("22:00-06:00"),
            list({ "22:00-06:00|2026-03-28T22:00|7" }) },
        DetectorCase { "DaysAcrossTheGap", "2026-03-27 20:00", QStringLiteral("from 28 to 30 march"),
            list({ "from 28 to 30 march|2026-03-28T12:00|47" }) },
        DetectorCase { "MonthTooShortClamps", "2026-01-31 09:00", QStringLiteral("in a month"),
            list({ "in a month|2026-02-28T12:00|0" }) },
        DetectorCase { "NextLeapDay", "2026-11-24 09:30", QStringLiteral("29 february"),
            list({ "29 february|2028-02-29T12:00|0" }) },
        DetectorCase {
            "NoSuchDay", "2026-11-24 09:30", QStringLiteral("30 february, 31/11/2026, 29/2/2027, 25:00"), {} },
        DetectorCase { "TheYearOfTheEndIsTheRanges", "2026-11-24 09:30", QStringLiteral("28 dec - 3 jan 2028"),
            list({ "28 dec - 3 jan 2028|2027-12-28T12:00|144" }) },
        DetectorCase { "IsoWithOffset", "2026-11-24 09:30", QStringLiteral("2026-12-01T10:30:00-05:00"),
            list({ "2026-12-01T10:30:00-05:00|2026-12-01T16:30|0" }) },
        DetectorCase {
            "NothingOfALongNumber", "2026-11-24 09:30", QString(1000, u'7') + QStringLiteral(" to to to"), {} }),
    [](const auto &row) { return row.param.name; });

} // namespace
} // namespace mintaro
