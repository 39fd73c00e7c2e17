#include "EngineFixture.h"
#include "Platform/EventKit/ChangeJournal.h"
#include "Platform/EventKit/Folders/FoldersBackend.h"
#include "StoreFixture.h"
#include "SystemCalls.h"

#include <gmock/gmock.h>

#include <csignal>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mintaro {

namespace {

using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsSubsetOf;

using Fault = SystemCalls::Fault;
using Plan = SystemCalls::Plan;
using Calls = std::set<std::string>;

constexpr char kAbsent[] = "(none)";
constexpr char kOld[] = "the old text";
constexpr char kNew[] = "the new text, which is longer";
constexpr char kTheirs[] = "another program's text";
constexpr char kNewest[] = "a third program's text";
const QString kItem = u"x.ics"_qs;
const QString kTemporary = u".mintaro.tmp"_qs;

/// What became of a write.
struct Result
{
    std::string outcome;
    int calls = 0;
    Calls met;
    std::string failed;

    [[nodiscard]] bool isError() const { return outcome.find(": ") != std::string::npos; }
};

int openDescriptors()
{
    return static_cast<int>(QDir(u"/proc/self/fd"_qs).entryList(QDir::AllEntries | QDir::System).size());
}

class FailingDisk : public StoreFixture
{
protected:
    void SetUp() override
    {
        putFolder(u"r/c"_qs);
        m_backend = std::make_unique<FoldersBackend>(baseFolders(), path(u"r"_qs), logger());
        ASSERT_TRUE(m_backend->requestAccess());
        (void)m_backend->collections();
    }

    /// Puts the folder back to where each write begins.
    void reset(bool hasItem = true)
    {
        for (const QString &entry : entries())
            ASSERT_TRUE(QFile::remove(inFolder(entry)));
        if (hasItem)
            putItem(kOld);
        m_lastOfOthers = kOld;
        const QByteArray file = inFolder(kItem).toUtf8();
        if (hasItem && ::geteuid() == 0) {
            ASSERT_EQ(::chown(file.constData(), 0, 100), 0);
        }
    }

    void putItem(const QByteArray &text) const
    {
        put(u"r/c/x.ics"_qs, text);
        ASSERT_EQ(::chmod(inFolder(kItem).toUtf8().constData(), 0640), 0);
        m_lastOfOthers = text.toStdString();
    }

    void replaceItem(const QByteArray &text) const
    {
        put(u"r/c/tmpab12cd"_qs, text);
        ASSERT_EQ(std::rename(inFolder(u"tmpab12cd"_qs).toUtf8().constData(), inFolder(kItem).toUtf8().constData()), 0);
        m_lastOfOthers = text.toStdString();
    }

    void removeItem() const { ASSERT_TRUE(QFile::remove(inFolder(kItem))); }

    [[nodiscard]] QString inFolder(const QString &name) const { return path(u"r/c/"_qs + name); }

    [[nodiscard]] QStringList entries() const
    {
        return QDir(path(u"r/c"_qs))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    [[nodiscard]] std::string textOf(const QString &name) const
    {
        QFile file(inFolder(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : kAbsent;
    }

    /// The texts of all items.
    [[nodiscard]] std::vector<std::string> items() const
    {
        std::vector<std::string> texts;
        for (const QString &entry : entries()) {
            if (entry.endsWith(QLatin1String(".ics")))
                texts.push_back(textOf(entry));
        }
        return texts;
    }

    [[nodiscard]] std::string replace() const { return nameOf(m_backend->replace(place(), kItem, kOld, kNew)); }
    [[nodiscard]] std::string remove() const { return nameOf(m_backend->remove(place(), kItem, kOld)); }
    [[nodiscard]] std::string create() const { return m_backend->create(place(), kItem, kNew) ? "Done" : "Exists"; }
    [[nodiscard]] QString place() const { return path(u"r/c"_qs); }

    [[nodiscard]] static std::string nameOf(WriteOutcome outcome)
    {
        return outcome == WriteOutcome::Done ? "Done" : outcome == WriteOutcome::Changed ? "Changed" : "Gone";
    }

    [[nodiscard]] static Result run(const Plan &plan, const std::function<std::string()> &write)
    {
        Result result;
        const SystemCalls calls(plan);
        try {
            result.outcome = write();
        } catch (const EKError &error) {
            result.outcome = error.what();
        }
        result.calls = calls.count();
        result.met = calls.met();
        result.failed = calls.failed();
        return result;
    }

    /// Runs it in a process that dies right before a call; false where it came to its end.
    [[nodiscard]] static bool isKilled(const Plan &plan, const std::function<std::string()> &write)
    {
        const pid_t child = ::fork();
        if (child == 0) {
            (void)run(plan, write);
            std::_Exit(0);
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

    /// The next write removes what is left lying.
    void expectTheNextWriteToTidyUp()
    {
        EXPECT_TRUE(m_backend->create(place(), u"next.ics"_qs, "next"));
        EXPECT_FALSE(entries().contains(kTemporary));
        EXPECT_TRUE(QFile::remove(inFolder(u"next.ics"_qs)));
    }

    /// What somebody else wrote last, and must not lose.
    mutable std::string m_lastOfOthers;

private:
    std::unique_ptr<FoldersBackend> m_backend;
};

constexpr int kCodes[] = { ENOSPC, EIO, EROFS, EACCES, EDQUOT, EINTR };

struct WriteCase
{
    const char *rule;
    std::function<std::string()> write;
    bool hasItem;
    std::string before;
    std::string after;
    std::map<std::string, int> unsupported;
    Calls calls;
};

class FailingWrites : public FailingDisk
{
protected:
    [[nodiscard]] std::vector<WriteCase> cases() const
    {
        const auto replace = [this] { return this->replace(); };
        const auto remove = [this] { return this->remove(); };
        const auto create = [this] { return this->create(); };
        const std::map<std::string, int> noFlags { { "renameat2", EINVAL } };
        const std::map<std::string, int> noFlagsNorLinks { { "renameat2", EINVAL }, { "linkat", EPERM } };
        const Calls looking { "openat", "flock", "unlinkat", "fstatat", "fstat", "read", "realpath", "fsync" };
        const auto with = [](Calls calls, const Calls &more) {
            calls.insert(more.begin(), more.end());
            return calls;
        };
        Calls replacing = with(looking, { "write", "fchmod", "renameat2" });
        if (::geteuid() == 0)
            replacing.insert("fchown");
        const Calls creating { "openat", "flock", "unlinkat", "write", "fsync", "renameat2" };
        return {
            { "replace", replace, true, kOld, kNew, {}, replacing },
            { "remove", remove, true, kOld, kAbsent, {}, with(looking, { "renameat2" }) },
            { "create", create, false, kAbsent, kNew, {}, creating },
            { "replace without exchange", replace, true, kOld, kNew, noFlags, with(replacing, { "renameat" }) },
            { "remove without flags", remove, true, kOld, kAbsent, noFlags,
                with(looking, { "renameat2", "renameat" }) },
            { "create by a link", create, false, kAbsent, kNew, noFlags, with(creating, { "linkat" }) },
            { "create without either", create, false, kAbsent, kNew, noFlagsNorLinks,
                with(creating, { "linkat", "renameat" }) },
        };
    }
};

TEST_F(FailingWrites, MeetTheirCallsAndTakeShortWrites)
{
    for (const WriteCase &row : cases()) {
        SCOPED_TRACE(row.rule);
        reset(row.hasItem);
        const Result result = run({ .unsupported = row.unsupported, .writesByteByByte = true }, row.write);
        EXPECT_EQ(result.outcome, "Done");
        EXPECT_EQ(result.met, row.calls);
        EXPECT_EQ(textOf(kItem), row.after);
        EXPECT_LE(entries().size(), 1);
    }
}

TEST_F(FailingWrites, LeaveTheOldTextOrTheNewOne)
{
    for (const WriteCase &row : cases()) {
        for (const int code : kCodes) {
            int errors = 0;
            bool isOver = false;
            for (int number = 1; !isOver; ++number) {
                SCOPED_TRACE(testing::Message() << row.rule << ", call " << number << ": " << std::strerror(code));
                reset(row.hasItem);
                const int descriptors = openDescriptors();
                const Result result = run({ Fault::Fails, number, code, row.unsupported }, row.write);
                SCOPED_TRACE(result.failed);
                EXPECT_EQ(openDescriptors(), descriptors);
                EXPECT_EQ(textOf(kItem), result.isError() ? row.before : row.after) << result.outcome;
                EXPECT_THAT(result.outcome, AnyOf("Done", EndsWith(std::string("/x.ics: ") + std::strerror(code))));
                QStringList others = entries();
                others.removeOne(kItem);
                if (result.failed == "unlinkat") {
                    others.removeOne(kTemporary);
                    expectTheNextWriteToTidyUp();
                }
                EXPECT_EQ(others, QStringList());
                errors += result.isError() ? 1 : 0;
                isOver = result.failed.empty();
            }
            EXPECT_GE(errors, 2) << row.rule;
        }
    }
}

TEST_F(FailingWrites, OnADiskThatDiesLoseNothing)
{
    for (const WriteCase &row : cases()) {
        bool isOver = false;
        for (int number = 1; !isOver; ++number) {
            SCOPED_TRACE(testing::Message() << row.rule << ", from call " << number << " on");
            reset(row.hasItem);
            const int descriptors = openDescriptors();
            const Result result = run({ Fault::FailsFromThenOn, number, EIO, row.unsupported }, row.write);
            EXPECT_EQ(openDescriptors(), descriptors);
            EXPECT_THAT(textOf(kItem), AnyOf(row.before, row.after, ""));
            EXPECT_THAT(result.outcome, AnyOf("Done", EndsWith("/x.ics: Input/output error")));
            if (result.isError() && row.hasItem && !row.unsupported.contains("renameat2")) {
                EXPECT_THAT((std::vector { textOf(kItem), textOf(kTemporary) }), Contains(kOld));
            }
            isOver = result.failed.empty();
        }
    }
}

TEST_F(FailingWrites, KilledAtAnyMomentLeaveTheOldTextOrTheNewOne)
{
    for (const WriteCase &row : cases()) {
        const bool mayBeEmpty = row.unsupported.contains("linkat");
        int kills = 0;
        for (bool isOver = false; !isOver; kills += isOver ? 0 : 1) {
            SCOPED_TRACE(testing::Message() << row.rule << ", before call " << kills + 1);
            reset(row.hasItem);
            isOver = !isKilled({ Fault::IsKilled, kills + 1, 0, row.unsupported }, row.write);
            const std::string text = textOf(kItem);
            EXPECT_TRUE(text == row.before || text == row.after || (mayBeEmpty && text.empty())) << text;
            expectTheNextWriteToTidyUp();
            EXPECT_THAT(entries(), IsSubsetOf({ kItem }));
        }
        EXPECT_GE(kills, 5) << row.rule;
    }
}

struct RaceCase
{
    const char *rule;
    std::function<std::string()> write;
    std::map<int, std::function<void()>> acts;
    std::string outcome;
    /// The item's text afterwards, and what else stands in items.
    std::string text;
    std::vector<std::string> others;
};

class FailingRaces : public FailingDisk
{
protected:
    [[nodiscard]] std::vector<RaceCase> cases() const
    {
        const auto replace = [this] { return this->replace(); };
        const auto remove = [this] { return this->remove(); };
        const auto theirs = [this] { replaceItem(kTheirs); };
        const auto inPlace = [this] { putItem(kTheirs); };
        const auto newest = [this] { replaceItem(kNewest); };
        const auto gone = [this] { removeItem(); };
        return {
            { "written before the exchange", replace, { { 1, theirs } }, "Changed", kTheirs, {} },
            { "written in place before the exchange", replace, { { 1, inPlace } }, "Changed", kTheirs, {} },
            { "written again before the exchange is undone", replace, { { 1, theirs }, { 2, newest } }, "Changed",
                kNewest, {} },
            { "removed before the exchange", replace, { { 1, gone } }, "Gone", kAbsent, {} },
            { "removed before the exchange is undone", replace, { { 1, theirs }, { 2, gone } }, "Changed", kTheirs,
                {} },
            { "written before it is removed", remove, { { 1, theirs } }, "Changed", kTheirs, {} },
            { "removed before it is removed", remove, { { 1, gone } }, "Gone", kAbsent, {} },
            { "created while the other's text is away", remove, { { 1, theirs }, { 2, newest } }, "Changed", kNewest,
                { kTheirs } },
        };
    }
};

TEST_F(FailingRaces, LoseNothingOfOthers)
{
    for (const RaceCase &row : cases()) {
        SCOPED_TRACE(row.rule);
        reset();
        EXPECT_EQ(run({ .beforeRename = row.acts }, row.write).outcome, row.outcome);
        EXPECT_EQ(textOf(kItem), row.text);
        std::vector<std::string> all = row.others;
        if (row.text != kAbsent)
            all.push_back(row.text);
        EXPECT_THAT(items(), testing::UnorderedElementsAreArray(all));
        EXPECT_FALSE(entries().contains(kTemporary));
    }
}

TEST_F(FailingRaces, LoseNothingOfOthersWhereACallFailsBesides)
{
    for (const RaceCase &row : cases()) {
        bool isOver = row.text == kAbsent;
        for (int number = 1; !isOver; ++number) {
            reset();
            const Result result = run({ Fault::Fails, number, EIO, {}, row.acts }, row.write);
            SCOPED_TRACE(testing::Message() << row.rule << ", call " << number << ": " << result.failed);
            EXPECT_THAT(items(), Contains(m_lastOfOthers)) << result.outcome;
            expectTheNextWriteToTidyUp();
            EXPECT_THAT(items(), Contains(m_lastOfOthers));
            EXPECT_THAT(items(), Each(AnyOf(kOld, kNew, kTheirs, kNewest)));
            isOver = result.failed.empty();
        }
    }
}

TEST_F(FailingDisk, WaitsForTheLockForFiveSecondsOfTurns)
{
    reset();
    const SystemCalls calls({ .unsupported = { { "flock", EWOULDBLOCK } } });
    EXPECT_THROW((void)replace(), EKError);
    EXPECT_EQ(calls.count("nanosleep"), 1000);
    EXPECT_EQ(textOf(kItem), kOld);
}

TEST_F(FailingDisk, WithoutLocksAYoungTemporaryIsSomebodys)
{
    reset();
    const std::map<std::string, int> noLocks { { "flock", ENOLCK } };
    EXPECT_EQ(run({ .unsupported = noLocks }, [this] { return replace(); }).outcome, "Done");
    reset();
    put(u"r/c/.mintaro.tmp"_qs, "of another host");
    const std::function<std::string()> write = [this] { return replace(); };
    EXPECT_THAT(run({ .unsupported = noLocks }, write).outcome, EndsWith("/x.ics: the folder is busy"));
    EXPECT_EQ(textOf(kTemporary), "of another host");
    EXPECT_EQ(run({ .unsupported = noLocks, .seconds = 62 }, write).outcome, "Done");
    EXPECT_THAT(entries(), ElementsAre(kItem));
}

class FailingJournal : public FailingDisk
{
protected:
    [[nodiscard]] std::string keep() { return journal.keep({ u"/c"_qs, kItem }, kNew, {}).isEmpty() ? "" : "Done"; }

    [[nodiscard]] QStringList files() const
    {
        return QDir(path(u"journal"_qs)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    void restart()
    {
        ASSERT_TRUE(QDir(path(u"journal"_qs)).removeRecursively());
        (void)journal.keep({ u"/c"_qs, kItem }, kOld, {});
    }

    /// Whether each text has its origin, and each entry one of our texts as a whole.
    void expectWholeEntries(std::size_t count) const
    {
        const std::vector<ChangeJournal::Entry> entries = journal.entries();
        EXPECT_EQ(entries.size(), count);
        EXPECT_EQ(files().filter(u".ics"_qs).size(), static_cast<qsizetype>(count));
        for (const ChangeJournal::Entry &entry : entries)
            EXPECT_EQ(journal.text(entry.id), QByteArray(&entry == entries.data() ? kOld : kNew));
    }

    FixedClock clock { utc("2026-03-01T09:00:00Z") };
    FixedClock laterClock { utc("2026-03-01T09:02:00Z") };
    ChangeJournal journal { path(u"journal"_qs), clock };
};

TEST_F(FailingJournal, KeepsAWholeEntryOrNone)
{
    const Calls kept { "mkdir", "openat", "flock", "unlinkat", "write", "fsync", "renameat2" };
    for (const int code : kCodes) {
        int errors = 0;
        bool isOver = false;
        for (int number = 1; !isOver; ++number) {
            restart();
            const int descriptors = openDescriptors();
            const Result result = run({ Fault::Fails, number, code }, [this] { return keep(); });
            SCOPED_TRACE(testing::Message() << result.failed << ", call " << number << ": " << std::strerror(code));
            EXPECT_EQ(openDescriptors(), descriptors);
            EXPECT_THAT(result.outcome, AnyOf("Done", EndsWith(std::string("/journal: ") + std::strerror(code))));
            expectWholeEntries(result.isError() ? 1 : 2);
            EXPECT_TRUE(result.failed == "unlinkat" || files().size() == (result.isError() ? 2 : 4)) << files().size();
            errors += result.isError() ? 1 : 0;
            isOver = result.failed.empty();
            EXPECT_TRUE(!isOver || result.met == kept);
        }
        EXPECT_GE(errors, 4);
    }
}

TEST_F(FailingJournal, AFolderThatCouldNotBeMadeIsMadeTheNextTime)
{
    bool isOver = false;
    int number = 1;
    for (; !isOver; ++number) {
        SCOPED_TRACE(number);
        ChangeJournal deep(path(u"deep%1/mintaro/journal"_qs.arg(number)), clock);
        const std::function<std::string()> keep = [&] {
            return deep.keep({ u"/c"_qs, kItem }, kNew, {}).toStdString();
        };
        const Result result = run({ Fault::Fails, number, EIO }, keep);
        EXPECT_NE(keep(), "");
        EXPECT_EQ(deep.entries().size(), result.isError() ? 1U : 2U);
        isOver = result.failed.empty();
    }
    EXPECT_GE(number, 20);
}

TEST_F(FailingJournal, KilledAtAnyMomentKeepsAWholeEntryOrNone)
{
    int kills = 0;
    for (bool isOver = false; !isOver; kills += isOver ? 0 : 1) {
        SCOPED_TRACE(kills + 1);
        restart();
        isOver = !isKilled({ Fault::IsKilled, kills + 1 }, [this] { return keep(); });
        const std::size_t count = journal.entries().size();
        EXPECT_THAT(count, AnyOf(1U, 2U));
        expectWholeEntries(count);
        (void)ChangeJournal(path(u"journal"_qs), laterClock).keep({ u"/c"_qs, kItem }, kNew, {});
        expectWholeEntries(count + 1);
        EXPECT_EQ(files().size(), static_cast<qsizetype>(2 * (count + 1))) << "what the crash left is gone";
    }
    EXPECT_GE(kills, 10);
}

} // namespace

} // namespace mintaro
