#include "Platform/EventKit/Writing/TimeZoneWriter.h"

#include "Platform/EventKit/VTimeZone.h"
#include "support/Printers.h"

#include <QTimeZone>

namespace mintaro {

using namespace std::chrono;

namespace {

sys_seconds newYear(int number)
{
    return sys_days { year { number } / January / 1 };
}

/// What our reader makes of a component's own rules; empty where it makes nothing or has to complain.
std::optional<TimeZone> readBack(const QByteArray &component)
{
    const ICalDocument document = parseICalendar(component);
    PropertyReader reader(document.root);
    if (document.root.components.size() != 1)
        return std::nullopt;
    auto zone = readTimeZone(document.root.components.front(), reader);
    return document.complaints.all().isEmpty() && reader.complaints().all().isEmpty() ? zone : std::nullopt;
}

/// The first moment of the ten years after `from` at which the two zones differ: all changes and each tenth day.
std::optional<sys_seconds> difference(const TimeZone &zone, const TimeZone &other, sys_seconds from)
{
    const sys_seconds end = from + years { 10 };
    std::vector<sys_seconds> moments;
    for (sys_seconds at = from; at < end; at += days { 10 })
        moments.push_back(at);
    for (const TimeZone *each : { &zone, &other }) {
        for (const TimeZone::Transition &transition : each->transitions()) {
            if (transition.at > from && transition.at < end)
                moments.insert(moments.end(), { transition.at - seconds { 1 }, transition.at });
        }
    }
    const auto found = std::find_if(moments.begin(), moments.end(),
        [&](sys_seconds at) { return zone.secondsFromGMT(at) != other.secondsFromGMT(at); });
    return found == moments.end() ? std::nullopt : std::optional(*found);
}

QByteArray observance(const char *name, const char *from, const char *to, const char *abbreviation, const char *onsets)
{
    return QByteArray("BEGIN:") + name + "\r\nTZOFFSETFROM:" + from + "\r\nTZOFFSETTO:" + to
        + "\r\nTZNAME:" + abbreviation + "\r\nDTSTART:" + onsets + "\r\nEND:" + name + "\r\n";
}

} // namespace

TEST(TimeZoneWriter, AllZonesOfTheSystemComeBackAsTheyAre)
{
    int count = 0;
    for (const QByteArray &id : QTimeZone::availableTimeZoneIds()) {
        const auto zone = TimeZone::named(QString::fromLatin1(id));
        // Qt lists offsets too, which are no names of the database.
        if (!zone || *zone == TimeZone())
            continue;
        ++count;
        for (const int fromYear : { 1950, 1995, 2007, 2026, 2030 }) {
            const sys_seconds from = newYear(fromYear) + days { 200 };
            const QByteArray component = timeZoneComponent(*zone, from);
            const auto read = readBack(component);
            ASSERT_TRUE(read) << id.toStdString() << "\n" << component.toStdString();
            EXPECT_EQ(read->identifier(), zone->identifier());
            const auto at = difference(*zone, *read, from);
            EXPECT_FALSE(at) << id.toStdString() << " at " << text(at.value_or(from)).toStdString() << "\n"
                             << component.toStdString();
        }
    }
    EXPECT_GT(count, 300);
}

TEST(TimeZoneWriter, SaysWhatOtherProgramsExpect)
{
    const struct
    {
        const char *zoneName;
        int from;
        QByteArray observances;
    } rows[] = {
        { "Europe/Rome", 2026,
            observance(
                "DAYLIGHT", "+0100", "+0200", "CEST", "19810329T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU")
                + observance("STANDARD", "+0200", "+0100", "CET",
                    "19961027T030000\r\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU") },
        { "America/New_York", 2026,
            observance("DAYLIGHT", "-0500", "-0400", "EDT", "20070311T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=2SU")
                + observance(
                    "STANDARD", "-0400", "-0500", "EST", "20071104T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=11;BYDAY=1SU") },
        // Irish law calls the summer's time the standard.
        { "Europe/Dublin", 2026,
            observance("DAYLIGHT", "+0000", "+0100", "IST", "19810329T010000\r\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU")
                + observance("STANDARD", "+0100", "+0000", "GMT",
                    "19961027T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU") },
        // Until the midnight after the last Thursday of October, which may be one of November.
        { "Africa/Cairo", 2026,
            observance(
                "DAYLIGHT", "+0200", "+0300", "EEST", "20230428T000000\r\nRRULE:FREQ=YEARLY;BYMONTH=4;BYDAY=-1FR")
                + observance("STANDARD", "+0300", "+0200", "EET",
                    "20231027T000000\r\nRRULE:FREQ=YEARLY;BYYEARDAY=-67,-66,-65,-64,-63,-62,-61;BYDAY=FR") },
        // The rules of before 2007, then those since.
        { "America/New_York", 1997,
            observance("STANDARD", "-0400", "-0500", "EST",
                "19961027T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU;UNTIL=20061029T060000Z")
                + observance("DAYLIGHT", "-0500", "-0400", "EDT",
                    "19970406T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=4;BYDAY=1SU;UNTIL=20060402T070000Z")
                + observance(
                    "DAYLIGHT", "-0500", "-0400", "EDT", "20070311T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=2SU")
                + observance(
                    "STANDARD", "-0400", "-0500", "EST", "20071104T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=11;BYDAY=1SU") },
        // Given up.
        { "America/Mexico_City", 2026, observance("STANDARD", "-0500", "-0600", "CST", "20221030T020000") },
        // Changes that no rule tells.
        { "Europe/Istanbul", 2015,
            observance("STANDARD", "+0300", "+0200", "EET", "20141026T040000\r\nRDATE:20151108T040000")
                + observance("DAYLIGHT", "+0200", "+0300", "EEST", "20150329T030000\r\nRDATE:20160327T030000")
                + observance("STANDARD", "+0300", "+0300", "+03", "20160907T000000") },
        { "Asia/Kolkata", 2026, observance("STANDARD", "+0530", "+0530", "IST", "19700101T000000") },
    };
    for (const auto &row : rows) {
        const QByteArray expected
            = QByteArray("BEGIN:VTIMEZONE\r\nTZID:") + row.zoneName + "\r\n" + row.observances + "END:VTIMEZONE\r\n";
        EXPECT_EQ(timeZoneComponent(zone(row.zoneName), newYear(row.from)).toStdString(), expected.toStdString());
    }
}

TEST(TimeZoneWriter, RuleThatGoesOnReadsTheSameForAllEventsOfItsTime)
{
    const TimeZone rome = zone("Europe/Rome");
    for (const int fromYear : { 1999, 2039, 2099, 9999 })
        EXPECT_EQ(timeZoneComponent(rome, newYear(fromYear)), timeZoneComponent(rome, newYear(2026))) << fromYear;
}

TEST(TimeZoneWriter, OtherZonesHaveNone)
{
    EXPECT_EQ(timeZoneComponent(TimeZone(), newYear(2026)), QByteArray());
    EXPECT_EQ(
        timeZoneComponent(TimeZone::custom(QStringLiteral("Office"), hours { 1 }, {}), newYear(2026)), QByteArray());
}

} // namespace mintaro
