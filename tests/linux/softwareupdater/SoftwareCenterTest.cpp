#include <fakes/ManualMainQueue.h>
#include <fakes/RecordingWindows.h>
#include <fakes/RecordingWorkspace.h>
#include <linux/softwareupdater/SoftwareCenter.h>
#include <theme/ThemePalette.h>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Opened = fakes::RecordingWorkspace::Opened;

class SoftwareCenterTest : public testing::Test {
protected:
    void check() {
        updater.checkForUpdates();
        queue.advance(Seconds{1.0});
    }

    QVariant shown(const char *property) const {
        const auto &properties = windows.windows.front()->content.properties;
        return properties[QStringLiteral("viewModel")].value<UpdatesViewModel *>()->property(
            property);
    }

    fakes::ManualMainQueue queue{Instant{}};
    fakes::RecordingWorkspace workspace;
    fakes::RecordingWindows windows;
    SoftwareCenter updater{queue,
                           workspace,
                           windows,
                           [] { return QVariant::fromValue(ThemePalette()); },
                           QStringLiteral("/home/mara/vantrel"),
                           QStringLiteral("9.8"),
                           {}};
};

TEST_F(SoftwareCenterTest, OpensTheSoftwareCentreAtTheProgram) {
    workspace.browser = ApplicationId{QStringLiteral("centre.desktop")};
    check();
    EXPECT_THAT(workspace.opened,
                ElementsAre(Opened{QStringLiteral("appstream://org.vantrel.Vantrel"), {}}));
    EXPECT_THAT(windows.windows, IsEmpty());
}

TEST_F(SoftwareCenterTest, TellsInAWindowWhereThereIsNoSoftwareCentre) {
    check();
    EXPECT_THAT(workspace.opened, IsEmpty());
    ASSERT_EQ(windows.windows.size(), 1U);
    EXPECT_EQ(windows.windows.front()->showings, 1);
    EXPECT_EQ(windows.windows.front()->description.title, QStringLiteral("Updates"));
    EXPECT_EQ(shown("version"), QStringLiteral("9.8"));
    EXPECT_TRUE(shown("origin").toString().contains(QStringLiteral("/home/mara/vantrel")));
}

TEST_F(SoftwareCenterTest, ShowsTheSameWindowAgain) {
    check();
    check();
    ASSERT_EQ(windows.windows.size(), 1U);
    EXPECT_EQ(windows.windows.front()->showings, 2);
}

} // namespace
} // namespace vantrel
