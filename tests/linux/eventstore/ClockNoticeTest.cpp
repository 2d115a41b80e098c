#include "LiveStore.h"

#include <linux/eventstore/ClockWatch.h>

#include <gmock/gmock.h>
#include <sys/resource.h>

namespace vantrel {
namespace {

using fakes::at;
using namespace tests;

class ClockNoticeTest : public LiveStore {
protected:
    /// So that no tick of the quarter of an hour falls on a midnight.
    void startWithinTheQuarter() { queue.jumpWallTo(at("2026-03-02T08:07:00", zone)); }

    void setZoneFile(const char *name) const {
        QFile::remove(files.path(QStringLiteral("etc/localtime")));
        ASSERT_TRUE(QFile::link(QStringLiteral("/usr/share/zoneinfo/") + QLatin1String(name),
                                files.path(QStringLiteral("etc/localtime"))));
    }

    void writeDailyMeeting() const {
        files.write(QStringLiteral("work/a.ics"),
                    calendarText(event("w", "DTSTART:20260101T110000Z\nRRULE:FREQ=DAILY\n")));
    }

    /// When the last of those meetings begins that the window reaches.
    Instant last() const {
        return live
            ->events(at("2026-03-01T00:00:00"), at("2026-12-01T00:00:00"), identifiers(*live))
            .back()
            .startDate;
    }

    std::unique_ptr<LocalEventStore> storeWithZoneFile() {
        QDir().mkpath(files.path(QStringLiteral("etc")));
        StoreConfiguration configuration;
        configuration.roots = {{files.path(QStringLiteral("work")), {}, false}};
        configuration.zoneFolder = QFile::encodeName(files.path(QStringLiteral("etc")));
        return std::make_unique<LocalEventStore>(
            queue, configuration, [this] { return fakes::calendarIn(zone); },
            StoreAccess::granted());
    }
};

TEST_F(ClockNoticeTest, TellsThatTheSystemsZoneIsAnother) {
    QDir().mkpath(files.path(QStringLiteral("etc")));
    int reports = 0;
    const ClockWatch watch(
        queue, [&reports] { ++reports; }, QFile::encodeName(files.path(QStringLiteral("etc"))));
    files.write(QStringLiteral("etc/hostname"), "x");
    settleQuiet();
    EXPECT_EQ(reports, 0);
    setZoneFile("UTC");
    settle([&reports] { return reports > 0; });
    const int before = reports;
    setZoneFile("Europe/Zurich");
    settle([&] { return reports > before; });
}

TEST_F(ClockNoticeTest, TellsOfAZoneThatIsPutInPlaceByRenaming) {
    QDir().mkpath(files.path(QStringLiteral("etc")));
    setZoneFile("UTC");
    int reports = 0;
    const ClockWatch watch(
        queue, [&reports] { ++reports; }, QFile::encodeName(files.path(QStringLiteral("etc"))));
    const QString beside = files.path(QStringLiteral("etc/.#localtime"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/usr/share/zoneinfo/Asia/Tokyo"), beside));
    settleQuiet();
    EXPECT_EQ(reports, 0);
    ASSERT_EQ(::rename(qPrintable(beside), qPrintable(files.path(QStringLiteral("etc/localtime")))),
              0);
    settle([&reports] { return reports > 0; });
}

TEST_F(ClockNoticeTest, ReadsWholeDaysAgainAsSoonAsTheSystemsZoneIsAnother) {
    files.write(QStringLiteral("work/a.ics"),
                calendarText(event("d", "DTSTART;VALUE=DATE:20260303\n")));
    begin(storeWithZoneFile());
    EXPECT_EQ(events(*live).front().startDate, at("2026-03-03T00:00:00", "Europe/Zurich"));
    zone = "America/New_York";
    setZoneFile("America/New_York");
    settle([this] {
        return events(*live).front().startDate == at("2026-03-03T00:00:00", "America/New_York");
    });
    EXPECT_EQ(queue.now(), at("2026-03-02T08:00:00", "Europe/Zurich"));
}

TEST_F(ClockNoticeTest, MovesTheWindowRightAtTheUsersMidnight) {
    startWithinTheQuarter();
    writeDailyMeeting();
    begin({QStringLiteral("work")});
    EXPECT_EQ(last(), at("2026-03-18T11:00:00"));
    queue.advanceTo(at("2026-03-02T23:59:59.5", zone));
    settleAtOnce();
    EXPECT_EQ(changes, 1);
    queue.advance(Seconds{0.5});
    settle([this] { return changes == 2; });
    EXPECT_EQ(last(), at("2026-03-19T11:00:00"));
    queue.advance(Seconds{86400.0});
    settle([this] { return changes == 3; });
    EXPECT_EQ(last(), at("2026-03-20T11:00:00"));
}

TEST_F(ClockNoticeTest, WaitsForMidnightInTheZoneThatTheUserMovedTo) {
    writeDailyMeeting();
    startWithinTheQuarter();
    begin({QStringLiteral("work")});
    zone = "Asia/Tokyo"; // Where midnight comes earlier.
    queue.advance(Seconds{900.0});
    settle([this] { return changes == 2; });
    queue.advanceTo(at("2026-03-02T23:59:59.5", "Asia/Tokyo"));
    settleAtOnce();
    EXPECT_EQ(changes, 2);
    queue.advance(Seconds{0.5});
    settle([this] { return changes == 3; });
}

TEST_F(ClockNoticeTest, FindsMidnightOnADayOf23Hours) {
    queue.jumpWallTo(at("2026-03-29T00:07:00", zone));
    writeDailyMeeting();
    begin({QStringLiteral("work")});
    EXPECT_EQ(last(), at("2026-04-14T11:00:00"));
    queue.advanceTo(at("2026-03-29T23:59:59.5", zone));
    settleAtOnce();
    EXPECT_EQ(changes, 1);
    queue.advance(Seconds{0.5});
    settle([this] { return changes == 2; });
    EXPECT_EQ(last(), at("2026-04-15T11:00:00"));
}

/// A watch that got no timer of the kernel's, which tells of the clock otherwise.
class ClockComparisonTest : public ClockNoticeTest {
protected:
    void SetUp() override {
        rlimit limit = {};
        ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
        const rlimit none = {0, limit.rlim_max};
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
        watch = std::make_unique<ClockWatch>(queue, [this] { ++reports; });
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    }

    std::unique_ptr<ClockWatch> watch;
    int reports = 0;
};

TEST_F(ClockComparisonTest, IsLogged) {
    EXPECT_TRUE(log.has("does not tell when the clock is set", "Too many open files"))
        << log.text();
}

TEST_F(ClockComparisonTest, IsLoggedForTheZoneToo) {
    EXPECT_TRUE(log.has("another time zone of the system is noticed late", "")) << log.text();
}

TEST_F(ClockComparisonTest, SaysNothingWhileTheClockJustRuns) {
    queue.advance(Seconds{3600.0});
    EXPECT_EQ(reports, 0);
}

TEST_F(ClockComparisonTest, TellsThatTheClockWasSetEitherWay) {
    queue.jumpWallTo(queue.now() + Seconds{3600.0});
    queue.advance(Seconds{30.0});
    EXPECT_EQ(reports, 1);
    queue.jumpWallTo(queue.now() - Seconds{7200.0});
    queue.advance(Seconds{30.0});
    EXPECT_EQ(reports, 2);
    queue.advance(Seconds{300.0});
    EXPECT_EQ(reports, 2);
}

TEST_F(ClockComparisonTest, TellsThatTheMachineSlept) {
    queue.suspend(Seconds{28800.0});
    queue.advance(Seconds{30.0});
    EXPECT_EQ(reports, 1);
}

TEST_F(ClockComparisonTest, LeavesACorrectionOfTheClockAlone) {
    for (int tick = 0; tick < 100; ++tick) {
        queue.jumpWallTo(queue.now() + Seconds{0.5});
        queue.advance(Seconds{30.0});
    }
    EXPECT_EQ(reports, 0);
}

} // namespace
} // namespace vantrel
