#include "EngineFixture.h"

namespace mintaro {

struct HostileRow
{
    const char *rule;
    QByteArray text;
    qsizetype events;
    const char *reason;
};

/// What is damaged, nonsense, or made to keep programs busy. That none of it takes long is a matter of bounded steps: a
/// case that hangs fails by the time limit of the suite.
class HostileText : public EngineFixture, public ::testing::WithParamInterface<HostileRow>
{
};

TEST_P(HostileText, CostsOneLogLineAndNothingElse)
{
    put(GetParam().text, u"bad.ics"_qs);
    put(eventOf("DTSTART:20260301T090000Z\nSUMMARY:good"), u"good.ics"_qs);
    const auto list = events();
    EXPECT_EQ(static_cast<qsizetype>(list.size()), GetParam().events + 1);
    EXPECT_TRUE(titles(list).contains(u"good"_qs));
    ASSERT_EQ(log.size(), 1) << qPrintable(log.join(u'\n'));
    EXPECT_TRUE(log[0].startsWith(u"work/bad.ics: ")) << qPrintable(log[0]);
    EXPECT_TRUE(log[0].contains(QString::fromUtf8(GetParam().reason))) << qPrintable(log[0]);
    EXPECT_LT(log[0].size(), 1'200);
}

namespace {

QByteArray event(const QByteArray &lines)
{
    return "BEGIN:VEVENT\nUID:x\n" + lines + "\nEND:VEVENT";
}

QByteArray ruled(const QByteArray &rule)
{
    return calendarOf(event("DTSTART:20260215T090000Z\nRRULE:" + rule));
}

QByteArray list(int count)
{
    QByteArrayList numbers;
    for (int i = 0; i < count; ++i)
        numbers.append(QByteArray::number(i));
    return numbers.join(',');
}

QByteArray zoned(const QByteArray &rule)
{
    return calendarOf("BEGIN:VTIMEZONE\nTZID:Odd\nBEGIN:STANDARD\nDTSTART:19700101T000000\nTZOFFSETFROM:+0100\n"
                      "TZOFFSETTO:+0200\n"
        + rule + "\nEND:STANDARD\nEND:VTIMEZONE\n" + event("DTSTART;TZID=Odd:20260301T090000"));
}

const QByteArray kPlain = "DTSTART:20260301T090000Z";

} // namespace

INSTANTIATE_TEST_SUITE_P(Structure, HostileText,
    ::testing::Values(HostileRow { "Nothing", "", 0, "no iCalendar" },
        HostileRow { "Blanks", " \n\t\n", 0, "no iCalendar" },
        HostileRow { "Binary",
            QByteArray("\x7f"
                       "ELF\0\1\2",
                7),
            0, "no iCalendar" },
        HostileRow { "WebPage", "<!DOCTYPE html>\n<html><body>404: not found</body></html>\n", 0, "no iCalendar" },
        HostileRow { "Conflict", "<<<<<<< ours\n" + calendarOf(event(kPlain)), 1, "a line that is no property" },
        HostileRow { "LongLine", calendarOf("X-A:" + QByteArray(300'000, 'x') + '\n' + event(kPlain)), 1, "256 KiB" },
        HostileRow { "LongFoldedLine", calendarOf("X-A:" + QByteArray("x\n ").repeated(300'000) + '\n' + event(kPlain)),
            1, "256 KiB" },
        HostileRow { "LongTitle", calendarOf(event(kPlain + "\nSUMMARY:" + QByteArray(300'000, 'x'))), 1, "256 KiB" },
        HostileRow { "LineOfTheWholeFile", QByteArray(8'000'000, 'x'), 0, "no iCalendar" },
        HostileRow { "ManyParameters", calendarOf(event(kPlain + "\nX-A" + QByteArray(";P=1").repeated(5'000) + ":x")),
            1, "100 parameters" },
        HostileRow { "DeepNesting", QByteArray("BEGIN:VCALENDAR\n").repeated(5'000), 0, "too deeply" },
        HostileRow { "DeepNestingAfterManyEnds",
            QByteArray("END:X\n").repeated(5'000) + QByteArray("BEGIN:VCALENDAR\n").repeated(5'000), 0, "too deeply" },
        HostileRow { "DeepNestingInAnEvent", calendarOf(event(kPlain + '\n' + QByteArray("BEGIN:X-A\n").repeated(100))),
            1, "too deeply" },
        HostileRow { "EndsWithoutABegin", QByteArray("END:VEVENT\n").repeated(1'000) + calendarOf(event(kPlain)), 1,
            "without a BEGIN" },
        HostileRow { "CutOff", calendarOf(event(kPlain)).left(70), 0, "cut off" },
        HostileRow {
            "CutOffAfterTheStart", "BEGIN:VCALENDAR\nBEGIN:VEVENT\nUID:x\n" + kPlain + "\nSUMM", 1, "cut off" },
        HostileRow { "TextAfterIt", calendarOf(event(kPlain)) + "SUMMARY:left over\n", 1, "outside of a calendar" },
        HostileRow { "Nuls", calendarOf(event(kPlain + QByteArray("\nSUMMARY:a\0b", 13))), 1, "NUL" },
        HostileRow { "SameUidTwice", calendarOf(event(kPlain) + '\n' + event(kPlain)), 2, "more than once" },
        HostileRow { "SameUidOften", calendarOf((event(kPlain) + '\n').repeated(2'000)), 2'000, "more than once" }),
    [](const auto &row) { return std::string(row.param.rule); });

// What would cost the square of its length if it were not looked at once.
INSTANTIATE_TEST_SUITE_P(Length, HostileText,
    ::testing::Values(HostileRow { "CarriageReturnsAlone",
                          calendarOf((event(kPlain + "\nDESCRIPTION:x") + '\n').repeated(80'000)).replace('\n', '\r'),
                          80'000, "more than once" },
        HostileRow { "SoftBreaksOfNothing", calendarOf("X-A" + QByteArray("=\n ").repeated(2'000'000)), 0, "256 KiB" },
        HostileRow { "ColonsAndBlanks",
            calendarOf((event("DTSTART" + QByteArray(120'000, ':') + QByteArray(120'000, ' ')) + '\n').repeated(30)), 0,
            "DTSTART without sense" },
        HostileRow { "ManyBytesThatAreNoUtf8",
            calendarOf((event(kPlain + "\nSUMMARY:" + QByteArray("\xe9\xff").repeated(120'000)) + '\n').repeated(30)),
            30, "more than once" },
        HostileRow { "ProseInManyLines",
            calendarOf(event(kPlain + "\nDESCRIPTION:" + QByteArray("a b\n").repeated(60'000))), 1,
            "a line break within DESCRIPTION" }),
    [](const auto &row) { return std::string(row.param.rule); });

INSTANTIATE_TEST_SUITE_P(Values, HostileText,
    ::testing::Values(HostileRow { "NoStart", calendarOf(event("SUMMARY:x")), 0, "without a start" },
        HostileRow { "ImpossibleStart", calendarOf(event("DTSTART:20261399T000000Z")), 0, "DTSTART without sense" },
        HostileRow { "EmptyStart", calendarOf(event("DTSTART:")), 0, "DTSTART without sense" },
        HostileRow { "YearZero", calendarOf(event("DTSTART:00000101T000000Z")), 0, "DTSTART without sense" },
        HostileRow {
            "HugeNumbers", calendarOf(event("DTSTART:99999999999999999999T999999Z")), 0, "DTSTART without sense" },
        HostileRow { "EndWithoutSense", calendarOf(event(kPlain + "\nDTEND:tomorrow")), 1, "DTEND without sense" },
        HostileRow { "DurationWithoutEnd", calendarOf(event(kPlain + "\nDURATION:P99999999999999W")), 1,
            "DURATION without sense" },
        HostileRow { "DurationOfManyParts",
            calendarOf(event(kPlain + "\nDURATION:P" + QByteArray("999999999W").repeated(20'000))), 1,
            "DURATION without sense" },
        HostileRow { "ExceptionOfNoTime", calendarOf(event(kPlain + "\nRECURRENCE-ID:never")), 1,
            "RECURRENCE-ID without sense" },
        HostileRow {
            "NobodysZone", calendarOf(event("DTSTART;TZID=No\\where:20260301T090000")), 1, "unknown time zone" },
        HostileRow { "LongZoneName", calendarOf(event("DTSTART;TZID=" + QByteArray(100'000, 'z') + ":20260301T090000")),
            1, "unknown time zone" }),
    [](const auto &row) { return std::string(row.param.rule); });

INSTANTIATE_TEST_SUITE_P(Rules, HostileText,
    ::testing::Values(HostileRow { "EverySecond", ruled("FREQ=SECONDLY"), 1, "rule" },
        HostileRow { "EveryMinute", ruled("FREQ=MINUTELY"), 1, "rule" },
        HostileRow { "ManySeconds", ruled("FREQ=SECONDLY;INTERVAL=7;COUNT=2000000000"), 1, "rule" },
        HostileRow { "SecondsOfEveryDay",
            ruled("FREQ=DAILY;BYHOUR=" + list(24) + ";BYMINUTE=" + list(60) + ";BYSECOND=" + list(60)), 1, "rule" },
        HostileRow { "RuleWithoutFrequency", ruled("COUNT=2"), 1, "RRULE without sense" },
        HostileRow { "IntervalOfNothing", ruled("FREQ=DAILY;INTERVAL=0"), 1, "RRULE without sense" },
        HostileRow { "HugeInterval", ruled("FREQ=DAILY;INTERVAL=99999999999"), 1, "RRULE without sense" },
        // The first rules give them all.
        HostileRow { "ManyRules",
            ruled(QByteArray("FREQ=SECONDLY;BYHOUR=3;BYMINUTE=7\nRRULE:").repeated(200)
                + "FREQ=SECONDLY;BYHOUR=3;BYMINUTE=7"),
            319 * 60 + 1, "rule" },
        HostileRow { "ZoneOfEverySecond", zoned("RRULE:FREQ=SECONDLY"), 1, "RRULE without sense" },
        HostileRow { "ZoneOfManyYears", zoned("RRULE:FREQ=YEARLY;BYHOUR=" + list(24) + ";BYMINUTE=" + list(60)), 1,
            "RRULE without sense" },
        HostileRow { "ZoneOfItself",
            zoned("RRULE:FREQ=YEARLY;COUNT=0").replace("DTSTART:1970", "DTSTART;TZID=Odd:1970"), 1,
            "RRULE without sense" }),
    [](const auto &row) { return std::string(row.param.rule); });

} // namespace mintaro
