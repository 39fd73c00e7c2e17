#include "Platform/Foundation/DateEntryFormat.h"

#include "support/Printers.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

using namespace std::chrono;

constexpr year_month_day kShown = 2026y / November / 24;

DateEntryFormat formatOf(const char *locale)
{
    return DateEntryFormat(Locale::fromIdentifier(QLatin1String(locale)));
}

QString written(const std::optional<year_month_day> &day)
{
    return day ? DateEntryFormat(Locale::fromIdentifier(u"sv_SE"_qs)).string(*day) : u"-"_qs;
}

QString written(const std::optional<ClockReading> &time)
{
    return time ? formatOf("it_IT").string(*time) : u"-"_qs;
}

TEST(DateEntryFormatTest, WritesAsTheLocaleDoes)
{
    const struct
    {
        const char *locale;
        const char *day;
        const char *afternoon;
        const char *midnight;
    } rows[] = {
        { "en_US", "11/24/2026", "3:30 PM", "12:05 AM" },
        { "en_GB", "24/11/2026", "15:30", "00:05" },
        { "it_IT", "24/11/2026", "15:30", "00:05" },
        { "it_CH", "24.11.2026", "15:30", "00:05" },
        { "en_SE", "2026-11-24", "15:30", "00:05" },
        { "en_CA", "11/24/2026", "3:30 p.m.", "12:05 a.m." },
        // A region with a calendar of its own.
        { "en_TH", "24/11/2026", "15:30", "00:05" },
        // A region where the language is not at home.
        { "en_IT", "24/11/2026", "15:30", "00:05" },
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.locale);
        const DateEntryFormat format = formatOf(row.locale);
        EXPECT_EQ(format.string(kShown), QLatin1String(row.day));
        EXPECT_EQ(format.string(ClockReading { 15, 30 }), QLatin1String(row.afternoon));
        EXPECT_EQ(format.string(ClockReading { 0, 5 }), QLatin1String(row.midnight));
    }
}

TEST(DateEntryFormatTest, ReadsWhatItWrites)
{
    for (const char *locale : { "en_SE", "en_US", "en_GB", "it_IT", "it_CH", "en_CA", "en_TH", "en_IN", "it_BG",
             "it_LV", "en_HU", "en_IR", "it_US", "en_KR" }) {
        SCOPED_TRACE(locale);
        const DateEntryFormat format = formatOf(locale);
        for (const auto day : { kShown, 2028y / February / 29, 1999y / December / 31, 9999y / January / 1 })
            EXPECT_EQ(format.day(format.string(day), kShown), day);
        for (int minute = 0; minute < 24 * 60; minute += 7) {
            const ClockReading reading { minute / 60, minute % 60 };
            EXPECT_EQ(format.time(format.string(reading)), reading);
        }
    }
}

TEST(DateEntryFormatTest, TakesDaysAsPeopleTypeThem)
{
    const struct
    {
        const char *locale;
        const char *text;
        const char *expected;
    } rows[] = {
        { "en_US", "12/3/2026", "2026-12-03" },
        { "en_GB", "12/3/2026", "2026-03-12" },
        { "it_IT", "1.2.27", "2027-02-01" },
        { "it_IT", " 1 - 2 - 2027 ", "2027-02-01" },
        { "it_IT", "24 11", "2026-11-24" },
        { "it_IT", "24. 11.", "2026-11-24" },
        { "en_US", "12-3", "2026-12-03" },
        { "en_GB", "5", "2026-11-05" },
        { "en_US", "2027-03-04", "2027-03-04" },
        { "en_SE", "4/3/2027", "2027-03-04" },
        { "en_GB", "29/2/28", "2028-02-29" },
        { "en_GB", "1/1/76", "2076-01-01" },
        { "en_GB", "1/1/77", "1977-01-01" },
        { "en_GB", "٢٤/١١/٢٠٢٦", "2026-11-24" },
        { "en_GB", "29/2/2027", "-" },
        { "en_GB", "31/4", "-" },
        { "en_GB", "0/1/2026", "-" },
        { "en_GB", "1/257/2026", "-" },
        { "en_GB", "24/13", "-" },
        { "en_GB", "1/1/0000", "-" },
        { "en_GB", "1/1/202", "-" },
        { "en_GB", "1/1/20266", "-" },
        { "en_GB", "1/2/3/4", "-" },
        { "en_GB", "24 Nov", "-" },
        { "en_GB", "", "-" },
        { "en_GB", "/", "-" },
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << row.locale << ' ' << row.text);
        EXPECT_EQ(written(formatOf(row.locale).day(QString::fromUtf8(row.text), kShown)), QLatin1String(row.expected));
    }
}

TEST(DateEntryFormatTest, TakesClockReadingsAsPeopleTypeThem)
{
    const struct
    {
        const char *text;
        const char *inTwelveHours;
        const char *inTwentyFour;
    } rows[] = {
        { "15:30", "15:30", "15:30" },
        { "15.30", "15:30", "15:30" },
        { "15 30", "15:30", "15:30" },
        { "15h30", "15:30", "15:30" },
        { "15h", "15:00", "15:00" },
        { "1530", "15:30", "15:30" },
        { "930", "09:30", "09:30" },
        { "330", "15:30", "03:30" },
        { "0330", "03:30", "03:30" },
        { "03:30", "03:30", "03:30" },
        { "3:30", "15:30", "03:30" },
        { "8", "08:00", "08:00" },
        { "12", "12:00", "12:00" },
        { "0", "00:00", "00:00" },
        { "3:30 PM", "15:30", "15:30" },
        { "3pm", "15:00", "15:00" },
        { "3 p.m.", "15:00", "15:00" },
        { "3a", "03:00", "03:00" },
        { "12am", "00:00", "00:00" },
        { "12:15 pm", "12:15", "12:15" },
        { "15:30 PM", "-", "-" },
        { "0:30 am", "-", "-" },
        { "24:00", "-", "-" },
        { "12:60", "-", "-" },
        { "12:5", "-", "-" },
        { "1:2:3", "-", "-" },
        { "12345", "-", "-" },
        { "soon", "-", "-" },
        { "3 xm", "-", "-" },
        { "pm", "-", "-" },
        { "", "-", "-" },
    };
    const DateEntryFormat american = formatOf("en_US");
    const DateEntryFormat italian = formatOf("it_IT");
    for (const auto &row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(written(american.time(QLatin1String(row.text))), QLatin1String(row.inTwelveHours));
        EXPECT_EQ(written(italian.time(QLatin1String(row.text))), QLatin1String(row.inTwentyFour));
    }
}

} // namespace
} // namespace mintaro
