#include "AutostartFolders.h"

#include <fakes/FullDisk.h>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrel::tests {

using Status = LoginItem::Status;
using testing::HasSubstr;
using testing::Not;

namespace {

class LoginItemChangeTest : public AutostartFolders {
protected:
    /// The program is there, and started.
    void expectRegisters() {
        EXPECT_EQ(item.registerItem(), std::nullopt);
        EXPECT_EQ(item.status(), Status::enabled);
    }

    std::string usersText() const { return read(usersEntry).toStdString(); }

    QStringList filesBeside() const {
        return QFileInfo(usersEntry).dir().entryList(QDir::Files | QDir::Hidden);
    }

    /// The reason, which is the system's, after the path.
    static std::string reason(const std::optional<QString> &error, const QString &path) {
        EXPECT_TRUE(error && error->startsWith(path + QStringLiteral(" cannot be changed: ")))
            << error.value_or(QStringLiteral("(no error)")).toStdString();
        return error.value_or(QString()).section(QStringLiteral(": "), 1).toStdString();
    }
};

} // namespace

TEST_F(LoginItemChangeTest, RegistersFromNothingOn) {
    expectRegisters();
    EXPECT_EQ(usersText(), "[Desktop Entry]\n"
                           "Type=Application\n"
                           "Version=1.0\n"
                           "Name=Vantrel\n"
                           "Comment=Never miss a meeting\n"
                           "Icon=org.vantrel.Vantrel\n"
                           "Terminal=false\n"
                           "StartupNotify=false\n"
                           "Exec=" +
                               program.toStdString() + "\n");
    EXPECT_EQ(filesBeside(), QStringList{QFileInfo(usersEntry).fileName()});
}

TEST_F(LoginItemChangeTest, MakesItsFoldersForTheirOwnerAlone) {
    expectRegisters();
    for (const char *made : {"config", "config/autostart"}) {
        struct stat status {};
        ASSERT_EQ(stat(QFile::encodeName(inFolder(made)).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0700u) << made;
    }
}

TEST_F(LoginItemChangeTest, RegistersWhatWasSwitchedOffAndKeepsTheRest) {
    write(usersEntry,
          "# mine\n\n" + entry("Name[de]=Alarm\nHidden=true\nX-GNOME-Autostart-enabled=false\n"
                               "X-MATE-Autostart-enabled=false\nX-GNOME-Autostart-Delay=5\n"
                               "\n[Desktop Action quit]\nName=Quit\n"));
    expectRegisters();
    EXPECT_EQ(usersText(), "# mine\n\n" + entry("Name[de]=Alarm\nX-GNOME-Autostart-Delay=5\n"
                                                "\n[Desktop Action quit]\nName=Quit\n")
                                              .toStdString());
}

TEST_F(LoginItemChangeTest, KeepsTheCommandOfTheUserWhenItSwitchesOn) {
    const QByteArray command = "Exec=env QT_SCALE_FACTOR=2 " + QFile::encodeName(program) + " \n";
    write(usersEntry, "[Desktop Entry]\nType=Application\n" + command + "Hidden=true\n");
    expectRegisters();
    EXPECT_THAT(usersText(), HasSubstr(command.trimmed().toStdString()));
}

TEST_F(LoginItemChangeTest, RegistersInADesktopThatTheEntryLeftOut) {
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    write(usersEntry, entry("OnlyShowIn=GNOME;\n"));
    expectRegisters();
    write(usersEntry, entry("NotShowIn=XFCE;\n"));
    expectRegisters();
}

TEST_F(LoginItemChangeTest, KeepsTheDesktopsThatTheEntryIsFor) {
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    write(usersEntry, entry("OnlyShowIn=GNOME;XFCE;\nHidden=true\n"));
    expectRegisters();
    EXPECT_THAT(usersText(), HasSubstr("OnlyShowIn=GNOME;XFCE;\n"));
}

TEST_F(LoginItemChangeTest, PutsTheProgramInPlaceOfOneThatIsGone) {
    write(usersEntry, "[Desktop Entry]\nType=Application\nName=Mine\nTryExec=/old/vantrel\n"
                      "Exec=/old/vantrel\n");
    expectRegisters();
    EXPECT_EQ(usersText(),
              "[Desktop Entry]\nType=Application\nName=Mine\nExec=" + program.toStdString() + "\n");
}

TEST_F(LoginItemChangeTest, PutsTheProgramInPlaceOfAnotherOne) {
    write(usersEntry, "[Desktop Entry]\nType=Application\nExec=/bin/true\n");
    expectRegisters();
}

TEST_F(LoginItemChangeTest, ReplacesWhatIsNoEntry) {
    for (const char *text : {"", "\x01\xff", "[Desktop Entry\nExec=/bin/true", "Exec=/bin/true"}) {
        write(usersEntry, text);
        expectRegisters();
    }
}

// A pipe stands for /dev/null, which a mistake of the superuser's would replace for everybody.
TEST_F(LoginItemChangeTest, ReplacesALinkThatMasksIt) {
    const QString device = inFolder("null");
    ASSERT_EQ(mkfifo(QFile::encodeName(device).constData(), 0600), 0);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(usersEntry).path()));
    ASSERT_TRUE(QFile::link(device, usersEntry));
    expectRegisters();
    EXPECT_FALSE(QFileInfo(usersEntry).isSymLink());
    EXPECT_TRUE(QFileInfo::exists(device));
    EXPECT_FALSE(QFileInfo(device).isFile());
}

TEST_F(LoginItemChangeTest, WritesThroughALinkToItsTarget) {
    const QString target = inFolder("dotfiles/vantrel.desktop");
    write(target, entry("Hidden=true\n"));
    ASSERT_TRUE(QDir().mkpath(QFileInfo(usersEntry).path()));
    ASSERT_TRUE(QFile::link(target, usersEntry));
    expectRegisters();
    EXPECT_TRUE(QFileInfo(usersEntry).isSymLink());
    EXPECT_EQ(read(target), entry());

    ASSERT_TRUE(QFile::remove(target));
    expectRegisters();
    EXPECT_TRUE(QFileInfo(usersEntry).isSymLink());
    EXPECT_TRUE(QFileInfo(target).isFile());
}

TEST_F(LoginItemChangeTest, WritesNothingWhereItIsEnabled) {
    write(usersEntry, entry("# a text of the user's\n"));
    ASSERT_TRUE(QFile::setPermissions(usersEntry, QFileDevice::ReadOwner));
    expectRegisters();
    EXPECT_EQ(read(usersEntry), entry("# a text of the user's\n"));
    ASSERT_TRUE(QFile::remove(usersEntry));
    write(systemsEntry, entry());
    expectRegisters();
    EXPECT_FALSE(QFile::exists(usersEntry));
}

TEST_F(LoginItemChangeTest, SwitchesTheSystemsEntryOnInTheUsersFolder) {
    write(systemsEntry, entry("Hidden=true\nX-Vendor=some\n"));
    expectRegisters();
    EXPECT_EQ(read(usersEntry), entry("X-Vendor=some\n"));
    EXPECT_EQ(read(systemsEntry), entry("Hidden=true\nX-Vendor=some\n"));
}

TEST_F(LoginItemChangeTest, TakesTheEntryAwayAgain) {
    expectRegisters();
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_EQ(item.status(), Status::notRegistered);
    EXPECT_TRUE(filesBeside().isEmpty());
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
}

TEST_F(LoginItemChangeTest, TakesALinkAwayAndNotItsTarget) {
    const QString target = inFolder("dotfiles/vantrel.desktop");
    write(target, entry());
    ASSERT_TRUE(QDir().mkpath(QFileInfo(usersEntry).path()));
    ASSERT_TRUE(QFile::link(target, usersEntry));
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_EQ(item.status(), Status::notRegistered);
    EXPECT_EQ(read(target), entry());
}

TEST_F(LoginItemChangeTest, HidesTheSystemsEntryAndShowsItAgain) {
    write(systemsEntry, entry("X-Vendor=some\n"));
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_EQ(item.status(), Status::requiresApproval);
    EXPECT_EQ(read(usersEntry), entry("X-Vendor=some\nHidden=true\n"));
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    expectRegisters();
}

TEST_F(LoginItemChangeTest, LeavesAFolderOfThatNameAlone) {
    ASSERT_TRUE(QDir().mkpath(usersEntry));
    write(inFolder("config/autostart/org.vantrel.Vantrel.desktop/inside"), "kept");
    EXPECT_THAT(reason(item.registerItem(), usersEntry), Not(""));
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_EQ(read(usersEntry + QStringLiteral("/inside")), "kept");
}

TEST_F(LoginItemChangeTest, SaysThatTheDiskIsFullAndLeavesTheEntryAsItWas) {
    const QByteArray old = entry("Hidden=true\nX-Long=" + QByteArray(9000, 'x') + '\n');
    write(usersEntry, old);
    std::optional<QString> error;
    {
        const fakes::FullDisk full(100);
        error = item.registerItem();
    }
    EXPECT_EQ(reason(error, usersEntry), "File too large");
    EXPECT_EQ(read(usersEntry), old);
    EXPECT_EQ(filesBeside().size(), 1);
}

TEST_F(LoginItemChangeTest, SaysThatTheFolderCannotBeMade) {
    write(inFolder("config"), "in the way");
    const QString path = QFileInfo(usersEntry).path();
    EXPECT_EQ(reason(item.registerItem(), path), "Not a directory");
    EXPECT_EQ(item.status(), Status::notRegistered);
}

TEST_F(LoginItemChangeTest, SaysThatTheEntryMayNotBeChanged) {
    if (::geteuid() == 0 && ::seteuid(65534) != 0)
        GTEST_SKIP() << "the superuser may change everything";
    const QTemporaryDir own;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(own.path()));
    const QString path = own.filePath(QStringLiteral("autostart/org.vantrel.Vantrel.desktop"));
    write(path, entry());
    const QString autostart = QFileInfo(path).path();
    ASSERT_TRUE(QFile::setPermissions(autostart, QFileDevice::ReadOwner | QFileDevice::ExeOwner));
    EXPECT_EQ(reason(item.unregisterItem(), path), "Permission denied");
    write(path, entry("Hidden=true\n"));
    EXPECT_EQ(reason(item.registerItem(), path), "Permission denied");
    ASSERT_TRUE(QFile::setPermissions(autostart, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                     QFileDevice::ExeOwner));
    ASSERT_EQ(::seteuid(::getuid()), 0);
}

} // namespace vantrel::tests
