#include "support/Printers.h"

#include <gmock/gmock.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace mintaro {
namespace {

using testing::ElementsAre;

struct Answer
{
    int status = -1;
    QString output;
    QString complaint;

    [[nodiscard]] QStringList lines() const { return output.split(u'\n', Qt::SkipEmptyParts); }
    [[nodiscard]] QJsonObject object() const { return QJsonDocument::fromJson(output.toUtf8()).object(); }
};

/// The real programs, in a home of their own.
class CommandLineTest : public testing::Test
{
protected:
    [[nodiscard]] QString path(const QString &relative) const { return m_folder.filePath(relative); }

    Answer run(const QString &program, const QStringList &arguments, const QByteArray &input = {}) const
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_qs, path(u"home"_qs));
        environment.insert(u"XDG_CONFIG_HOME"_qs, path(u"sample/config"_qs));
        environment.insert(u"XDG_DATA_HOME"_qs, path(u"data"_qs));
        environment.insert(u"XDG_STATE_HOME"_qs, path(u"state"_qs));
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return { process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError()) };
    }

    Answer ask(const QStringList &arguments, const QByteArray &input = {}) const
    {
        return run(QStringLiteral(MINTAROCTL), arguments, input);
    }

    /// In Rome, on Wednesday 25 November 2026 at 10:17.
    [[nodiscard]] QStringList then(const QStringList &arguments) const
    {
        return QStringList { u"--now"_qs, u"2026-11-25T10:17:30"_qs, u"--time-zone"_qs, u"Europe/Rome"_qs,
            u"--locale"_qs, u"en_GB"_qs }
        + arguments;
    }

    void writeSample() const
    {
        const Answer answer = run(QStringLiteral(MINTARO_SAMPLE_STORE),
            { u"--now"_qs, u"2026-11-25T10:17:30"_qs, u"--time-zone"_qs, u"Europe/Rome"_qs, path(u"sample"_qs) });
        ASSERT_EQ(answer.status, 0) << answer.complaint.toStdString();
    }

    /// A root with one calendar that holds `events`; gives the options that name it.
    [[nodiscard]] QStringList storeOf(const QByteArray &events) const
    {
        EXPECT_TRUE(QDir().mkpath(path(u"root/work"_qs)));
        QFile file(path(u"root/work/one.ics"_qs));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("BEGIN:VCALENDAR\nVERSION:2.0\n" + events + "END:VCALENDAR\n");
        return { u"--store"_qs, path(u"root"_qs), u"--time-zone"_qs, u"Europe/Rome"_qs };
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(CommandLineTest, AgendaShowsTheDaysOfTheSample)
{
    writeSample();
    const Answer answer = ask(then({ u"agenda"_qs }));
    EXPECT_EQ(answer.status, 0);
    ASSERT_GT(answer.lines().size(), 10);
    EXPECT_EQ(answer.lines().constFirst(), u"Wednesday, 25 November 2026"_qs);
    EXPECT_THAT(answer.lines(),
        testing::Contains(testing::Property(
            &QString::toStdString, testing::ContainsRegex("^  10:30 - 11:15   Design review  <https://.*zoom"))));
    EXPECT_LT(answer.output.indexOf(u"All Day"_qs), answer.output.indexOf(u"10:30"_qs));

    const Answer later = ask(then({ u"agenda"_qs, u"--from"_qs, u"2026-11-26"_qs, u"--json"_qs }));
    const auto first = QJsonDocument::fromJson(later.lines().constFirst().toUtf8()).object();
    EXPECT_EQ(first[QLatin1String("day")].toString(), u"2026-11-26"_qs);
}

TEST_F(CommandLineTest, NextAndStatusAgree)
{
    writeSample();
    EXPECT_EQ(ask(then({ u"next"_qs })).output, u"Design review in 12 min (10:30 - 11:15)\n"_qs);
    EXPECT_EQ(ask(then({ u"status"_qs })).output, u"25 Nov \u00b7 Design review in 12 min\n"_qs);
    const QJsonObject next = ask(then({ u"next"_qs, u"--json"_qs })).object();
    EXPECT_EQ(next[QLatin1String("start")].toString(), u"2026-11-25T10:30:00+01:00"_qs);
    EXPECT_EQ(next[QLatin1String("countdown")].toString(), u"in 12 min"_qs);
    const QJsonObject bar = ask(then({ u"status"_qs, u"--format"_qs, u"waybar"_qs })).object();
    EXPECT_EQ(bar[QLatin1String("class")].toString(), u"soon"_qs);
    EXPECT_EQ(bar[QLatin1String("tooltip")].toString(), u"Design review\n10:30 - 11:15"_qs);
}

TEST_F(CommandLineTest, LocaleAndZoneHold)
{
    writeSample();
    const QStringList options { u"--now"_qs, u"2026-11-25T09:17:30Z"_qs, u"--time-zone"_qs, u"Asia/Kolkata"_qs,
        u"--locale"_qs, u"it_IT"_qs };
    EXPECT_EQ(ask(options + QStringList { u"next"_qs }).output, u"Design review tra 12 min (15:00 - 15:45)\n"_qs);
}

TEST_F(CommandLineTest, NextWithoutEventHasAStatusOfItsOwn)
{
    const Answer answer = ask(storeOf({}) + QStringList { u"next"_qs });
    EXPECT_EQ(answer.status, 1);
    EXPECT_TRUE(answer.output.isEmpty());
}

TEST_F(CommandLineTest, WaybarTextIsMarkup)
{
    const auto store = storeOf(
        "BEGIN:VEVENT\nUID:a\nSUMMARY:R&D <b>\nDTSTART:20260310T090000Z\nDTEND:20260310T100000Z\nEND:VEVENT\n");
    const Answer answer
        = ask(store + QStringList { u"--now"_qs, u"2026-03-10T10:30"_qs, u"status"_qs, u"--format=waybar"_qs });
    EXPECT_TRUE(answer.object()[QLatin1String("text")].toString().contains(u"R&amp;D &lt;b&gt;"_qs));
    EXPECT_EQ(answer.object()[QLatin1String("class")].toString(), u"now"_qs);
}

class OccurrencesTest : public CommandLineTest
{
protected:
    Answer march(const QStringList &form)
    {
        return ask(storeOf("BEGIN:VEVENT\nUID:a\nSUMMARY:tab\there\\nand \\\\ there\nDTSTART:20260310T090000Z\n"
                           "DTEND:20260310T100000Z\nRRULE:FREQ=DAILY;COUNT=2\nEND:VEVENT\n"
                           "BEGIN:VEVENT\nUID:b\nSUMMARY:Trip\nDTSTART;VALUE=DATE:20260312\nDTEND;VALUE=DATE:"
                           "20260314\nEND:VEVENT\n")
            + QStringList { u"occurrences"_qs, u"--from"_qs, u"20260301T000000Z"_qs, u"--to"_qs, u"2026-03-31"_qs }
            + form);
    }
};

TEST_F(OccurrencesTest, AsTabSeparatedValues)
{
    EXPECT_THAT(march({ u"--tsv"_qs }).lines(),
        ElementsAre(u"a\t20260310T090000Z\t20260310T100000Z\ttab\\there\\nand \\\\ there"_qs,
            u"a\t20260311T090000Z\t20260311T100000Z\ttab\\there\\nand \\\\ there"_qs,
            u"b\t20260312\t20260314\tTrip"_qs));
}

TEST_F(OccurrencesTest, AsJsonLines)
{
    const QStringList lines = march({ u"--json"_qs }).lines();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(QJsonDocument::fromJson(lines[0].toUtf8()).object()[QLatin1String("summary")].toString(),
        u"tab\there\nand \\ there"_qs);
    EXPECT_EQ(QJsonDocument::fromJson(lines[2].toUtf8()).object()[QLatin1String("end")].toString(), u"20260314"_qs);
}

TEST_F(OccurrencesTest, AsTheirNumber)
{
    const Answer answer = march({ u"--count"_qs, u"--timing"_qs });
    EXPECT_EQ(answer.output, u"3\n"_qs);
    EXPECT_THAT(answer.complaint.toStdString(), testing::MatchesRegex("load_us [0-9]+\nquery_us [0-9]+\n"));
}

class SearchTest : public CommandLineTest
{
protected:
    Answer search(const QStringList &arguments)
    {
        return ask(storeOf("BEGIN:VEVENT\nUID:a\nSUMMARY:Trip\nDTSTART:20250209T090000Z\nEND:VEVENT\n"
                           "BEGIN:VEVENT\nUID:b\nSUMMARY:Talk\nDESCRIPTION:about the trip\nDTSTART:20260310T090000Z\n"
                           "DTEND:20260310T100000Z\nRRULE:FREQ=DAILY;COUNT=2\nEND:VEVENT\n"
                           "BEGIN:VEVENT\nUID:c\nSUMMARY:Walk\nDTSTART:20260310T100000Z\nEND:VEVENT\n"
                           "BEGIN:VEVENT\nUID:d\nSUMMARY:Round trip\nDTSTART;VALUE=DATE:20270310\nEND:VEVENT\n")
            + QStringList { u"--now"_qs, u"2026-03-09T12:00"_qs, u"search"_qs } + arguments);
    }
};

TEST_F(SearchTest, CoversAYearEachWayUnlessToldOtherwise)
{
    const struct
    {
        QStringList arguments;
        const char *count;
    } rows[] = {
        { { u"TRIP"_qs }, "2\n" },
        { { u"trip"_qs, u"--from"_qs, u"2025-02-01"_qs }, "3\n" },
        { { u"trip"_qs, u"--to=2027-04-01"_qs }, "3\n" },
        { { u"--from"_qs, u"20250201T000000Z"_qs, u"trip"_qs, u"--to=2027-04-01"_qs }, "4\n" },
        { { u"about"_qs, u"the"_qs, u"trip"_qs }, "2\n" },
        { { u" walk "_qs }, "1\n" },
        { { u"search"_qs }, "0\n" },
        { { u"--"_qs, u"--count"_qs }, "0\n" },
    };
    for (const auto &row : rows) {
        const Answer answer = search(QStringList { u"--count"_qs } + row.arguments);
        EXPECT_EQ(answer.output, QLatin1String(row.count)) << row.arguments.join(u' ').toStdString();
        EXPECT_EQ(answer.status, 0) << answer.complaint.toStdString();
    }
}

TEST_F(SearchTest, PrintsAsOccurrencesDoes)
{
    const auto lines = ElementsAre(
        u"b\t20260310T090000Z\t20260310T100000Z\tTalk"_qs, u"b\t20260311T090000Z\t20260311T100000Z\tTalk"_qs);
    EXPECT_THAT(search({ u"trip"_qs, u"--tsv"_qs }).lines(), lines);
    EXPECT_THAT(search({ u"trip"_qs, u"--tsv"_qs }).lines(), lines) << "from what the run before parsed";
    const Answer walk = search({ u"walk"_qs, u"--json"_qs, u"--timing"_qs });
    EXPECT_EQ(walk.object()[QLatin1String("uid")].toString(), u"c"_qs);
    EXPECT_THAT(walk.complaint.toStdString(), testing::MatchesRegex("load_us [0-9]+\nquery_us [0-9]+\n"));
}

TEST_F(SearchTest, LeavesOutWhatTheUserDeclined)
{
    writeSample();
    const QStringList day { u"--from=2026-11-01"_qs, u"--to=2026-12-31"_qs, u"--tsv"_qs };
    EXPECT_TRUE(ask(then({ u"occurrences"_qs }) + day).output.contains(u"\tVendor demo"_qs));
    EXPECT_EQ(ask(then({ u"search"_qs, u"vendor demo"_qs }) + day).output, QString());
    EXPECT_NE(ask(then({ u"search"_qs, u"design review"_qs }) + day).output, QString());
}

class AddTest : public CommandLineTest
{
protected:
    void SetUp() override
    {
        for (const QString &name : { u"Work"_qs, u"Home"_qs })
            put(u"store/"_qs + name + u"/displayname"_qs, name.toUtf8());
    }

    void put(const QString &relative, const QByteArray &bytes) const
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path(relative)).path()));
        QFile file(path(relative));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    Answer in(const QStringList &arguments) const
    {
        return ask(then(QStringList { u"--store"_qs, path(u"store"_qs) } + arguments));
    }

    QString listed() const
    {
        return in({ u"occurrences"_qs, u"--from"_qs, u"2026-11-01"_qs, u"--to"_qs, u"2027-02-01"_qs, u"--tsv"_qs })
            .output.remove(QRegularExpression(u"^[^\t]*\t"_qs, QRegularExpression::MultilineOption));
    }
};

TEST_F(AddTest, PutsAnEventIntoACalendarAndSaysWhich)
{
    const struct
    {
        QStringList options;
        QString answer;
        QString occurrence;
    } cases[] = {
        { { u"--start"_qs, u"2026-11-26T15:00"_qs }, u"A  Thu, 26 Nov 2026 15:00 - 16:00  (Home)\n"_qs,
            u"20261126T140000Z\t20261126T150000Z\tA\n"_qs },
        { { u"--start"_qs, u"2026-11-26T15:00Z"_qs, u"--duration"_qs, u"1h30m"_qs, u"--calendar"_qs, u"work"_qs },
            u"A  Thu, 26 Nov 2026 16:00 - 17:30  (Work)\n"_qs, u"20261126T150000Z\t20261126T163000Z\tA\n"_qs },
        { { u"--start"_qs, u"2026-12-24"_qs, u"--end"_qs, u"2026-12-26"_qs },
            u"A  Thu, 24 Dec 2026 - Sat, 26 Dec 2026  (Home)\n"_qs, u"20261224\t20261227\tA\n"_qs },
        { { u"--start"_qs, u"2026-12-24 23:00"_qs, u"--end"_qs, u"2026-12-25 01:00"_qs },
            u"A  Thu, 24 Dec 2026 23:00 - Fri, 25 Dec 2026 01:00  (Home)\n"_qs,
            u"20261224T220000Z\t20261225T000000Z\tA\n"_qs },
        { { u"--start"_qs, u"2026-11-26"_qs, u"--repeat"_qs, u"FREQ=WEEKLY;COUNT=2"_qs },
            u"A  Thu, 26 Nov 2026  (Home)\n"_qs, u"20261126\t20261127\tA\n20261203\t20261204\tA\n"_qs },
        { { u"lunch tomorrow 12:30-14 at Roma"_qs }, u"A  Thu, 26 Nov 2026 12:30 - 14:00  (Home)\n"_qs,
            u"20261126T113000Z\t20261126T130000Z\tA\n"_qs },
        { { u"cena venerdì alle 20"_qs, u"--duration"_qs, u"3h"_qs }, u"A  Fri, 27 Nov 2026 20:00 - 23:00  (Home)\n"_qs,
            u"20261127T190000Z\t20261127T220000Z\tA\n"_qs },
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.options.join(u' ').toStdString());
        QDir(path(u"store"_qs)).removeRecursively();
        SetUp();
        const Answer answer = in(QStringList { u"add"_qs, u"--title"_qs, u"A"_qs } + each.options);
        EXPECT_EQ(answer.status, 0) << answer.complaint.toStdString();
        EXPECT_EQ(answer.output, each.answer);
        EXPECT_EQ(listed(), each.occurrence);
    }
}

TEST_F(AddTest, TakesASentenceAsOthersReadIt)
{
    EXPECT_EQ(in({ u"add"_qs, u"Lunch with Anna tomorrow at noon at Roma"_qs }).output,
        u"Lunch with Anna  Thu, 26 Nov 2026 12:00 - 13:00  (Home)\n"_qs);
    const QStringList files = QDir(path(u"store/Home"_qs)).entryList({ u"*.ics"_qs });
    ASSERT_EQ(files.size(), 1);
    QFile file(path(u"store/Home/"_qs + files.front()));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::string text = file.readAll().toStdString();
    for (const char *line : { "SUMMARY:Lunch with Anna", "DTSTART;TZID=Europe/Rome:20261126T120000", "LOCATION:Roma" })
        EXPECT_THAT(text, testing::HasSubstr(line));
}

TEST_F(AddTest, SaysWhatIsWrongAndAddsNothing)
{
    const struct
    {
        QStringList options;
        const char *complaint;
    } cases[] = {
        { { u"--start"_qs, u"2026-11-26"_qs }, "--title" },
        { { u"--title"_qs, u"A"_qs }, "--start" },
        { { u"--title"_qs, u"A"_qs, u"--start"_qs, u"noon"_qs }, "a moment is needed" },
        { { u"--title"_qs, u"A"_qs, u"--start"_qs, u"2026-11-26T10:00"_qs, u"--end"_qs, u"2026-11-26T09:00"_qs },
            "end before it starts" },
        { { u"--title"_qs, u"A"_qs, u"--start"_qs, u"2026-11-26"_qs, u"--calendar"_qs, u"Gym"_qs }, "Work" },
        { { u"--title"_qs, u"A"_qs, u"--start"_qs, u"2026-11-26"_qs, u"--repeat"_qs, u"often"_qs },
            "a rule is needed" },
        { { u"--title"_qs, u"A"_qs, u"--start"_qs, u"2026-11-26"_qs, u"--alert"_qs, u"soon"_qs }, "minutes before" },
        { { u"lunch with Anna"_qs }, "--start" },
    };
    for (const auto &each : cases) {
        const Answer answer = in(QStringList { u"add"_qs } + each.options);
        EXPECT_EQ(answer.status, 2);
        EXPECT_THAT(answer.complaint.toStdString(), testing::HasSubstr(each.complaint));
        EXPECT_EQ(answer.output, QString());
    }
    EXPECT_EQ(listed(), QString());
}

TEST_F(AddTest, RestoreListsWhatIsKeptAndBringsItBack)
{
    EXPECT_THAT(in({ u"restore"_qs }).output.toStdString(), testing::HasSubstr("Nothing was changed"));
    const QByteArray text
        = "BEGIN:VCALENDAR\nVERSION:2.0\nBEGIN:VEVENT\nUID:a\nDTSTART:20261126T090000Z\nSUMMARY:Dentist\n"
          "END:VEVENT\nEND:VCALENDAR\n";
    const QString id = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmss.zzz'Z-0000'"_qs);
    put(u"state/mintaro/journal/"_qs + id + u".ics"_qs, text);
    put(u"state/mintaro/journal/"_qs + id + u".origin"_qs,
        "collection=" + QFileInfo(path(u"store/Work"_qs)).canonicalFilePath().toUtf8()
            + "\nname=a.ics\nreason=deleted\n");
    const QString row = in({ u"restore"_qs }).output;
    for (const char *part : { "deleted", "Work", "Dentist", "Thu, 26 Nov 2026 10:00" })
        EXPECT_THAT(row.toStdString(), testing::HasSubstr(part));
    EXPECT_EQ(in({ u"restore"_qs, u"--json"_qs }).object().value(u"id"_qs).toString(), id);
    EXPECT_EQ(in({ u"restore"_qs, u"--show"_qs, id }).output.toUtf8(), text);
    EXPECT_EQ(listed(), QString());
    EXPECT_THAT(in({ u"restore"_qs, id.left(12) }).output.toStdString(), testing::HasSubstr("Restored: Dentist"));
    EXPECT_EQ(listed(), u"20261126T090000Z\t20261126T090000Z\tDentist\n"_qs);
    EXPECT_THAT(in({ u"restore"_qs, id }).output.toStdString(), testing::HasSubstr("Already there"));
    EXPECT_EQ(in({ u"restore"_qs, u"1999"_qs }).status, 2);
}

TEST_F(CommandLineTest, LinksAnswersLineByLine)
{
    const Answer answer = ask({ u"links"_qs, u"--json-lines"_qs, u"--timing"_qs },
        "{\"id\":7,\"text\":\"see https://example.org/a, or b.example\"}\n\n{\"id\":\"x\",\"text\":\"nothing\"}\n");
    EXPECT_EQ(answer.status, 0);
    ASSERT_EQ(answer.lines().size(), 2);
    EXPECT_TRUE(answer.lines()[0].startsWith(u"{\"id\":7,\"links\":[\"https://example.org/a\""_qs))
        << answer.output.toStdString();
    EXPECT_EQ(answer.lines()[1], u"{\"id\":\"x\",\"links\":[]}"_qs);
    EXPECT_TRUE(answer.complaint.startsWith(u"median_us "_qs));
}

TEST_F(CommandLineTest, LinksTakesItsTextFromTheArgumentsOrTheInput)
{
    EXPECT_EQ(ask({ u"links"_qs, u"at https://example.org/a now"_qs }).output, u"https://example.org/a\n"_qs);
    EXPECT_EQ(ask({ u"links"_qs }, "at https://example.org/b\n").output, u"https://example.org/b\n"_qs);
    EXPECT_EQ(ask({ u"links"_qs, u"agenda"_qs }).output, QString()) << "the text may be the name of a command";
}

TEST_F(CommandLineTest, ParseSaysWhatASentenceMeans)
{
    EXPECT_EQ(ask(then({ u"parse"_qs, u"Lunch"_qs, u"tomorrow at noon at Roma"_qs })).output,
        u"Lunch\nThu, 26 Nov 2026 12:00 - 13:00\nRoma\n"_qs);
    EXPECT_EQ(ask(then({ u"parse"_qs, u"Lunch"_qs })).output, u"Lunch\n"_qs);
    EXPECT_EQ(ask(then({ u"parse"_qs })).status, 2);

    const Answer answer = ask(then({ u"parse"_qs, u"--json-lines"_qs, u"--timing"_qs }),
        "{\"id\":1,\"text\":\"cena alle 20\",\"ref\":\"2026-03-29T01:00\",\"tz\":\"Europe/London\","
        "\"locale\":\"it_IT\"}\n\n{\"id\":2,\"text\":\"  \"}\n");
    EXPECT_EQ(answer.lines(),
        (QStringList { u"{\"end\":\"2026-03-29T21:00:00\",\"id\":1,\"index\":5,\"location\":null,"
                       u"\"match\":\"alle 20\",\"start\":\"2026-03-29T20:00:00\",\"title\":\"cena\"}"_qs,
            u"{\"end\":null,\"id\":2,\"index\":null,\"location\":null,\"match\":null,\"start\":null,"
            u"\"title\":\"  \"}"_qs }));
    EXPECT_TRUE(answer.complaint.startsWith(u"median_us "_qs)) << answer.complaint.toStdString();
    for (const char *wrong : { "{\"text\":\"a\",\"tz\":\"Europe/Rom\"}", "{\"text\":\"a\",\"ref\":\"noon\"}" })
        EXPECT_EQ(ask({ u"parse"_qs, u"--json-lines"_qs }, wrong).status, 2) << wrong;
}

struct WrongCase
{
    const char *name;
    QStringList arguments;
    const char *complaint;
    QByteArray input = {};
};

class WrongCallTest : public CommandLineTest, public testing::WithParamInterface<WrongCase>
{
};

TEST_P(WrongCallTest, IsToldOfWithStatusTwo)
{
    const Answer answer = ask(storeOf({}) + GetParam().arguments, GetParam().input);
    EXPECT_EQ(answer.status, 2);
    EXPECT_TRUE(answer.complaint.contains(QLatin1String(GetParam().complaint))) << answer.complaint.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Rows, WrongCallTest,
    testing::Values(WrongCase { "NoCommand", {}, "which command" },
        WrongCase { "UnknownCommand", { u"agendas"_qs }, "which command" },
        WrongCase { "UnknownOption", { u"agenda"_qs, u"--bogus"_qs }, "bogus" },
        WrongCase { "OptionOfAnotherCommand", { u"next"_qs, u"--tsv"_qs }, "tsv" },
        WrongCase { "MissingValue", { u"agenda"_qs, u"--from"_qs }, "from" },
        WrongCase { "NoDay", { u"agenda"_qs, u"--from"_qs, u"someday"_qs }, "--from" },
        WrongCase { "NoZone", { u"next"_qs, u"--time-zone"_qs, u"Mars"_qs }, "Mars" },
        WrongCase { "NoMoment", { u"next"_qs, u"--now"_qs, u"noon"_qs }, "noon" },
        WrongCase { "NoStart", { u"next"_qs, u"--start-at"_qs, u"noon"_qs }, "--start-at: cannot" },
        WrongCase { "ClockThatStandsAndGoes",
            { u"next"_qs, u"--now"_qs, u"2026-03-09"_qs, u"--start-at"_qs, u"2026-03-09"_qs }, "both" },
        WrongCase { "NoRange", { u"occurrences"_qs, u"--from"_qs, u"20260301"_qs }, "--to" },
        WrongCase { "NoText", { u"search"_qs }, "which text" },
        WrongCase { "BlankText", { u"search"_qs, u" "_qs }, "which text" },
        WrongCase { "NoMomentOfSearch", { u"search"_qs, u"a"_qs, u"--to"_qs, u"soon"_qs }, "--to" },
        WrongCase { "NoFormat", { u"status"_qs, u"--format"_qs, u"xml"_qs }, "waybar" },
        WrongCase { "NoObject", { u"links"_qs, u"--json-lines"_qs }, "[1,", "[1,\n" }),
    kRowName);

} // namespace
} // namespace mintaro
