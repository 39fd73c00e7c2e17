#include "Platform/EventKit/Folders/FoldersBackend.h"

#include "StoreFixture.h"
#include "support/WithoutPrivileges.h"

#include <gmock/gmock.h>

#include <QScopeGuard>

#include <functional>

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mintaro {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class FolderWriting : public StoreFixture
{
protected:
    void SetUp() override
    {
        putFolder(u"r/c"_qs);
        open();
    }

    void open()
    {
        backend = std::make_unique<FoldersBackend>(baseFolders(), path(u"r"_qs), logger());
        ASSERT_TRUE(backend->requestAccess());
        (void)backend->collections();
    }

    [[nodiscard]] QByteArray textOf(const QString &relative) const
    {
        QFile file(path(relative));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }

    [[nodiscard]] QStringList entries(const QString &folder = u"r/c"_qs) const
    {
        return QDir(path(folder))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    [[nodiscard]] struct stat status(const QString &relative) const
    {
        struct stat status = {};
        EXPECT_EQ(::lstat(path(relative).toUtf8().constData(), &status), 0);
        return status;
    }

    /// The text of the error that `write` throws; empty where it throws none.
    template <typename Write>
    [[nodiscard]] static std::string problemOf(const Write &write)
    {
        try {
            (void)write();
            return {};
        } catch (const EKError &error) {
            return error.what();
        }
    }

    [[nodiscard]] WriteOutcome replace(const QByteArray &base, const QByteArray &text) const
    {
        return backend->replace(collection(), u"x.ics"_qs, base, text);
    }
    [[nodiscard]] WriteOutcome remove(const QByteArray &base) const
    {
        return backend->remove(collection(), u"x.ics"_qs, base);
    }
    [[nodiscard]] bool create(const QByteArray &text) const { return backend->create(collection(), u"x.ics"_qs, text); }
    [[nodiscard]] QString collection() const { return path(u"r/c"_qs); }

    std::unique_ptr<FoldersBackend> backend;
};

TEST_F(FolderWriting, WritesWhatItIsGivenWhereTheBaseStands)
{
    EXPECT_TRUE(create("one"));
    EXPECT_EQ(textOf(u"r/c/x.ics"_qs), "one");
    EXPECT_FALSE(create("two"));
    EXPECT_EQ(replace("two", "three"), WriteOutcome::Changed);
    EXPECT_EQ(textOf(u"r/c/x.ics"_qs), "one");
    const QByteArray large(7 * 1024 * 1024, 'x');
    EXPECT_EQ(replace("one", large), WriteOutcome::Done);
    EXPECT_EQ(textOf(u"r/c/x.ics"_qs), large);
    EXPECT_EQ(remove("one"), WriteOutcome::Changed);
    EXPECT_THAT(entries(), ElementsAre(u"x.ics"_qs));
    EXPECT_EQ(remove(large), WriteOutcome::Done);
    EXPECT_THAT(entries(), ElementsAre());
    EXPECT_EQ(replace(large, "two"), WriteOutcome::Gone);
    EXPECT_EQ(remove(large), WriteOutcome::Gone);
    EXPECT_THAT(entries(), ElementsAre());
    EXPECT_THAT(logged(), ElementsAre());
}

TEST_F(FolderWriting, AnotherProgramsWriteStandsBetweenReadingAndWriting)
{
    const struct
    {
        const char *rule;
        std::function<void()> act;
        QByteArray standing;
        WriteOutcome outcome;
    } cases[] = {
        { "in place", [&] { put(u"r/c/x.ics"_qs, "theirs"); }, "theirs", WriteOutcome::Changed },
        { "by rename",
            [&] {
                put(u"r/c/tmpab12cd"_qs, "theirs");
                ASSERT_EQ(std::rename(path(u"r/c/tmpab12cd"_qs).toUtf8().constData(),
                              path(u"r/c/x.ics"_qs).toUtf8().constData()),
                    0);
            },
            "theirs", WriteOutcome::Changed },
        { "as long as the base", [&] { put(u"r/c/x.ics"_qs, "bass"); }, "bass", WriteOutcome::Changed },
        { "the beginning of the base", [&] { put(u"r/c/x.ics"_qs, "bas"); }, "bas", WriteOutcome::Changed },
        { "removed", [&] { ASSERT_TRUE(QFile::remove(path(u"r/c/x.ics"_qs))); }, "(none)", WriteOutcome::Gone },
        { "with its folder", [&] { ASSERT_TRUE(QDir(path(u"r/c"_qs)).removeRecursively()); }, "(none)",
            WriteOutcome::Gone },
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.rule);
        put(u"r/c/x.ics"_qs, "base");
        row.act();
        EXPECT_EQ(replace("base", "ours"), row.outcome);
        EXPECT_EQ(textOf(u"r/c/x.ics"_qs), row.standing);
        EXPECT_EQ(remove("base"), row.outcome);
        EXPECT_EQ(textOf(u"r/c/x.ics"_qs), row.standing);
        EXPECT_LE(entries().size(), 1);
    }
}

TEST_F(FolderWriting, AnItemKeepsItsPermissionsAndItsGroup)
{
    for (const mode_t mode : { 0600U, 0640U, 0664U, 0444U }) {
        put(u"r/c/x.ics"_qs, "one");
        ASSERT_EQ(::chmod(path(u"r/c/x.ics"_qs).toUtf8().constData(), mode), 0);
        const bool isGroupMine = ::chown(path(u"r/c/x.ics"_qs).toUtf8().constData(), static_cast<uid_t>(-1), 100) == 0;
        ASSERT_EQ(replace("one", "two"), WriteOutcome::Done);
        EXPECT_EQ(status(u"r/c/x.ics"_qs).st_mode & 07777, mode);
        EXPECT_TRUE(!isGroupMine || status(u"r/c/x.ics"_qs).st_gid == 100);
        ASSERT_EQ(remove("two"), WriteOutcome::Done);
    }
    const mode_t mask = ::umask(027);
    ASSERT_TRUE(create("one"));
    ::umask(mask);
    EXPECT_EQ(status(u"r/c/x.ics"_qs).st_mode & 07777, 0640U);
}

TEST_F(FolderWriting, ALinkStaysAndWhatItLeadsToIsWritten)
{
    put(u"elsewhere/real.ics"_qs, "one");
    ASSERT_TRUE(QFile::link(u"../../elsewhere/real.ics"_qs, path(u"r/c/x.ics"_qs)));
    EXPECT_EQ(replace("other", "two"), WriteOutcome::Changed);
    EXPECT_EQ(replace("one", "two"), WriteOutcome::Done);
    EXPECT_TRUE(S_ISLNK(status(u"r/c/x.ics"_qs).st_mode));
    EXPECT_EQ(textOf(u"elsewhere/real.ics"_qs), "two");
    EXPECT_THAT(entries(u"elsewhere"_qs), ElementsAre(u"real.ics"_qs));
    EXPECT_FALSE(create("three"));
    EXPECT_EQ(remove("one"), WriteOutcome::Changed);
    EXPECT_EQ(remove("two"), WriteOutcome::Done);
    EXPECT_THAT(entries(), ElementsAre());
    EXPECT_EQ(textOf(u"elsewhere/real.ics"_qs), "two");

    ASSERT_TRUE(QFile::link(u"nowhere.ics"_qs, path(u"r/c/x.ics"_qs)));
    EXPECT_FALSE(create("three")) << "what the name leads to is not ours to make";
    EXPECT_EQ(replace("one", "two"), WriteOutcome::Gone);
    EXPECT_EQ(remove("one"), WriteOutcome::Gone);
    EXPECT_THAT(entries(), ElementsAre(u"x.ics"_qs));
}

TEST_F(FolderWriting, NamesANewItemAfterItsIdentifierWhereThatIsPlain)
{
    const QString longest(200, u'a');
    for (const QString &uid : { u"abc"_qs, u"A-1_b.c+d"_qs, u"-"_qs, longest })
        EXPECT_EQ(backend->newName(uid), uid + u".ics"_qs);
    for (const QString &uid : { QString(), u"."_qs, u".hidden"_qs, u"a/b"_qs, u"a@b"_qs, u"caf\u00e9"_qs, u"a\n"_qs,
             u"a b"_qs, longest + u'a' }) {
        const QString name = backend->newName(uid);
        EXPECT_THAT(name.toStdString(), testing::MatchesRegex("[0-9a-f-]{36}\\.ics")) << uid.toStdString();
        EXPECT_NE(name, backend->newName(uid));
    }
}

TEST_F(FolderWriting, WhatCannotBeWrittenIsAnErrorThatNamesItAndSaysWhy)
{
    put(u"r/c/x.ics"_qs, "base");
    put(u"r/line\nbreak/color"_qs, "#fff");
    putFolder(u"r/c/folder.ics"_qs);
    open();
    const auto replaced = [this](const QString &folder, const QString &name) {
        return problemOf([&] { return backend->replace(path(folder), name, "base", "ours"); });
    };
    const auto created = [this](const QString &folder, const QString &name) {
        return problemOf([&] { return backend->create(path(folder), name, "ours"); });
    };
    const auto pathOf = [this](const char *place) { return path(QLatin1String(place)).toStdString(); };
    EXPECT_EQ(replaced(u"elsewhere"_qs, u"x.ics"_qs), pathOf("elsewhere/x.ics: no such calendar"));
    EXPECT_EQ(created(u"r/c"_qs, u"../x.ics"_qs), pathOf("r/c/../x.ics: this cannot be an item's name"));
    EXPECT_EQ(created(u"r/c"_qs, u".mintaro.tmp"_qs), pathOf("r/c/.mintaro.tmp: this cannot be an item's name"));
    EXPECT_EQ(replaced(u"r/c"_qs, u"folder.ics"_qs), pathOf("r/c/folder.ics: no regular file"));
    const QString tooLong(300, u'x');
    EXPECT_THAT(created(u"r/c"_qs, tooLong + u".ics"_qs), HasSubstr("File name too long"));
    ASSERT_TRUE(QDir(path(u"r/line\nbreak"_qs)).removeRecursively());
    EXPECT_EQ(created(u"r/line\nbreak"_qs, u"x.ics"_qs), pathOf("r/line\\x0abreak/x.ics: No such file or directory"));
    EXPECT_THAT(entries(), ElementsAre(u"folder.ics"_qs, u"x.ics"_qs));

    put(u"config/khal/config"_qs,
        QStringLiteral("[calendars]\n[[c]]\npath = %1\nreadonly = True\n").arg(collection()).toUtf8());
    backend = std::make_unique<FoldersBackend>(baseFolders(), std::nullopt, logger());
    ASSERT_TRUE(backend->requestAccess() && backend->collections().size() == 1);
    EXPECT_EQ(replaced(u"r/c"_qs, u"x.ics"_qs), pathOf("r/c/x.ics: the calendar is read-only"));
    EXPECT_EQ(textOf(u"r/c/x.ics"_qs), "base");
}

TEST_F(FolderWriting, APermissionThatWentIsAnError)
{
    put(u"r/c/x.ics"_qs, "base");
    ASSERT_EQ(::chmod(path().toUtf8().constData(), 0755), 0);
    ASSERT_EQ(::chmod(collection().toUtf8().constData(), 0555), 0);
    {
        const WithoutPrivileges nobody;
        if (!nobody.isActive() || ::access(collection().toUtf8().constData(), R_OK) != 0)
            GTEST_SKIP() << "cannot give up the superuser's privileges here";
        const std::string expected = (collection() + u"/x.ics: Permission denied"_qs).toStdString();
        EXPECT_EQ(problemOf([this] { return replace("base", "ours"); }), expected);
        EXPECT_EQ(problemOf([this] { return remove("base"); }), expected);
        EXPECT_EQ(problemOf([this] { return create("ours"); }), expected);
    }
    ASSERT_EQ(::chmod(collection().toUtf8().constData(), 0755), 0);
    EXPECT_EQ(textOf(u"r/c/x.ics"_qs), "base");
    EXPECT_THAT(entries(), ElementsAre(u"x.ics"_qs));
}

TEST_F(FolderWriting, AFullDiskLeavesTheOldText)
{
    const QByteArray place = collection().toUtf8();
    if (::mount("tmpfs", place.constData(), "tmpfs", 0, "size=256k") != 0)
        GTEST_SKIP() << "no file system can be mounted here";
    const auto unmount = qScopeGuard([&] { ::umount(place.constData()); });
    put(u"r/c/x.ics"_qs, "base");
    const QByteArray large(1024 * 1024, 'x');
    const std::string expected = (collection() + u"/x.ics: No space left on device"_qs).toStdString();
    EXPECT_EQ(problemOf([&] { return replace("base", large); }), expected);
    EXPECT_EQ(problemOf([&] { return backend->create(collection(), u"y.ics"_qs, large); }),
        (collection() + u"/y.ics: No space left on device"_qs).toStdString());
    EXPECT_EQ(textOf(u"r/c/x.ics"_qs), "base");
    EXPECT_THAT(entries(), ElementsAre(u"x.ics"_qs));
    EXPECT_EQ(replace("base", "ours"), WriteOutcome::Done);
}

TEST_F(FolderWriting, WhatAKilledProcessLeftGoesAndNobodyTakesItForAnItem)
{
    put(u"r/c/x.ics"_qs, "base");
    put(u"r/c/.mintaro.tmp"_qs, "half a te");
    EXPECT_EQ(backend->objects(collection()).size(), 1U);
    EXPECT_EQ(backend->collections().size(), 1U);
    EXPECT_EQ(replace("base", "ours"), WriteOutcome::Done);
    EXPECT_THAT(entries(), ElementsAre(u"x.ics"_qs));
}

TEST_F(FolderWriting, ProcessesOfOursLoseNothingOfEachOther)
{
    constexpr int kRounds = 300;
    put(u"r/c/x.ics"_qs, "0 0");
    const auto countUp = [this](int which) {
        for (int done = 0; done < kRounds;) {
            const QByteArray base = backend->read(collection(), u"x.ics"_qs).value();
            QList<QByteArray> counters = base.split(' ');
            counters[which] = QByteArray::number(counters[which].toInt() + 1);
            done += replace(base, counters.join(' ')) == WriteOutcome::Done ? 1 : 0;
        }
    };
    const pid_t child = ::fork();
    if (child == 0) {
        countUp(0);
        std::_Exit(0);
    }
    countUp(1);
    int result = -1;
    ASSERT_EQ(::waitpid(child, &result, 0), child);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(textOf(u"r/c/x.ics"_qs), "300 300");
    EXPECT_THAT(entries(), ElementsAre(u"x.ics"_qs));
}

} // namespace

} // namespace mintaro
