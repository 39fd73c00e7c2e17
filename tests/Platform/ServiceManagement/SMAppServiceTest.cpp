#include "Platform/ServiceManagement/SMAppService.h"

#include "Platform/AppKit/DesktopEntry.h"
#include "support/Printers.h"
#include "support/WithoutPrivileges.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QProcessEnvironment>
#include <QTemporaryDir>

namespace mintaro {
namespace {

using Status = SMAppService::Status;

QString read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void write(const QString &path, const QString &text, bool isProgram = false)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0
        || (isProgram && !file.setPermissions(file.permissions() | QFile::ExeOther | QFile::ExeUser)))
        throw std::runtime_error("cannot write");
}

class SMAppServiceTest : public testing::Test
{
protected:
    SMAppServiceTest() { write(program, {}, true); }

    [[nodiscard]] SMAppService service() const { return SMAppService({ userFolder, { far, system }, program }); }
    /// "PROGRAM" in the text stands for one that exists.
    void writeEntry(const QString &path, const char *lines) const
    {
        QString text = u"[Desktop Entry]\nType=Application\nName=Mine\n"_qs + QLatin1String(lines);
        write(path, text.replace(u"PROGRAM"_qs, program));
    }

    const QTemporaryDir folder;
    QString userFolder = folder.filePath(u"config/autostart"_qs);
    const QString far = folder.filePath(u"absent/autostart"_qs);
    const QString system = folder.filePath(u"xdg/autostart"_qs);
    const QString userEntry = userFolder + u"/dev.velmora.mintaro.desktop"_qs;
    const QString systemEntry = system + u"/dev.velmora.mintaro.desktop"_qs;
    QString program = folder.filePath(u"bin/mintaro"_qs);
};

struct StatusCase
{
    const char *name;
    const char *user; ///< lines of the entry; null: there is none
    const char *system;
    Status status;
};

class StatusTest : public SMAppServiceTest, public testing::WithParamInterface<StatusCase>
{
};

TEST_P(StatusTest, IsSwitchedByTheUser)
{
    const StatusCase &row = GetParam();
    if (row.user)
        writeEntry(userEntry, row.user);
    if (row.system)
        writeEntry(systemEntry, row.system);
    EXPECT_EQ(service().status(), row.status);
    service().registerService();
    EXPECT_EQ(service().status(), Status::Enabled);
    service().unregisterService();
    EXPECT_EQ(service().status(), Status::NotRegistered);
    EXPECT_EQ(QFile::exists(userEntry), row.system != nullptr) << "only what hides another is needed";
}

INSTANTIATE_TEST_SUITE_P(Rows, StatusTest,
    testing::Values(StatusCase { "None", nullptr, nullptr, Status::NotRegistered },
        StatusCase { "User", "Exec=PROGRAM\n", nullptr, Status::Enabled },
        StatusCase { "FoundInThePath", "Exec=sh\nTryExec=sh\n", nullptr, Status::Enabled },
        StatusCase { "Hidden", "Exec=PROGRAM\nHidden=true\n", nullptr, Status::NotRegistered },
        StatusCase { "NotHidden", "Exec=PROGRAM\nHidden=false\n", nullptr, Status::Enabled },
        StatusCase {
            "OffByItsDesktop", "Exec=PROGRAM\nX-GNOME-Autostart-enabled=false\n", nullptr, Status::NotRegistered },
        StatusCase { "OnByItsDesktop", "Exec=PROGRAM\nX-GNOME-Autostart-enabled=true\n", nullptr, Status::Enabled },
        StatusCase { "ProgramIsGone", "Exec=PROGRAM-1\n", nullptr, Status::NotRegistered },
        StatusCase { "TriedProgramIsGone", "Exec=PROGRAM\nTryExec=PROGRAM-1\n", nullptr, Status::NotRegistered },
        StatusCase { "StartsNothing", "", nullptr, Status::NotRegistered },
        StatusCase { "OtherGroup", "[Desktop Action]\nExec=PROGRAM\n", nullptr, Status::NotRegistered },
        StatusCase { "System", nullptr, "Exec=PROGRAM\n", Status::Enabled },
        StatusCase { "SystemsProgramIsGone", nullptr, "Exec=PROGRAM-1\n", Status::NotRegistered },
        StatusCase { "UserHidesSystems", "Hidden=true\n", "Exec=PROGRAM\n", Status::NotRegistered },
        StatusCase { "UsersComesFirst", "Exec=PROGRAM-1\n", "Exec=PROGRAM\n", Status::NotRegistered },
        StatusCase { "SystemsIsHidden", "Exec=PROGRAM\n", "Hidden=true\n", Status::Enabled }),
    kRowName);

TEST_F(SMAppServiceTest, StartsTheProgramWhateverItsPath)
{
    for (const char *name : { "mintaro", "my apps/Min Taro", R"(quo"te $HOME `x` back\slash)", "100% %f",
             "it's; (a|b) & c", "tab\tline\nbreak", "perch\xc3\xa9" }) {
        program = folder.filePath(QString::fromUtf8(name));
        write(program, {}, true);
        service().registerService();
        EXPECT_EQ(service().status(), Status::Enabled) << name;
        const auto values = desktopEntryValues(userEntry);
        EXPECT_EQ(execArguments(values.value(u"Exec"_qs), {}), QStringList { program });
        EXPECT_EQ(values.value(u"TryExec"_qs), program);
    }
}

TEST_F(SMAppServiceTest, QuotesByTheSpecification)
{
    program = u"/opt/a b$\"c\\%d"_qs;
    service().registerService();
    EXPECT_THAT(read(userEntry).toStdString(), testing::HasSubstr(R"(
Exec="/opt/a b\\$\\"c\\\\%%d"
TryExec=/opt/a b$"c\\%d
)"));
}

TEST_F(SMAppServiceTest, KeepsWhatOthersHaveAdded)
{
    writeEntry(userEntry,
        "# mine\nExec=/old/mintaro\nName[fr]=Mienne\nX-GNOME-Autostart-Delay=5\nHidden=true\n"
        "X-GNOME-Autostart-enabled=false\n\n[Desktop Action New]\nExec=other\n");
    service().registerService();
    const QString once = read(userEntry);
    service().registerService();
    EXPECT_EQ(read(userEntry), once);
    EXPECT_TRUE(
        once.endsWith(u"\n# mine\nName[fr]=Mienne\nX-GNOME-Autostart-Delay=5\n[Desktop Action New]\nExec=other\n"_qs))
        << once.toStdString();
    EXPECT_FALSE(once.contains(u"/old/mintaro"_qs) || once.contains(u"Hidden"_qs) || once.contains(u"enabled"_qs));
    EXPECT_EQ(QDir(userFolder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
}

TEST_F(SMAppServiceTest, AFailureIsToldAndChangesNothing)
{
    writeEntry(userEntry, "Exec=PROGRAM\n");
    const QString before = read(userEntry);
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::Permissions(0x5755)));
    ASSERT_TRUE(
        QFile::setPermissions(userFolder, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    {
        const WithoutPrivileges nobody;
        ASSERT_TRUE(nobody.isActive());
        EXPECT_THROW(service().registerService(), FileError);
        EXPECT_THROW(service().unregisterService(), FileError);
    }
    ASSERT_TRUE(QFile::setPermissions(userFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_EQ(read(userEntry), before);
    EXPECT_EQ(QDir(userFolder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
    userFolder = userEntry + u"/autostart"_qs;
    EXPECT_THROW(service().registerService(), FileError);
    program.clear();
    userFolder = folder.filePath(u"sandbox/autostart"_qs);
    EXPECT_THROW(service().registerService(), FileError);
    EXPECT_FALSE(QFile::exists(userFolder));
}

TEST(LastingProgramTest, IsWhatTheSessionCanStart)
{
    QProcessEnvironment environment;
    EXPECT_EQ(lastingProgram(u"/usr/bin/mintaro"_qs, environment), u"/usr/bin/mintaro"_qs);
    environment.insert(u"APPIMAGE"_qs, u"/home/me/Mintaro.AppImage"_qs);
    environment.insert(u"APPDIR"_qs, u"/tmp/.mount_Mint"_qs);
    EXPECT_EQ(lastingProgram(u"/tmp/.mount_Mint/usr/bin/mintaro"_qs, environment), u"/home/me/Mintaro.AppImage"_qs);
    EXPECT_EQ(lastingProgram(u"/usr/bin/mintaro"_qs, environment), u"/usr/bin/mintaro"_qs)
        << "another AppImage's child";
    environment.insert(u"FLATPAK_ID"_qs, u"dev.velmora.mintaro"_qs);
    EXPECT_EQ(lastingProgram(u"/app/bin/mintaro"_qs, environment), QString());
}

} // namespace
} // namespace mintaro
