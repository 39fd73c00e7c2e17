#include "StoreFixture.h"
#include "UserChanges.h"

#include <gmock/gmock.h>

#include <QDirIterator>

#include <csignal>
#include <iostream>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

namespace mintaro {

namespace {

using namespace std::chrono;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSubsetOf;

/// Texts by their path below the root.
using Files = std::map<std::string, QByteArray>;

constexpr char kTemporary[] = "/.mintaro.tmp";

bool isTemporary(const std::string &path)
{
    return path.ends_with(kTemporary);
}

/// How a process that changes the store ended.
struct Course
{
    bool isEnded = false;
    nanoseconds length {};
};

/// Homes where a process of its own carries out a change, and is killed in it.
class CrashTest : public StoreFixture
{
protected:
    /// Lays a store in a new home.
    void SetUp() override
    {
        ++m_homes;
        for (const auto &[file, text] : storeBeforeUserChanges())
            put(home() + u"/root/"_qs + QString::fromStdString(file), text);
    }

    [[nodiscard]] QString home() const { return QStringLiteral("home%1").arg(m_homes); }

    /// Carries out a change, and kills it so long after its beginning.
    [[nodiscard]] Course carryOut(const std::string &change, std::optional<nanoseconds> delay = std::nullopt) const
    {
        int ends[2] = {};
        EXPECT_EQ(::pipe(ends), 0);
        const QByteArray folder = path(home()).toUtf8();
        const pid_t child = ::fork();
        if (child == 0) {
            ::dup2(ends[1], STDOUT_FILENO);
            ::close(ends[0]);
            ::close(ends[1]);
            ::execl(MINTARO_STORE_CHANGER, MINTARO_STORE_CHANGER, folder.constData(), change.c_str(), nullptr);
            std::_Exit(127);
        }
        ::close(ends[1]);
        char mark = 0;
        EXPECT_TRUE(::read(ends[0], &mark, 1) == 1 && mark == 'b');
        const auto begin = steady_clock::now();
        if (delay) {
            std::this_thread::sleep_for(*delay);
            ::kill(child, SIGKILL);
        }
        const bool isEnded = ::read(ends[0], &mark, 1) == 1 && mark == 'e';
        const auto end = steady_clock::now();
        ::close(ends[0]);
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : status == 0) << status;
        return { isEnded, end - begin };
    }

    /// What lies below the root. What the change created has a random identifier, which is put right here.
    [[nodiscard]] Files files() const
    {
        const Files before = storeBeforeUserChanges();
        Files files;
        const QString root = path(home() + u"/root"_qs);
        QDirIterator entries(root, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            QFile file(entries.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
            QString relative = entries.filePath().mid(root.size() + 1);
            QByteArray text = file.readAll();
            const QString name = entries.fileInfo().completeBaseName();
            if (!before.contains(relative.toStdString()) && !isTemporary(relative.toStdString())) {
                relative.replace(name, u"created"_qs);
                text.replace("UID:" + name.toUtf8(), "UID:created");
            }
            files.emplace(relative.toStdString(), text);
        }
        return files;
    }

    /// The texts of the journal's entries, of which each must be readable.
    [[nodiscard]] std::vector<std::string> journal() const
    {
        const SystemClock clock;
        const ChangeJournal journal(path(home() + u"/state/mintaro/journal"_qs), clock);
        std::vector<std::string> texts;
        for (const ChangeJournal::Entry &entry : journal.entries()) {
            EXPECT_TRUE(journal.text(entry.id)) << entry.id.toStdString();
            texts.push_back(journal.text(entry.id).value_or(QByteArray()).toStdString());
        }
        return texts;
    }

    void expectAMomentBetweenTwoSteps(const Files &before, const Files &after, const Files &found) const
    {
        std::vector<std::string> displaced;
        bool isCreatedMissing = false;
        for (const auto &[file, text] : after)
            isCreatedMissing = isCreatedMissing || (!before.contains(file) && !found.contains(file));
        for (const auto &[file, text] : found) {
            const bool isOld = before.contains(file) && before.at(file) == text;
            const bool isNew = after.contains(file) && after.at(file) == text;
            EXPECT_TRUE(isOld || isNew || isTemporary(file)) << file << '\n' << text.toStdString();
        }
        for (const auto &[file, text] : before) {
            const bool isGone = !found.contains(file);
            EXPECT_TRUE(!isGone || !after.contains(file)) << file << " is gone";
            if (isGone || found.at(file) != text)
                displaced.push_back(text.toStdString());
        }
        EXPECT_TRUE(displaced.empty() || !isCreatedMissing) << "what was moved is nowhere";
        EXPECT_THAT(displaced, IsSubsetOf(journal())) << "what was displaced is not in the journal";
    }

    /// Everything can be read without a complaint, and the next write takes the litter away.
    void expectAStoreToGoOnWith(const Files &before, const Files &after)
    {
        const FixedClock clock(Date {});
        StoreUser user(path(home()), clock, StoreUser::Index::No, logger());
        EXPECT_THAT(user.events(), testing::Not(IsEmpty()));
        EXPECT_THAT(logged(), ElementsAre());
        for (const QString &calendar : { u"work"_qs, u"private"_qs }) {
            EKEvent event;
            event.setTitle(u"Next"_qs);
            event.setCalendar(user.calendar(calendar));
            event.setStartDate(Date {} + days(1));
            event.setEndDate(Date {} + days(2));
            (void)user.store().save(event, EKSpan::ThisEvent);
        }
        for (const auto &[file, text] : files())
            EXPECT_TRUE(before.contains(file) || after.contains(file) || file.ends_with("/created.ics")) << file;
    }

private:
    int m_homes = 0;
};

TEST_F(CrashTest, KilledAtAnyMomentLeavesTheOldOrTheNew)
{
    const int kills = qEnvironmentVariableIsSet("MINTARO_LONG_TESTS") ? 500 : 40;
    const Files before = storeBeforeUserChanges();
    struct Expected
    {
        Files after;
        nanoseconds length;
    };
    std::map<std::string, Expected> expected;
    std::mt19937 random(std::random_device {}());
    int unbegun = 0;
    int within = 0;
    int cut = 0;
    int done = 0;
    auto change = userChanges().begin();
    for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
        const std::string &name = change->first;
        SCOPED_TRACE(name);
        if (!expected.contains(name)) {
            SetUp();
            const Course whole = carryOut(name);
            ASSERT_TRUE(whole.isEnded);
            expected[name] = { files(), whole.length };
            ASSERT_NE(expected[name].after, before);
            expectAMomentBetweenTwoSteps(before, expected[name].after, expected[name].after);
        }
        const auto &[after, length] = expected.at(name);
        SetUp();
        std::uniform_int_distribution<nanoseconds::rep> delay(0, length.count());
        const bool isEnded = carryOut(name, nanoseconds(delay(random))).isEnded;
        const Files found = files();
        const bool isUnbegun = found == before && journal().empty();
        ++(isUnbegun ? unbegun : isEnded ? done : within);
        cut += found != before && found != after ? 1 : 0;
        EXPECT_TRUE(!isEnded || found == after);
        expectAMomentBetweenTwoSteps(before, after, found);
        expectAStoreToGoOnWith(before, after);
        if (++change == userChanges().end())
            change = userChanges().begin();
    }
    std::cout << kills << " kills: " << unbegun << " before anything was written, " << within << " within (" << cut
              << " with something half done in the store), " << done << " after the end\n";
    EXPECT_GT(within, 0);
}

} // namespace

} // namespace mintaro
