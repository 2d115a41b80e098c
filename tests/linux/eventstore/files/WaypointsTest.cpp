#include "CalendarFiles.h"

#include <linux/eventstore/files/Files.h>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::SizeIs;

class WaypointsTest : public testing::Test {
protected:
    WaypointsTest() { QDir().mkpath(files.path(QStringLiteral("real/inner"))); }

    /// As "folder: name", below the scratch place.
    std::vector<std::string> waypoints(const char *path) const {
        const QByteArray scratch = files::resolved(QFile::encodeName(files.path()));
        std::vector<std::string> found;
        for (const auto &[folder, name] : files::waypoints(scratch + '/' + path))
            found.push_back((folder.mid(scratch.size()) + ": " + name).toStdString());
        return found;
    }

    void link(const char *target, const char *name) const {
        ASSERT_EQ(::symlink(target, qPrintable(files.path(QString::fromLatin1(name)))), 0);
    }

    CalendarFiles files;
};

TEST_F(WaypointsTest, AreTheLastNameOfAPathThatIsThere) {
    EXPECT_THAT(waypoints("real/inner"), ElementsAre("/real: inner"));
}

TEST_F(WaypointsTest, EndAtTheFirstNameThatIsMissing) {
    EXPECT_THAT(waypoints("real/none/further"), ElementsAre("/real: none"));
}

TEST_F(WaypointsTest, HoldEachLinkOnTheWay) {
    link("second", "first");
    link("real", "second");
    EXPECT_THAT(waypoints("first/inner"), ElementsAre(": first", ": second", "/real: inner"));
}

TEST_F(WaypointsTest, FollowALinkThatLeadsNowhereToWhatIsMissing) {
    link("../real/inner/none/further", "real/dangling");
    EXPECT_THAT(waypoints("real/dangling"), ElementsAre("/real: dangling", "/real/inner: none"));
}

TEST_F(WaypointsTest, EndAtAFileThatStandsInTheWay) {
    files.write(QStringLiteral("real/file"), "x");
    EXPECT_THAT(waypoints("real/file/further"), ElementsAre("/real: file"));
}

TEST_F(WaypointsTest, EndInALoop) {
    link("loop", "loop");
    EXPECT_THAT(waypoints("loop"), SizeIs(41));
}

} // namespace
} // namespace vantrel
