#include "EngineFixture.h"

#include <QStringEncoder>

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

TEST_F(EventParsing, AbsentTextsAreAbsent)
{
    const EKEvent event = single("TRANSP:OPAQUE");
    EXPECT_EQ(event.title(), std::nullopt);
    EXPECT_EQ(event.url(), std::nullopt);
    EXPECT_FALSE(event.hasNotes());
    EXPECT_EQ(event.calendarItemExternalIdentifier(), u"one"_qs);
}

struct TextRow
{
    const char *rule;
    QByteArray written;
    QString read;
};

class EventTexts : public EventParsing, public ::testing::WithParamInterface<TextRow>
{
};

TEST_P(EventTexts, AreReadAsPeopleMeantThem)
{
    EXPECT_EQ(single("SUMMARY" + GetParam().written).title(), GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(Table, EventTexts,
    ::testing::Values(TextRow { "Escapes", ":a\\, b\\; c\\nd\\Ne\\\\n \\\"f\\\"", u"a, b; c\nd\ne\\n \"f\""_qs },
        TextRow { "OddEscapes", ":C:\\temp\\", u"C:\\temp\\"_qs },
        TextRow { "Windows1252", ":caf\xe9 \xc3\xa8 \x80", u"caf\u00e9 \u00e8 \u20ac"_qs },
        TextRow { "HalfALetterAtTheEnd", ":a\xe2\x82", u"a\u00e2\u201a"_qs },
        TextRow { "ControlCharacters", ":a\x01\x1b[0mb\tc\x7f", u"a[0mb\tc"_qs },
        TextRow { "QuotedPrintable", ";ENCODING=QUOTED-PRINTABLE:a=3Db=\n=C3=A8=ZZ.", u"a=b\u00e8=ZZ."_qs },
        TextRow { "FoldedAnywhere", ":\n l\n\to\n  n\n g", u"lo ng"_qs },
        TextRow { "ColonsAndQuotes", ";X=\"a:b;c\":d: \"e\"", u"d: \"e\""_qs },
        TextRow { "QuoteWithoutAnEnd", ";X=\"a:b", u"b"_qs }),
    [](const auto &row) { return std::string(row.param.rule); });

struct EncodingRow
{
    const char *rule;
    QByteArray text;
};

class Encodings : public EventParsing, public ::testing::WithParamInterface<EncodingRow>
{
};

TEST_P(Encodings, GiveTheSameEvent)
{
    put(GetParam().text);
    EXPECT_EQ(titles(events()), QStringList { u"caf\u00e9 au lait"_qs });
}

QByteArray sample()
{
    return calendarOf("BEGIN:VEVENT\nUID:a\nDTSTART:20260301T090000Z\nSUMMARY:caf\xc3\xa9 \n au lait\nEND:VEVENT");
}

QByteArray encoded(QStringConverter::Encoding encoding, QStringConverter::Flag flag)
{
    return QStringEncoder(encoding, flag)(QString::fromUtf8(sample()));
}

INSTANTIATE_TEST_SUITE_P(Table, Encodings,
    ::testing::Values(EncodingRow { "LineFeed", sample() },
        EncodingRow { "CarriageReturnLineFeed", sample().replace("\n", "\r\n") },
        EncodingRow { "CarriageReturn", sample().replace('\n', '\r') },
        EncodingRow { "TwoCarriageReturns", sample().replace("\n", "\r\r\n") },
        EncodingRow { "BlankLines", "\n\n" + sample().replace("\n", "\n\n") },
        EncodingRow { "NoLineEndAtTheEnd", sample().trimmed() },
        EncodingRow { "ByteOrderMark", "\xEF\xBB\xBF" + sample() },
        EncodingRow { "Latin1", sample().replace("\xc3\xa9", "\xe9") },
        EncodingRow { "Utf16", encoded(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom) },
        EncodingRow { "Utf16OtherOrder", encoded(QStringConverter::Utf16BE, QStringConverter::Flag::WriteBom) },
        EncodingRow { "Utf16WithoutMark", encoded(QStringConverter::Utf16LE, QStringConverter::Flag::Default) },
        EncodingRow { "Nuls", sample().replace("caf", QByteArray("c\0a\0f", 5)) }),
    [](const auto &row) { return std::string(row.param.rule); });

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

TEST_F(EventParsing, ARuleThatNeverMatchesHasNoOccurrence)
{
    put(eventOf("DTSTART:20260215T090000Z\nRRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30"));
    EXPECT_EQ(events().size(), 0u);
    EXPECT_EQ(events("2900-01-01T00:00:00Z", "2901-01-01T00:00:00Z").size(), 0u);
}

} // namespace mintaro
