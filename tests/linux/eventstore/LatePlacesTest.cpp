#include "LiveStore.h"

#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A store on a place that is not there at the start.
class LatePlacesTest : public LiveStore {
protected:
    QString path(const char *name) const { return files.path(QString::fromLatin1(name)); }

    void beginWithout(const char *name) {
        begin({QString::fromLatin1(name)});
        settleQuiet();
        EXPECT_THAT(titles(*live), IsEmpty());
    }

    void settleLog(const char *place, const char *what) {
        settle([&] {
            queue.advance(Seconds{0.2});
            return log.has(place, what);
        });
    }

    template <typename Matcher>
    void expectTitles(const Matcher &matcher) {
        settle([&] {
            queue.advance(Seconds{0.2});
            return ::testing::Value(titles(*live), matcher);
        });
    }
};

TEST_F(LatePlacesTest, AFolderDeepInOnesThatAreMissingIsSeenWhenItComes) {
    beginWithout("disk/user/usb/calendars");
    QDir().mkpath(path("disk"));
    settleQuiet();
    files.write(QStringLiteral("disk/user/usb/calendars/a.ics"), oneEvent("late"));
    expectTitles(ElementsAre("late"));
}

TEST_F(LatePlacesTest, ALinkThatLedNowhereIsFollowedOnceItsTargetComes) {
    ASSERT_TRUE(QFile::link(path("disk/usb/calendars"), path("link")));
    beginWithout("link");
    files.write(QStringLiteral("disk/usb/calendars/a.ics"), oneEvent("late"));
    expectTitles(ElementsAre("late"));
}

TEST_F(LatePlacesTest, ALinkOnTheWayIsFollowedWhereItLeadsThen) {
    files.write(QStringLiteral("one/calendars/a.ics"), oneEvent("one"));
    files.write(QStringLiteral("two/calendars/a.ics"), oneEvent("two"));
    ASSERT_TRUE(QFile::link(path("one"), path("current")));
    begin({QStringLiteral("current/calendars")});
    EXPECT_THAT(titles(*live), ElementsAre("one"));
    ASSERT_TRUE(QFile::link(path("two"), path("next")));
    ASSERT_EQ(::rename(qPrintable(path("next")), qPrintable(path("current"))), 0);
    expectTitles(ElementsAre("two"));
}

TEST_F(LatePlacesTest, ALinkInAFolderOfCalendarsIsFollowedOnceItsTargetComes) {
    files.write(QStringLiteral("home/near/a.ics"), oneEvent("near"));
    ASSERT_TRUE(QFile::link(path("disk/far"), path("home/far")));
    begin({QStringLiteral("home")});
    EXPECT_THAT(titles(*live), ElementsAre("near"));
    files.write(QStringLiteral("disk/far/a.ics"), oneEvent("far"));
    expectTitles(ElementsAre("far", "near"));
}

/// In a view of its own on the file system, in which the test may mount.
class MountTest : public LatePlacesTest {
protected:
    void SetUp() override {
        const auto user = ::geteuid();
        const bool isOwn =
            ::unshare(CLONE_NEWNS) == 0 || ::unshare(CLONE_NEWNS | CLONE_NEWUSER) == 0;
        if (isOwn && user != 0) {
            QFile map(QStringLiteral("/proc/self/uid_map"));
            ASSERT_TRUE(map.open(QIODevice::WriteOnly));
            map.write("0 " + QByteArray::number(user) + " 1");
        }
        if (!isOwn || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            !mountAt("tried"))
            GTEST_SKIP() << "nothing can be mounted here";
        unmount("tried");
    }

    ~MountTest() override {
        live.reset();
        if (QDir(path("usb")).exists())
            ::umount2(qPrintable(path("usb")), MNT_DETACH);
    }

    bool mountAt(const char *name) const {
        QDir().mkpath(path(name));
        return ::mount("scratch", qPrintable(path(name)), "tmpfs", 0, nullptr) == 0;
    }

    void unmount(const char *name) const {
        ASSERT_EQ(::umount2(qPrintable(path(name)), MNT_DETACH), 0);
    }
};

TEST_F(MountTest, ADiskOverAFolderThatWasEmptyIsSeen) {
    QDir().mkpath(path("usb"));
    beginWithout("usb/calendars");
    // Filled before it is in sight, so that nothing but the mounting tells of it.
    ASSERT_TRUE(mountAt("aside"));
    files.write(QStringLiteral("aside/calendars/a.ics"), oneEvent("late"));
    settleQuiet();
    ASSERT_EQ(
        ::mount(qPrintable(path("aside")), qPrintable(path("usb")), nullptr, MS_BIND, nullptr), 0);
    expectTitles(ElementsAre("late"));
    log.clear();
    unmount("usb");
    unmount("aside");
    settleLog("usb/calendars", "no calendars");
    settle([this] { return !live->hasAllCalendars(); });
    expectTitles(ElementsAre("late"));
}

TEST_F(MountTest, ADiskThatIsTakenOffLeavesTheEventsThatAreKnown) {
    ASSERT_TRUE(mountAt("usb"));
    files.write(QStringLiteral("usb/a.ics"), oneEvent("known"));
    begin({QStringLiteral("usb")});
    unmount("usb");
    settleLog("usb", "not mounted");
    settle([this] { return !live->hasAllCalendars(); });
    EXPECT_THAT(titles(*live), ElementsAre("known"));
    ASSERT_TRUE(mountAt("usb"));
    files.write(QStringLiteral("usb/a.ics"), oneEvent("other"));
    expectTitles(ElementsAre("other"));
}

TEST_F(MountTest, ADiskBelowAFolderOfCalendarsLeavesTheEventsThatAreKnown) {
    files.write(QStringLiteral("home/near/a.ics"), oneEvent("near"));
    ASSERT_TRUE(mountAt("home/usb"));
    files.write(QStringLiteral("home/usb/a.ics"), oneEvent("known"));
    begin({QStringLiteral("home")});
    unmount("home/usb");
    settleLog("home/usb", "out of reach");
    settle([this] { return !live->hasAllCalendars(); });
    EXPECT_THAT(titles(*live), ElementsAre("near", "known"));
}

TEST_F(MountTest, ADiskOverACalendarTakesItsPlaceAndGivesItBack) {
    files.write(QStringLiteral("usb/a.ics"), oneEvent("below"));
    begin({QStringLiteral("usb")});
    EXPECT_THAT(titles(*live), ElementsAre("below"));
    ASSERT_TRUE(mountAt("usb"));
    expectTitles(IsEmpty());
    files.write(QStringLiteral("usb/a.ics"), oneEvent("above"));
    expectTitles(ElementsAre("above"));
    unmount("usb");
    expectTitles(ElementsAre("below"));
}

} // namespace
} // namespace vantrel
