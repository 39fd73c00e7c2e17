#include "Platform/EventKit/ChangeJournal.h"

#include "EngineFixture.h"
#include "StoreFixture.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <sys/wait.h>

namespace mintaro {

namespace {

using Reason = ChangeJournal::Reason;
using testing::ElementsAre;
using testing::IsEmpty;

class HeldClock final : public Clock
{
public:
    [[nodiscard]] Date now() const override { return moment; }
    Date moment = utc("2026-03-01T09:00:00Z");
};

class ChangeJournalTest : public StoreFixture
{
protected:
    [[nodiscard]] QString keep(const QByteArray &text) { return journal.keep({ u"/c"_qs, u"x.ics"_qs }, text, {}); }

    [[nodiscard]] std::vector<std::string> texts() const
    {
        std::vector<std::string> texts;
        for (const ChangeJournal::Entry &entry : journal.entries())
            texts.push_back(journal.text(entry.id).value_or("(none)").toStdString());
        return texts;
    }

    [[nodiscard]] QStringList files() const
    {
        return QDir(path(u"state/mintaro/journal"_qs))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    [[nodiscard]] mode_t modeOf(const QString &relative) const
    {
        struct stat status = {};
        EXPECT_EQ(::stat(path(u"state/mintaro/journal"_qs + relative).toUtf8().constData(), &status), 0);
        return status.st_mode & 07777;
    }

    HeldClock clock;
    ChangeJournal journal { path(u"state/mintaro/journal"_qs), clock };
};

TEST_F(ChangeJournalTest, KeepsTheBytesAndWhereTheyWere)
{
    const struct
    {
        const char *rule;
        QString collection;
        QString name;
        QByteArray text;
        Reason reason;
    } cases[] = {
        { "plain", u"/home/me/work"_qs, u"x.ics"_qs, "BEGIN:VCALENDAR\r\n", Reason::Changed },
        { "bytes that are no text", u"/c"_qs, u"x.ics"_qs, QByteArray("\0\xff\r\n\n", 5), Reason::Deleted },
        { "nothing", u"/c"_qs, u"x.ics"_qs, "", Reason::Changed },
        { "line breaks and signs in names", u"/a\nname=b\\%41=\u00fc"_qs, u"\n%\r\t .ics"_qs, "x", Reason::Deleted },
    };
    EXPECT_THAT(journal.entries(), IsEmpty());
    for (const auto &row : cases) {
        SCOPED_TRACE(row.rule);
        const QString id = journal.keep({ row.collection, row.name }, row.text, row.reason);
        EXPECT_EQ(journal.text(id), row.text);
        const std::vector<ChangeJournal::Entry> entries = journal.entries();
        ASSERT_FALSE(entries.empty());
        EXPECT_EQ(entries.back().id, id);
        EXPECT_EQ(entries.back().time, clock.moment);
        EXPECT_EQ(entries.back().place.collection, row.collection);
        EXPECT_EQ(entries.back().place.name, row.name);
        EXPECT_EQ(entries.back().reason, row.reason);
    }
    const QString id = journal.entries().front().id;
    EXPECT_EQ(modeOf({}), 0700U);
    EXPECT_EQ(modeOf(u'/' + id + u".ics"_qs), 0600U);
    EXPECT_EQ(modeOf(u'/' + id + u".origin"_qs), 0600U);
}

TEST_F(ChangeJournalTest, IsSortedByTimeAndForgetsAfterThirtyDays)
{
    (void)keep("first");
    (void)keep("of the same moment");
    clock.moment += std::chrono::milliseconds(1);
    (void)keep("a millisecond later");
    EXPECT_THAT(texts(), ElementsAre("first", "of the same moment", "a millisecond later"));
    clock.moment += std::chrono::days(30);
    (void)keep("now");
    EXPECT_THAT(texts(), ElementsAre("a millisecond later", "now"));
    EXPECT_EQ(files().size(), 4);
    clock.moment -= std::chrono::years(1);
    (void)keep("the clock was set back");
    EXPECT_THAT(texts(), ElementsAre("the clock was set back", "a millisecond later", "now"));
}

TEST_F(ChangeJournalTest, AnEntryThatIsDiscardedIsGone)
{
    (void)keep("one");
    const QString id = keep("two");
    journal.discard(id);
    EXPECT_THAT(texts(), ElementsAre("one"));
    EXPECT_EQ(files().size(), 2);
    EXPECT_EQ(journal.text(id), std::nullopt);
    put(u"state/mintaro/x.ics"_qs, "not ours");
    journal.discard(u"../x"_qs);
    EXPECT_EQ(journal.text(u"../x"_qs), std::nullopt);
    EXPECT_TRUE(QFile::exists(path(u"state/mintaro/x.ics"_qs)));
}

TEST_F(ChangeJournalTest, WhatACrashLeftGoesAndWhatIsForeignStays)
{
    const auto inJournal = [](const char *name) { return u"state/mintaro/journal/"_qs + QLatin1String(name); };
    const auto putThere = [&](const char *name, const QByteArray &bytes) { put(inJournal(name), bytes); };
    putThere(".mintaro.tmp", "half a te");
    putThere("20260228T090000.000Z-0000.origin", "collection=/c\nname=x\nreason=changed\n");
    const QStringList foreign { u"20260228T090000.000Z-0001.ics"_qs, u"20260228T090000.000Z-0002.ics"_qs,
        u"20260228T090000.000Z-0002.origin"_qs, u"20260301T090000.000Z-0000.ics"_qs,
        u"20269999T090000.000Z-0000.ics"_qs, u"notes.ics"_qs };
    putThere("20260228T090000.000Z-0001.ics", "without an origin");
    putThere("20260228T090000.000Z-0002.ics", "of an origin without sense");
    putThere("20260228T090000.000Z-0002.origin", "collection=/c\nname=x\nreason=why\n");
    putFolder(inJournal("20260301T090000.000Z-0000.ics"));
    putThere("20269999T090000.000Z-0000.ics", "of no day");
    putThere("notes.ics", "somebody's own");
    const QString id = keep("kept");
    EXPECT_EQ(id, u"20260301T090000.000Z-0001"_qs);
    EXPECT_THAT(texts(), ElementsAre("kept"));
    QStringList expected = foreign + QStringList { id + u".ics"_qs, id + u".origin"_qs };
    expected.sort();
    EXPECT_EQ(files(), expected);
}

TEST_F(ChangeJournalTest, WhereNothingCanBeKeptTheErrorSaysWhy)
{
    put(u"state"_qs, "no folder");
    try {
        (void)keep("text");
        FAIL() << "kept below a file";
    } catch (const EKError &error) {
        EXPECT_EQ(error.what(), path(u"state/mintaro/journal: Not a directory"_qs).toStdString());
    }
}

TEST_F(ChangeJournalTest, SeveralProcessesKeepAtOnce)
{
    constexpr int kEach = 50;
    const pid_t child = ::fork();
    for (int i = 0; i < kEach; ++i)
        (void)keep(child == 0 ? "child" : "parent");
    if (child == 0)
        std::_Exit(0);
    int result = -1;
    ASSERT_EQ(::waitpid(child, &result, 0), child);
    EXPECT_EQ(result, 0);
    const std::vector<std::string> kept = texts();
    EXPECT_EQ(std::count(kept.begin(), kept.end(), "child"), kEach);
    EXPECT_EQ(std::count(kept.begin(), kept.end(), "parent"), kEach);
    EXPECT_EQ(files().size(), 4 * kEach);
}

} // namespace

} // namespace mintaro
