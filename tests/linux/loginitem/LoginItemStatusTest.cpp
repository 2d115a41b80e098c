#include "AutostartFolders.h"

#include <sys/stat.h>

namespace vantrel::tests {

using Status = LoginItem::Status;

namespace {

class LoginItemStatusTest : public AutostartFolders {
protected:
    Status statusWith(const QByteArray &text) {
        write(usersEntry, text);
        return item.status();
    }
    /// A line that starts it in other words than the program's path.
    Status statusOfCommand(const QByteArray &command) {
        return statusWith("[Desktop Entry]\nType=Application\nName=V\nExec=" + command + '\n');
    }
    QByteArray path() const { return QFile::encodeName(program); }
};

} // namespace

TEST_F(LoginItemStatusTest, IsNotRegisteredWithoutAnEntryOrAnyFolder) {
    EXPECT_EQ(item.status(), Status::notRegistered);
}

TEST_F(LoginItemStatusTest, IsEnabledWithAnEntryThatStartsTheProgram) {
    EXPECT_EQ(statusWith(entry()), Status::enabled);
}

TEST_F(LoginItemStatusTest, AwaitsApprovalWhereTheEntryIsSwitchedOff) {
    EXPECT_EQ(statusWith(entry("Hidden=true\n")), Status::requiresApproval);
    EXPECT_EQ(statusWith(entry("X-GNOME-Autostart-enabled=false\n")), Status::requiresApproval);
    EXPECT_EQ(statusWith(entry("X-MATE-Autostart-enabled=false\n")), Status::requiresApproval);
}

TEST_F(LoginItemStatusTest, IsEnabledWhereASwitchStandsOnOrMeansNothing) {
    EXPECT_EQ(statusWith(entry("Hidden=false\nX-GNOME-Autostart-enabled=true\n")), Status::enabled);
    EXPECT_EQ(statusWith(entry("Hidden=perhaps\n")), Status::enabled);
    EXPECT_EQ(statusWith(entry("[Desktop Action x]\nHidden=true\n")), Status::enabled);
}

TEST_F(LoginItemStatusTest, AwaitsApprovalInADesktopThatTheEntryLeavesOut) {
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_EQ(statusWith(entry("OnlyShowIn=GNOME;XFCE;\n")), Status::enabled);
    EXPECT_EQ(statusWith(entry("OnlyShowIn=KDE;\n")), Status::requiresApproval);
    EXPECT_EQ(statusWith(entry("NotShowIn=GNOME;\n")), Status::requiresApproval);
    EXPECT_EQ(statusWith(entry("NotShowIn=KDE;\n")), Status::enabled);
    qunsetenv("XDG_CURRENT_DESKTOP");
    EXPECT_EQ(statusWith(entry("OnlyShowIn=GNOME;\n")), Status::requiresApproval);
    EXPECT_EQ(statusWith(entry("NotShowIn=GNOME;\n")), Status::enabled);
}

TEST_F(LoginItemStatusTest, IsNotFoundOnceTheProgramIsGone) {
    write(usersEntry, entry());
    ASSERT_TRUE(QFile::remove(program));
    EXPECT_EQ(item.status(), Status::notFound);
}

TEST_F(LoginItemStatusTest, IsNotFoundWhereTheProgramCannotBeRun) {
    write(usersEntry, entry());
    ASSERT_TRUE(QFile::setPermissions(program, QFileDevice::ReadOwner));
    EXPECT_EQ(item.status(), Status::notFound);
}

TEST_F(LoginItemStatusTest, IsNotFoundWhereWhatIsTriedAheadIsGone) {
    EXPECT_EQ(statusWith(entry("TryExec=/nowhere/vantrel\n")), Status::notFound);
    EXPECT_EQ(statusWith(entry("TryExec=sh\n")), Status::enabled);
}

TEST_F(LoginItemStatusTest, IsEnabledWhereTheUserStartsItInOtherWords) {
    EXPECT_EQ(statusOfCommand("env QT_SCALE_FACTOR=2 " + path()), Status::enabled);
    EXPECT_EQ(statusOfCommand("sh -c \"sleep 5; exec vantrel\""), Status::enabled);
    EXPECT_EQ(statusOfCommand('"' + path() + "\" --profile /tmp"), Status::enabled);
}

TEST_F(LoginItemStatusTest, IsNotFoundWhereTheEntryStartsSomethingElse) {
    EXPECT_EQ(statusOfCommand("/bin/true"), Status::notFound);
    EXPECT_EQ(statusOfCommand("env /nowhere/vantrel"), Status::notFound);
    EXPECT_EQ(statusOfCommand("/nowhere/env " + path()), Status::notFound);
}

TEST_F(LoginItemStatusTest, IsNotFoundWithAnEntryThatNoSessionCanRead) {
    EXPECT_EQ(statusWith("no entry at all"), Status::notFound);
    EXPECT_EQ(statusWith("[Desktop Action x]\nExec=" + path()), Status::notFound);
    EXPECT_EQ(statusWith("[Desktop Entry]\nType=Link\nExec=" + path()), Status::notFound);
    EXPECT_EQ(statusWith("[Desktop Entry]\nType=Application\n"), Status::notFound);
    EXPECT_EQ(statusOfCommand("\"" + path()), Status::notFound);
}

TEST_F(LoginItemStatusTest, AwaitsApprovalWhereTheEntryIsMasked) {
    EXPECT_EQ(statusWith(""), Status::requiresApproval);
    ASSERT_TRUE(QFile::remove(usersEntry));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/null"), usersEntry));
    EXPECT_EQ(item.status(), Status::requiresApproval);
}

TEST_F(LoginItemStatusTest, ReadsThroughALink) {
    write(inFolder("dotfiles/vantrel.desktop"), entry());
    ASSERT_TRUE(QDir().mkpath(QFileInfo(usersEntry).path()));
    ASSERT_TRUE(QFile::link(inFolder("dotfiles/vantrel.desktop"), usersEntry));
    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(LoginItemStatusTest, IsNotRegisteredByALinkThatLeadsNowhereOrByAFolder) {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(usersEntry).path()));
    ASSERT_TRUE(QFile::link(inFolder("nowhere"), usersEntry));
    EXPECT_EQ(item.status(), Status::notRegistered);
    ASSERT_TRUE(QFile::remove(usersEntry));
    ASSERT_TRUE(QDir().mkpath(usersEntry));
    EXPECT_EQ(item.status(), Status::notRegistered);
}

TEST_F(LoginItemStatusTest, DoesNotWaitForWhoeverWritesIntoAPipe) {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(usersEntry).path()));
    ASSERT_EQ(mkfifo(QFile::encodeName(usersEntry).constData(), 0600), 0);
    EXPECT_EQ(item.status(), Status::requiresApproval);
}

TEST_F(LoginItemStatusTest, IsEnabledByAnEntryOfTheSystem) {
    write(systemsEntry, entry());
    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(LoginItemStatusTest, GoesByTheUsersEntryWhereTheSystemHasOneToo) {
    write(systemsEntry, entry());
    EXPECT_EQ(statusWith(entry("Hidden=true\n")), Status::requiresApproval);
    write(systemsEntry, entry("Hidden=true\n"));
    EXPECT_EQ(statusWith(entry()), Status::enabled);
}

TEST_F(LoginItemStatusTest, PassesAFolderOverForTheSystemsEntry) {
    ASSERT_TRUE(QDir().mkpath(usersEntry));
    write(systemsEntry, entry());
    EXPECT_EQ(item.status(), Status::enabled);
}

TEST_F(LoginItemStatusTest, KeepsApartEntriesOfAnotherName) {
    write(usersEntry, entry());
    const AutostartLoginItem other(QStringLiteral("org.vantrel.Vantrel.Profile0"), {program});
    EXPECT_EQ(other.status(), Status::notRegistered);
}

} // namespace vantrel::tests
