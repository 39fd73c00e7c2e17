#include "EngineFixture.h"
#include "Platform/EventKit/ZoneResolver.h"

namespace mintaro {

namespace {

struct ZoneRow
{
    const char *rule;
    const char *tzid;
    const char *expected;
};

class ZoneNames : public ::testing::TestWithParam<ZoneRow>
{
};

TEST_P(ZoneNames, MeanTheSystemsZone)
{
    const auto zone = resolveZone(QString::fromUtf8(GetParam().tzid));
    EXPECT_EQ(zone ? zone->identifier().toStdString() : std::string("none"), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Table, ZoneNames,
    ::testing::Values(ZoneRow { "Iana", "Europe/Rome", "Europe/Rome" },
        ZoneRow { "OtherCase", "europe/berlin", "Europe/Berlin" },
        ZoneRow { "Spaces", "America/New York", "America/New_York" },
        ZoneRow { "Windows", "W. Europe Standard Time", "Europe/Berlin" },
        ZoneRow { "WindowsEgypt", "Egypt Standard Time", "Africa/Cairo" },
        ZoneRow { "WindowsDisplay", "(UTC+01:00) Amsterdam, Berlin, Bern, Rome, Stockholm, Vienna", "Europe/Berlin" },
        ZoneRow { "Prefix", "/freeassociation.sourceforge.net/Europe/Berlin", "Europe/Berlin" },
        ZoneRow { "DatedPrefix", "/mozilla.org/20050126_1/Europe/Rome", "Europe/Rome" },
        ZoneRow { "PrefixThreeParts", "/x.org/America/Argentina/Buenos_Aires", "America/Argentina/Buenos_Aires" },
        ZoneRow { "Link", "US/Eastern", "US/Eastern" }, ZoneRow { "Alias", "US-Eastern", "America/New_York" },
        ZoneRow { "Nobody", "Office Time", "none" }, ZoneRow { "Empty", "", "none" }),
    [](const auto &row) { return std::string(row.param.rule); });

constexpr char kLyingZone[] = "BEGIN:VTIMEZONE\nTZID:%1\nBEGIN:STANDARD\nDTSTART:19700101T000000\nTZOFFSETFROM:+0500\n"
                              "TZOFFSETTO:+0500\nEND:STANDARD\nEND:VTIMEZONE\n";

QByteArray withZone(const QByteArray &tzid, const QByteArray &zone)
{
    return calendarOf(QByteArray(zone).replace("%1", tzid) + "BEGIN:VEVENT\nUID:z\nDTSTART;TZID=" + tzid
        + ":20260715T120000\nSUMMARY:z\nEND:VEVENT");
}

} // namespace

class ZoneUse : public EngineFixture
{
protected:
    QString start()
    {
        const auto list = events();
        return list.size() == 1 ? text(list[0].startDate()) : QStringLiteral("%1 events").arg(list.size());
    }
};

TEST_F(ZoneUse, SystemsRulesWinOverTheFilesOwn)
{
    put(withZone("America/New_York", kLyingZone));
    EXPECT_EQ(start(), QStringLiteral("20260715T160000Z"));
}

TEST_F(ZoneUse, FilesRulesHoldForANameThatNobodyKnows)
{
    put(withZone("Office", kLyingZone));
    EXPECT_EQ(start(), QStringLiteral("20260715T070000Z"));
    EXPECT_TRUE(log.isEmpty()) << qPrintable(log.join(u'\n'));
}

TEST_F(ZoneUse, YearlyRulesOfTheFilesZone)
{
    put(withZone("Office",
        "BEGIN:VTIMEZONE\nTZID:%1\nBEGIN:STANDARD\nDTSTART:19701025T030000\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\n"
        "TZOFFSETFROM:+0200\nTZOFFSETTO:+0100\nEND:STANDARD\nBEGIN:DAYLIGHT\nDTSTART:19700329T020000\n"
        "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\nTZOFFSETFROM:+0100\nTZOFFSETTO:+0200\nEND:DAYLIGHT\n"
        "END:VTIMEZONE\n"));
    EXPECT_EQ(start(), QStringLiteral("20260715T100000Z"));
}

TEST_F(ZoneUse, ZoneRuleOfEverySecondIsPassedOver)
{
    put(withZone("Office",
        "BEGIN:VTIMEZONE\nTZID:%1\nBEGIN:STANDARD\nDTSTART:19700101T000000\nRRULE:FREQ=SECONDLY\nTZOFFSETFROM:+0300\n"
        "TZOFFSETTO:+0300\nEND:STANDARD\nEND:VTIMEZONE\n"));
    EXPECT_EQ(start(), QStringLiteral("20260715T090000Z"));
}

TEST_F(ZoneUse, LocationNamedByTheFilesZone)
{
    put(withZone("Office", "BEGIN:VTIMEZONE\nTZID:%1\nX-LIC-LOCATION:Asia/Tokyo\nEND:VTIMEZONE\n"));
    EXPECT_EQ(start(), QStringLiteral("20260715T030000Z"));
}

TEST_F(ZoneUse, UnknownZoneIsLocalTimeWithALogLine)
{
    put(withZone("Office", ""));
    EXPECT_EQ(start(), QStringLiteral("20260715T100000Z"));
    ASSERT_EQ(log.size(), 1);
    EXPECT_TRUE(log[0].contains(u"work/a.ics") && log[0].contains(u"Office")) << qPrintable(log[0]);
}

} // namespace mintaro
