#include "Platform/Foundation/DateFormatter.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

namespace mintaro {

TEST(DateFormatter, WritesPatternsAndSkeletonsInTheLocalesWords)
{
    const struct
    {
        const char *locale;
        bool isTemplate;
        const char *format;
        const char *expected;
    } rows[] = {
        { "en_GB", false, "d MMM", "7 Mar" },
        { "it_IT", false, "d MMM", "7 mar" },
        { "en_US", false, "EEE, d 'of' MMMM; HH:mm", "Sat, 7 of March; 09:05" },
        { "en_US", true, "yMMMM", "March 2026" },
        { "it_IT", true, "yMMMM", "Marzo 2026" },
        { "en_US", true, "EEEEMMMd", "Saturday, Mar 7" },
        { "it_IT", true, "EEEEMMMd", "Sabato 7 mar" },
        { "en_US", false, "", "" },
    };
    for (const auto &row : rows) {
        const Locale locale = Locale::fromIdentifier(QLatin1String(row.locale));
        const QString format = QLatin1String(row.format);
        const DateFormatter formatter
            = row.isTemplate ? DateFormatter::withTemplate(format, locale) : DateFormatter::withPattern(format, locale);
        EXPECT_EQ(formatter.string(at("2026-03-07 09:05"), TimeZone()), QLatin1String(row.expected)) << row.format;
    }
}

TEST(DateFormatter, UsesTheSystemsZoneRules)
{
    const DateFormatter formatter = DateFormatter::withPattern(QStringLiteral("HH:mm"), Locale());
    EXPECT_EQ(formatter.string(at("2026-07-01 09:00"), zone("Africa/Cairo")), QStringLiteral("12:00"));
}

TEST(DateFormatter, WeekdayLettersBeginWithSunday)
{
    EXPECT_EQ(DateFormatter::veryShortWeekdaySymbols(Locale()).join(u' '), QStringLiteral("S M T W T F S"));
    EXPECT_EQ(DateFormatter::veryShortWeekdaySymbols(Locale::fromIdentifier(QStringLiteral("it"))).join(u' '),
        QStringLiteral("D L M M G V S"));
}

} // namespace mintaro
