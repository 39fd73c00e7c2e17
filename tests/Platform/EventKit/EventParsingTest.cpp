#include "EngineFixture.h"

namespace mintaro {

class EventParsing : public EngineFixture
{
protected:
    EKEvent single(const QByteArray &lines)
    {
        put(eventOf("DTSTART:20260301T090000Z\n" + lines));
        const auto list = events();
        return list.size() == 1 ? list[0] : EKEvent();
    }
};

TEST_F(EventParsing, TextsAreUnescapedAndUnfolded)
{
    const EKEvent event = single("SUMMARY:a\\, b\\; c\\nd\nLOCATION:long\n er\nDESCRIPTION:x\\\\y");
    EXPECT_EQ(event.title(), u"a, b; c\nd"_qs);
    EXPECT_EQ(event.location(), u"longer"_qs);
    EXPECT_EQ(event.notes(), u"x\\y"_qs);
}

TEST_F(EventParsing, AbsentTextsAreAbsent)
{
    const EKEvent event = single("TRANSP:OPAQUE");
    EXPECT_EQ(event.title(), std::nullopt);
    EXPECT_EQ(event.url(), std::nullopt);
    EXPECT_FALSE(event.hasNotes());
    EXPECT_EQ(event.calendarItemExternalIdentifier(), u"one"_qs);
}

TEST_F(EventParsing, BytesThatAreNoUtf8AreWindows1252)
{
    EXPECT_EQ(single("SUMMARY:caf\xe9 \xc3\xa8 \x80").title(), QStringLiteral("caf\u00e9 \u00e8 \u20ac"));
}

TEST_F(EventParsing, ByteOrderMarkAndNulAreNoText)
{
    put("\xEF\xBB\xBF"
        + eventOf("DTSTART:20260301T090000Z\nSUMMARY:a").replace("SUMMARY:a", QByteArray("SUMMARY:a\0b", 11)));
    EXPECT_EQ(titles(events()), QStringList { u"ab"_qs });
}

struct LinkRow
{
    const char *rule;
    const char *lines;
    const char *url;
};

class EventLinks : public EventParsing, public ::testing::WithParamInterface<LinkRow>
{
};

TEST_P(EventLinks, AreFoundWhereServersPutThem)
{
    EXPECT_EQ(single(GetParam().lines).url().value_or(u"none"_qs).toStdString(), GetParam().url);
}

INSTANTIATE_TEST_SUITE_P(Table, EventLinks,
    ::testing::Values(LinkRow { "Url", "URL:https://a.b/c\nX-GOOGLE-CONFERENCE:https://g.h/", "https://a.b/c" },
        LinkRow { "Conference", "CONFERENCE;VALUE=URI;FEATURE=VIDEO:https://v.w/x", "https://v.w/x" },
        LinkRow { "PhoneBesideConference", "CONFERENCE;VALUE=URI:tel:+39\nCONFERENCE;VALUE=URI:https://v.w/x",
            "https://v.w/x" },
        LinkRow { "Google", "X-GOOGLE-CONFERENCE:https://g.h/", "https://g.h/" },
        LinkRow { "Teams", "X-MICROSOFT-SKYPETEAMSMEETINGURL:https://t.u/", "https://t.u/" },
        LinkRow { "OtherExtension", "X-SOMETHING:https://t.u/", "none" }),
    [](const auto &row) { return std::string(row.param.rule); });

TEST_F(EventParsing, StatusAndIdentityOfAttendees)
{
    backend->held[0].userAddresses = { u"me@example.org"_qs };
    const EKEvent event = single("ATTENDEE;CN=Me;PARTSTAT=DECLINED:MAILTO:Me@Example.ORG\n"
                                 "ATTENDEE;PARTSTAT=TENTATIVE:mailto:you@example.org\n"
                                 "ATTENDEE;EMAIL=me@example.org:urn:uuid:1\n"
                                 "ATTENDEE;PARTSTAT=X-ODD:mailto:odd@example.org");
    const auto &people = event.attendees();
    ASSERT_EQ(people.size(), 4u);
    EXPECT_EQ(people[0].name, u"Me"_qs);
    EXPECT_EQ(people[0].participantStatus, EKParticipantStatus::Declined);
    EXPECT_TRUE(people[0].isCurrentUser);
    EXPECT_EQ(people[1].participantStatus, EKParticipantStatus::Tentative);
    EXPECT_FALSE(people[1].isCurrentUser);
    EXPECT_EQ(people[2].participantStatus, EKParticipantStatus::Pending);
    EXPECT_TRUE(people[2].isCurrentUser);
    EXPECT_EQ(people[3].participantStatus, EKParticipantStatus::Unknown);
}

TEST_F(EventParsing, AnExceptionHasItsOwnAttendeesAndItsSeriesRules)
{
    put(calendarOf("BEGIN:VEVENT\nUID:s\nDTSTART:20260301T090000Z\nRRULE:FREQ=DAILY;COUNT=2\n"
                   "ATTENDEE;PARTSTAT=ACCEPTED:mailto:a@b\nEND:VEVENT\nBEGIN:VEVENT\nUID:s\n"
                   "RECURRENCE-ID:20260302T090000Z\nDTSTART:20260302T100000Z\n"
                   "ATTENDEE;PARTSTAT=DECLINED:mailto:a@b\nEND:VEVENT"));
    const auto list = events();
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].attendees()[0].participantStatus, EKParticipantStatus::Accepted);
    EXPECT_EQ(list[1].attendees()[0].participantStatus, EKParticipantStatus::Declined);
    EXPECT_TRUE(list[1].hasRecurrenceRules());
    EXPECT_EQ(list[1].occurrenceDate(), utc("2026-03-02T09:00:00Z"));
    EXPECT_EQ(list[0].eventIdentifier(), list[1].eventIdentifier());
}

TEST_F(EventParsing, AlarmsCountFromTheStart)
{
    const EKEvent event = single("DURATION:PT1H\nBEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT15M\nEND:VALARM\n"
                                 "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER;RELATED=END:-PT10M\nEND:VALARM\n"
                                 "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER;VALUE=DATE-TIME:20260301T080000Z\nEND:VALARM\n"
                                 "BEGIN:VALARM\nACTION:NONE\nTRIGGER:PT0S\nEND:VALARM");
    const std::vector<EKAlarm> expected { { std::nullopt, std::chrono::minutes { -15 } },
        { std::nullopt, std::chrono::minutes { 50 } }, { utc("2026-03-01T08:00:00Z"), std::chrono::seconds { 0 } } };
    EXPECT_EQ(event.alarms(), expected);
}

struct HostileRow
{
    const char *rule;
    QByteArray text;
    qsizetype events;
};

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
}

QByteArray ruled(const QByteArray &rule)
{
    return calendarOf("BEGIN:VEVENT\nUID:r\nDTSTART:20260215T090000Z\nRRULE:" + rule + "\nEND:VEVENT");
}

INSTANTIATE_TEST_SUITE_P(Table, HostileText,
    ::testing::Values(HostileRow { "Nothing", "", 0 },
        HostileRow { "Binary",
            QByteArray("\x7f"
                       "ELF\0\1\2",
                7),
            0 },
        HostileRow { "LongLine", calendarOf("X-A:" + QByteArray(300'000, 'x')), 0 },
        HostileRow { "ManyParameters", calendarOf("X-A" + QByteArray(";P=1").repeated(5'000) + ":x"), 0 },
        HostileRow { "DeepNestingAfterManyEnds",
            QByteArray("END:X\n").repeated(5'000) + QByteArray("BEGIN:VCALENDAR\n").repeated(5'000), 0 },
        HostileRow { "DeepNesting", QByteArray("BEGIN:VCALENDAR\n").repeated(5'000), 0 },
        HostileRow { "NoStart", calendarOf("BEGIN:VEVENT\nUID:x\nEND:VEVENT"), 0 },
        HostileRow { "ImpossibleStart", calendarOf("BEGIN:VEVENT\nUID:x\nDTSTART:20261399T000000Z\nEND:VEVENT"), 0 },
        HostileRow { "EverySecond", ruled("FREQ=SECONDLY"), 1 },
        HostileRow { "EveryMinute", ruled("FREQ=MINUTELY"), 1 },
        HostileRow { "ManySeconds", ruled("FREQ=SECONDLY;INTERVAL=7;COUNT=2000000000"), 1 },
        HostileRow { "SecondsOfEveryDay",
            ruled("FREQ=DAILY;BYHOUR=0,1,2,3,4,5,6,7,8,9;BYMINUTE=0,1,2,3,4,5,6,7,8,9;BYSECOND=0,1,2,3,4,5,6"), 1 },
        HostileRow { "RuleWithoutFrequency", ruled("COUNT=2"), 1 },
        HostileRow { "SameUidTwice",
            calendarOf("BEGIN:VEVENT\nUID:x\nDTSTART:20260301T090000Z\nEND:VEVENT\n"
                       "BEGIN:VEVENT\nUID:x\nDTSTART:20260302T090000Z\nEND:VEVENT"),
            2 }),
    [](const auto &row) { return std::string(row.param.rule); });

TEST_F(EventParsing, ARuleThatNeverMatchesHasNoOccurrence)
{
    put(ruled("FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30"));
    EXPECT_EQ(events().size(), 0u);
    EXPECT_EQ(events("2900-01-01T00:00:00Z", "2901-01-01T00:00:00Z").size(), 0u);
}

} // namespace mintaro
