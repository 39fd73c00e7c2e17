#include "Services/NaturalLanguageParser.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

struct ParserCase
{
    const char *name;
    QString text;
    QString title;
    QString location {};
    QString start {}; ///< empty: no date
    QString end {};
};

void PrintTo(const ParserCase &row, std::ostream *out)
{
    *out << row.text.toStdString();
}

class NaturalLanguageParserTest : public testing::TestWithParam<ParserCase>
{
protected:
    // A Tuesday.
    const FixedClock m_clock { at("2026-11-24 09:30") };
    const Environment m_environment { m_clock, Locale {}, TimeZone() };
    const NaturalLanguageParser m_parser { m_environment };
};

TEST_P(NaturalLanguageParserTest, TellsTitlePlaceAndTime)
{
    const ParserCase &row = GetParam();
    const auto event = m_parser.parse(row.text);
    ASSERT_TRUE(event);
    EXPECT_EQ(event->title, row.title);
    EXPECT_EQ(event->location.value_or(QString()), row.location);
    EXPECT_EQ(event->startDate ? text(*event->startDate) : QString(), row.start);
    EXPECT_EQ(event->endDate ? text(*event->endDate) : QString(), row.end);
    EXPECT_FALSE(event->isAllDay);
}

INSTANTIATE_TEST_SUITE_P(Rows, NaturalLanguageParserTest,
    testing::Values(ParserCase { "Whole", QStringLiteral("Lunch with Anna tomorrow at noon at Roma"),
                        QStringLiteral("Lunch with Anna"), QStringLiteral("Roma"),
                        QStringLiteral("2026-11-25T12:00:00Z"), QStringLiteral("2026-11-25T13:00:00Z") },
        ParserCase { "Span", QStringLiteral("Review - tomorrow 2-3:30pm"), QStringLiteral("Review"), {},
            QStringLiteral("2026-11-25T14:00:00Z"), QStringLiteral("2026-11-25T15:30:00Z") },
        ParserCase { "SpanBehindAClockOfTwentyFour", QStringLiteral("22:00-06:00 watch"), QStringLiteral("watch"), {},
            QStringLiteral("2026-11-24T22:00:00Z"), QStringLiteral("2026-11-25T06:00:00Z") },
        ParserCase { "OnlyADate", QStringLiteral("tomorrow at noon"), QStringLiteral("tomorrow at noon"), {},
            QStringLiteral("2026-11-25T12:00:00Z"), QStringLiteral("2026-11-25T13:00:00Z") },
        ParserCase { "InnerBlanksStay", QStringLiteral("Call tomorrow with Bob"), QStringLiteral("Call  with Bob"), {},
            QStringLiteral("2026-11-25T12:00:00Z"), QStringLiteral("2026-11-25T13:00:00Z") },
        ParserCase { "TheFirstOfTwoDates", QStringLiteral("Trip friday, back sunday"),
            QStringLiteral("Trip , back sunday"), {}, QStringLiteral("2026-11-27T12:00:00Z"),
            QStringLiteral("2026-11-27T13:00:00Z") },
        ParserCase { "APastHourStays", QStringLiteral("Gym 8am"), QStringLiteral("Gym"), {},
            QStringLiteral("2026-11-24T08:00:00Z"), QStringLiteral("2026-11-24T09:00:00Z") },
        ParserCase { "NoDate", QStringLiteral("Team sync"), QStringLiteral("Team sync") },
        ParserCase { "WithoutADateBlanksStay", QStringLiteral("  Team sync  "), QStringLiteral("  Team sync  ") },
        ParserCase { "PlaceAlone", QStringLiteral("Pranzo a Roma"), QStringLiteral("Pranzo"), QStringLiteral("Roma") },
        ParserCase {
            "ArticleIsAMarker", QStringLiteral("Write a report"), QStringLiteral("Write"), QStringLiteral("report") },
        ParserCase { "AtIsTriedFirst", QStringLiteral("Dinner in Rome at Mario"), QStringLiteral("Dinner in Rome"),
            QStringLiteral("Mario") },
        ParserCase { "CaseCounts", QStringLiteral("Lunch At Roma"), QStringLiteral("Lunch At Roma") },
        ParserCase { "TooShortForAPlace", QStringLiteral("Call in NY"), QStringLiteral("Call in NY") },
        ParserCase { "PartOfTheDayIsNoPlace", QStringLiteral("Sleep in Morning"), QStringLiteral("Sleep in Morning") },
        ParserCase { "NothingButAPlace", QStringLiteral(" at Roma"), QString(), QStringLiteral("Roma") }),
    [](const auto &row) { return row.param.name; });

TEST_F(NaturalLanguageParserTest, NothingComesOfBlanks)
{
    EXPECT_FALSE(m_parser.parse(QString()));
    EXPECT_FALSE(m_parser.parse(QStringLiteral(" \t ")));
}

} // namespace
} // namespace mintaro
