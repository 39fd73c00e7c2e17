#include "Platform/EventKit/Folders/StoreConfiguration.h"

#include "Platform/EventKit/StoreBackend.h"
#include "StoreFixture.h"

#include <gmock/gmock.h>

namespace mintaro {

namespace {

using testing::ElementsAre;

class StoreConfigurationTest : public StoreFixture
{
protected:
    [[nodiscard]] std::vector<std::string> loadedPaths() const
    {
        std::vector<std::string> paths;
        for (const ConfiguredFolder &folder : StoreConfiguration::load(baseFolders()).folders)
            paths.push_back(QDir(path()).relativeFilePath(folder.path).toStdString());
        return paths;
    }
};

TEST_F(StoreConfigurationTest, ReadsWhatUsersWrite)
{
    put(u"config/mintaro/store.conf"_qs,
        "# my calendars\n\nroot = ~/.calendars/   # all of them\n  root=$XDG_DATA_HOME/more\n"
        "root = \"~/with # and space\"\r\naddress = Me@Example.org\naddress = 'other@example.org'\n"
        "default-calendar = ~/.calendars/work\ndefault-reminders = ${HOME}/.calendars/todo\n");
    EXPECT_THAT(loadedPaths(), ElementsAre("home/.calendars", "data/more", "home/with # and space"));
    const StoreConfiguration configuration = StoreConfiguration::load(baseFolders());
    EXPECT_EQ(configuration.addresses, QStringList({ u"me@example.org"_qs, u"other@example.org"_qs }));
    EXPECT_EQ(configuration.defaultCalendar, path(u"home/.calendars/work"_qs));
    EXPECT_EQ(configuration.defaultReminders, path(u"home/.calendars/todo"_qs));
    EXPECT_FALSE(configuration.isOwnRoot);
}

TEST_F(StoreConfigurationTest, NamesFileAndLineOfWhatMakesNoSense)
{
    const struct
    {
        const char *text;
        const char *error;
    } cases[] = {
        { "# fine\nroot", ":2: \"root\" is not of the form key = value" },
        { "root = calendars", ":1: \"calendars\" is no path that begins with / or ~/" },
        { "root =", ":1: \"\" is no path that begins with / or ~/" },
        { "\nroots = /x", ":2: the key \"roots\" is not known" },
        { "address = me", ":1: \"me\" is no e-mail address" },
        { "address = me@a, you@b", ":1: \"me@a, you@b\" is no e-mail address" },
        { "address = mailto:me@a.org", ":1: \"mailto:me@a.org\" is no e-mail address" },
        { "default-calendar = /a\ndefault-calendar = /b", ":2: default-calendar is given twice" },
        { "[store]\nroot = /x", ":1: sections have no meaning here" },
        { "root = /\xff", ": the text is not UTF-8" },
    };
    const QString file = QStringLiteral("config/mintaro/store.conf");
    for (const auto &row : cases) {
        SCOPED_TRACE(row.text);
        put(file, row.text);
        try {
            (void)StoreConfiguration::load(baseFolders());
            ADD_FAILURE() << "no error";
        } catch (const EKError &error) {
            EXPECT_EQ(std::string(error.what()), path(file).toStdString() + row.error);
        }
    }
}

TEST_F(StoreConfigurationTest, AFolderInPlaceOfTheFileIsAnError)
{
    putFolder(u"config/mintaro/store.conf"_qs);
    EXPECT_THROW((void)StoreConfiguration::load(baseFolders()), EKError);
}

TEST_F(StoreConfigurationTest, WithoutRootsTakesTheFoldersOfOtherPrograms)
{
    putFolder(u"home/accounts/a"_qs);
    putFolder(u"home/accounts/b"_qs);
    put(u"config/mintaro/store.conf"_qs, "address = me@example.org\n");
    put(u"config/khal/config"_qs,
        "[calendars]\n  [[private]]\n  path = ~/.calendars/private/\n  color = '#30a46c'\n  readonly = True\n"
        "  [[all]]\n  path = ~/accounts/*/cal*\n  type = discover\n  addresses = Me@b.org, two@b.org\n"
        "  [[people]]\n  path = ~/contacts\n  type = birthdays\n[default]\npath = ~/nothing\n");
    put(u"home/.vdirsyncer/config"_qs,
        "[general]\nstatus_path = \"~/.status\"\n[storage local]\ntype = \"filesystem\"\npath = \"~/.calendars\"\n"
        "fileext = \".ics\"\n[storage people]\ntype = \"filesystem\"\npath = \"~/contacts\"\nfileext = \".vcf\"\n"
        "[storage remote]\ntype = \"caldav\"\nurl = \"https://dav.example.org\"\n");
    EXPECT_THAT(
        loadedPaths(), ElementsAre("home/.calendars/private", "home/accounts/a", "home/accounts/b", "home/.calendars"));
    const StoreConfiguration configuration = StoreConfiguration::load(baseFolders());
    const ConfiguredFolder &direct = configuration.folders[0];
    EXPECT_EQ(direct.kind, ConfiguredFolder::Kind::Collection);
    EXPECT_TRUE(direct.isReadOnly);
    EXPECT_EQ(direct.color, Color::fromHex(u"#30a46c"));
    const ConfiguredFolder &globbed = configuration.folders[1];
    EXPECT_EQ(globbed.kind, ConfiguredFolder::Kind::Root);
    EXPECT_EQ(globbed.pattern, u"cal*"_qs);
    EXPECT_EQ(globbed.addresses, QStringList({ u"me@b.org"_qs, u"two@b.org"_qs }));
    EXPECT_EQ(configuration.addresses, QStringList({ u"me@example.org"_qs }));
}

TEST_F(StoreConfigurationTest, WithoutAnythingHasARootOfItsOwn)
{
    const StoreConfiguration configuration = StoreConfiguration::load(baseFolders());
    EXPECT_THAT(loadedPaths(), ElementsAre("data/mintaro/calendars"));
    EXPECT_TRUE(configuration.isOwnRoot);
    EXPECT_EQ(configuration.defaultReminders, path(u"data/mintaro/calendars/reminders"_qs));
}

} // namespace

} // namespace mintaro
