#include "Platform/EventKit/Folders/FoldersBackend.h"
#include "Platform/Foundation/Translations.h"

#include "StoreFixture.h"

#include <gmock/gmock.h>

#include <functional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mintaro {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class FoldersBackendTest : public StoreFixture
{
protected:
    [[nodiscard]] std::unique_ptr<FoldersBackend> backendOn(const QString &root)
    {
        auto backend = std::make_unique<FoldersBackend>(baseFolders(), path(root), logger());
        EXPECT_TRUE(backend->requestAccess());
        return backend;
    }

    [[nodiscard]] static std::vector<std::string> titles(const std::vector<StoreCollection> &collections)
    {
        std::vector<std::string> titles;
        for (const StoreCollection &collection : collections)
            titles.push_back(collection.title.toStdString());
        return titles;
    }

    [[nodiscard]] static std::vector<std::string> names(const std::vector<ObjectState> &objects)
    {
        std::vector<std::string> names;
        for (const ObjectState &object : objects)
            names.push_back(object.name.toStdString());
        return names;
    }
};

using File = std::pair<QString, QByteArray>;

struct LayoutCase
{
    const char *rule;
    std::vector<File> files;
    std::vector<std::string> titles;
};

TEST_F(FoldersBackendTest, FindsTheCollectionsOfARoot)
{
    const LayoutCase cases[] = {
        { "an empty sub-folder is a collection", { { u"a/color"_qs, "" }, { u"b/keep"_qs, "" } }, { "a", "b" } },
        { "a hidden folder is none", { { u".cache/x.ics"_qs, "" }, { u"a/x.ics"_qs, "" } }, { "a" } },
        { "a file is none", { { u"notes"_qs, "" }, { u"a/x.ics"_qs, "" } }, { "a" } },
        { "deeper folders are none", { { u"a/deep/x.ics"_qs, "" } }, { "a" } },
        { "a root that holds items is one itself", { { u"x.ics"_qs, "" } }, { "ROOT" } },
        { "a root with a colour is one itself", { { u"color"_qs, "#fff" } }, { "ROOT" } },
        { "displayname names it, without white space around", { { u"a/displayname"_qs, " Work\t\n" } }, { "Work" } },
        { "a displayname that is no text is no name", { { u"a/displayname"_qs, "\xff\xfe" } }, { "a" } },
        { "order sorts, what has none comes last",
            { { u"a/x"_qs, "" }, { u"b/order"_qs, "10\n" }, { u"c/order"_qs, "9" } }, { "c", "b", "a" } },
    };
    int number = 0;
    for (const LayoutCase &row : cases) {
        SCOPED_TRACE(row.rule);
        const QString root = QStringLiteral("root%1").arg(number++);
        for (const auto &[name, bytes] : row.files)
            put(root + u'/' + name, bytes);
        std::vector<std::string> expected = row.titles;
        std::replace(expected.begin(), expected.end(), std::string("ROOT"), root.toStdString());
        EXPECT_EQ(titles(backendOn(root)->collections()), expected);
    }
}

TEST_F(FoldersBackendTest, TellsHowACollectionLooks)
{
    put(u".my_calendars/a/color"_qs, "#30A46Cff\n");
    put(u".my_calendars/b/color"_qs, "green");
    const std::vector<StoreCollection> found = backendOn(u".my_calendars"_qs)->collections();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].color, Color::fromHex(u"#30a46c"));
    EXPECT_EQ(found[1].color, std::nullopt);
    EXPECT_EQ(found[0].sourceTitle, u"My calendars"_qs);
    EXPECT_TRUE(found[0].isWritable);
}

TEST_F(FoldersBackendTest, AFolderReachedTwiceIsOneCollectionWithItsOwnIdentifier)
{
    putFolder(u"real/a"_qs);
    ASSERT_TRUE(QFile::link(path(u"real"_qs), path(u"link"_qs)));
    const QByteArray roots = QStringLiteral("root = %1\nroot = %2\n").arg(path(u"link"_qs), path(u"real"_qs)).toUtf8();
    put(u"config/mintaro/store.conf"_qs, roots);
    FoldersBackend backend(baseFolders(), std::nullopt, logger());
    ASSERT_TRUE(backend.requestAccess());
    const std::vector<StoreCollection> found = backend.collections();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].identifier, path(u"real/a"_qs));
    EXPECT_EQ(found[0].identifier, backendOn(u"link"_qs)->collections().at(0).identifier);
}

TEST_F(FoldersBackendTest, ACollectionThatMustNotBeWrittenIsReadOnly)
{
    putFolder(u"khal/a"_qs);
    put(u"config/khal/config"_qs,
        QStringLiteral("[calendars]\n[[a]]\npath = %1\nreadonly = True\n").arg(path(u"khal/a"_qs)).toUtf8());
    FoldersBackend backend(baseFolders(), std::nullopt, logger());
    ASSERT_TRUE(backend.requestAccess());
    ASSERT_EQ(backend.collections().size(), 1U);
    EXPECT_FALSE(backend.collections()[0].isWritable);
}

TEST_F(FoldersBackendTest, ListsFilesThatEndInIcs)
{
    for (const char *name : { "a.ics", ".hidden.ics", "new\nline.ics", "a.ics.tmp", "tmpab12cd", "a.ICS", "color" })
        put(u"r/c/"_qs + QString::fromUtf8(name), "text");
    putFolder(u"r/c/folder.ics"_qs);
    put(u"elsewhere/real"_qs, "linked");
    ASSERT_TRUE(QFile::link(path(u"elsewhere/real"_qs), path(u"r/c/link.ics"_qs)));
    const auto backend = backendOn(u"r"_qs);
    const QString collection = path(u"r/c"_qs);
    EXPECT_THAT(
        names(backend->objects(collection)), UnorderedElementsAre(".hidden.ics", "a.ics", "link.ics", "new\nline.ics"));
    EXPECT_EQ(backend->read(collection, u"link.ics"_qs), QByteArray("linked"));
    EXPECT_EQ(backend->read(collection, u"new\nline.ics"_qs), QByteArray("text"));
    EXPECT_EQ(backend->describe(collection, u"new\nline.ics"_qs), collection + u"/new\\x0aline.ics"_qs);
}

TEST_F(FoldersBackendTest, TheRevisionTellsStatesApart)
{
    const QByteArray file = path(u"r/c/x.ics"_qs).toUtf8();
    const auto setTime = [&file](long nanosecond) {
        const timespec times[] = { { 1700000000, nanosecond }, { 1700000000, nanosecond } };
        ASSERT_EQ(::utimensat(AT_FDCWD, file.constData(), times, 0), 0);
    };
    const struct
    {
        const char *rule;
        std::function<void()> act;
    } cases[] = {
        { "a nanosecond later", [&] { setTime(2); } },
        { "as long, with its old time given back",
            [&] {
                put(u"r/c/x.ics"_qs, "two");
                setTime(1);
            } },
        { "another file as long",
            [&] {
                put(u"r/c/x.new"_qs, "two");
                ASSERT_EQ(std::rename(path(u"r/c/x.new"_qs).toUtf8().constData(), file.constData()), 0);
                setTime(1);
            } },
        { "a mode that may let it be read", [&] { ASSERT_EQ(::chmod(file.constData(), 0640), 0); } },
    };
    put(u"r/c/x.ics"_qs, "one");
    const auto backend = backendOn(u"r"_qs);
    const QString collection = path(u"r/c"_qs);
    const auto revision = [&] { return backend->object(collection, u"x.ics"_qs).value().revision; };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.rule);
        setTime(1);
        awaitSettledFiles();
        const ObjectRevision before = revision();
        EXPECT_EQ(before, backend->objects(collection).at(0).revision);
        row.act();
        awaitSettledFiles();
        EXPECT_NE(revision(), before);
    }
    ASSERT_TRUE(QFile::remove(QString::fromUtf8(file)));
    EXPECT_FALSE(backend->object(collection, u"x.ics"_qs));
}

TEST_F(FoldersBackendTest, AFileThatWasJustWrittenIsLookedAtAgain)
{
    putFolder(u"r/c"_qs);
    const auto backend = backendOn(u"r"_qs);
    const auto revision = [&] { return backend->object(path(u"r/c"_qs), u"x.ics"_qs).value().revision; };
    put(u"r/c/x.ics"_qs, "one");
    const ObjectRevision fresh = revision();
    awaitSettledFiles();
    EXPECT_NE(revision(), fresh) << "a second change within a tick of the clock would be missed";
}

TEST_F(FoldersBackendTest, MakesItsOwnRootWhereNothingIsConfigured)
{
    FoldersBackend backend(baseFolders(), std::nullopt, logger());
    ASSERT_TRUE(backend.requestAccess());
    const std::vector<StoreCollection> made = backend.collections();
    EXPECT_THAT(titles(made), ElementsAre("Calendar", "Reminders"));
    EXPECT_TRUE(made[0].isDefault);
    EXPECT_FALSE(made[1].isDefault);
    EXPECT_FALSE(made[0].isReminderList);
    EXPECT_TRUE(made[1].isReminderList);
    EXPECT_THAT(QDir(path(u"data/mintaro"_qs)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        ElementsAre(u"calendars"_qs));
}

TEST_F(FoldersBackendTest, NamesWhatItMakesInTheLanguageOfTheTexts)
{
    const auto texts = installTranslations(Locale::fromIdentifier(u"it_IT"_qs));
    FoldersBackend backend(baseFolders(), std::nullopt, logger());
    ASSERT_TRUE(backend.requestAccess());
    EXPECT_THAT(titles(backend.collections()), ElementsAre("Calendario", "Promemoria"));
}

TEST_F(FoldersBackendTest, LeavesAnExistingRootOfItsOwnAlone)
{
    put(u"data/mintaro/calendars/mine/x.ics"_qs, "x");
    FoldersBackend backend(baseFolders(), std::nullopt, logger());
    ASSERT_TRUE(backend.requestAccess());
    EXPECT_THAT(titles(backend.collections()), ElementsAre("mine"));
}

TEST_F(FoldersBackendTest, AccessFailsWhereAConfiguredRootCannotBeRead)
{
    put(u"file"_qs, "no folder");
    EXPECT_FALSE(FoldersBackend(baseFolders(), path(u"file"_qs), logger()).requestAccess());
    EXPECT_THAT(logged(), ElementsAre(path(u"file"_qs) + u": no folder"_qs));
    EXPECT_TRUE(FoldersBackend(baseFolders(), path(u"unmounted/disk"_qs), logger()).requestAccess());

    put(u"data"_qs, "nothing can be made below a file");
    EXPECT_FALSE(FoldersBackend(baseFolders(), std::nullopt, logger()).requestAccess());
}

TEST_F(FoldersBackendTest, AConfigurationWithoutSenseIsAnError)
{
    put(u"config/mintaro/store.conf"_qs, "root\n");
    EXPECT_THROW((void)FoldersBackend(baseFolders(), std::nullopt, logger()).requestAccess(), EKError);
    putFolder(u"r/a"_qs);
    EXPECT_THAT(titles(backendOn(u"r"_qs)->collections()), ElementsAre("a")) << "a given root asks no configuration";
}

} // namespace

} // namespace mintaro
