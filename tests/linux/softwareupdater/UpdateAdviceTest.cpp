#include <linux/softwareupdater/UpdateAdvice.h>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using ::testing::HasSubstr;

UpdateAdvice adviceFor(PackageSystem system, RpmInstaller installer = RpmInstaller::dnf) {
    const QString package = system == PackageSystem::none || system == PackageSystem::flatpak
                                ? QString()
                                : QStringLiteral("vantrel");
    return updateAdvice({system, package}, QStringLiteral("/opt/vantrel/bin/vantrel"), installer);
}

TEST(UpdateAdviceTest, EachSystemHasItsOwnCommand) {
    EXPECT_EQ(adviceFor(PackageSystem::flatpak).command,
              QStringLiteral("flatpak update org.vantrel.Vantrel"));
    EXPECT_EQ(adviceFor(PackageSystem::debian).command,
              QStringLiteral("sudo apt update && sudo apt install --only-upgrade vantrel"));
    EXPECT_EQ(adviceFor(PackageSystem::rpm).command, QStringLiteral("sudo dnf upgrade vantrel"));
    EXPECT_EQ(adviceFor(PackageSystem::rpm, RpmInstaller::zypper).command,
              QStringLiteral("sudo zypper update vantrel"));
    EXPECT_EQ(adviceFor(PackageSystem::pacman).command, QStringLiteral("sudo pacman -Syu"));
}

TEST(UpdateAdviceTest, NamesThePackageThatItCameFrom) {
    EXPECT_THAT(adviceFor(PackageSystem::debian).origin.toStdString(), HasSubstr("“vantrel”"));
}

TEST(UpdateAdviceTest, NamesTheFileOfABuildOfTheUsersOwnAndGivesNoCommand) {
    const UpdateAdvice advice = adviceFor(PackageSystem::none);
    EXPECT_THAT(advice.origin.toStdString(), HasSubstr("/opt/vantrel/bin/vantrel"));
    EXPECT_TRUE(advice.command.isEmpty());
}

} // namespace
} // namespace vantrel
