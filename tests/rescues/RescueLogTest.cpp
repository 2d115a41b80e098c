#include <fakes/CapturedLog.h>
#include <fakes/Times.h>
#include <rescues/RescueLog.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();

class RescueLogTest : public testing::Test {
protected:
    RescueLog makeLog() {
        return RescueLog(
            RescueLogStore(path), [this] { return now; }, [this] { return calendarIn(zone); });
    }

    DateRange week() const { return DateRange::lastDays(7, now, calendarIn(zone)); }

    DayBuckets saved() const { return RescueLogStore(path).load(); }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("rescues.json"));
    Instant now = at("2026-03-02T12:00:00");
    const char *zone = "UTC";
};

const QString monday = QStringLiteral("2026-03-02");

TEST_F(RescueLogTest, IsEmptyWithoutAFile) {
    const RescueLog log = makeLog();
    EXPECT_TRUE(log.byDay().empty());
    EXPECT_EQ(log.stats(week()), (RescueStats{.dayCount = 7}));
    EXPECT_EQ(log.stats(DateRange::allTime()), RescueStats{});
    EXPECT_FALSE(QFile::exists(path));
}

struct RecordCase {
    void (*record)(RescueLog &);
    DayBucket expected;
};

class RecordTest : public RescueLogTest, public testing::WithParamInterface<RecordCase> {};

TEST_P(RecordTest, CountsOneInMemoryAndOnTheDisk) {
    RescueLog log = makeLog();
    GetParam().record(log);
    const DayBuckets expected{{monday, GetParam().expected}};
    EXPECT_EQ(log.byDay(), expected);
    EXPECT_EQ(saved(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    AllRecords, RecordTest,
    testing::Values(RecordCase{[](RescueLog &log) { log.recordRescue(RescueSource::takeover); },
                               {1, 0, 0, 0, 0}},
                    RecordCase{[](RescueLog &log) { log.recordRescue(RescueSource::popover); },
                               {0, 1, 0, 0, 0}},
                    RecordCase{[](RescueLog &log) { log.recordSnooze(); }, {0, 0, 1, 0, 0}},
                    RecordCase{[](RescueLog &log) { log.recordDismiss(); }, {0, 0, 0, 1, 0}}));

TEST_F(RescueLogTest, WritesAllFiveMembersOfADay) {
    makeLog().recordSnooze();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    for (const char *member :
         {"rescuesFromTakeover", "rescuesFromPopover", "snoozes", "dismisses", "pingsSent"})
        EXPECT_TRUE(text.contains(member)) << member;
}

TEST_F(RescueLogTest, AddsToADayThatHasAnEntryAndCarriesItsPings) {
    RescueLogStore(path).save({{monday, DayBucket{1, 2, 3, 4, 5}}});
    RescueLog log = makeLog();
    log.recordRescue(RescueSource::takeover);
    log.recordDismiss();
    EXPECT_EQ(saved(), (DayBuckets{{monday, DayBucket{2, 2, 3, 5, 5}}}));
}

TEST_F(RescueLogTest, FilesByTheDayOfTheRecord) {
    RescueLog log = makeLog();
    now = at("2026-03-02T23:59:00");
    log.recordSnooze();
    now = at("2026-03-03T00:01:00");
    log.recordSnooze();
    EXPECT_EQ(log.byDay().size(), 2u);
    EXPECT_EQ(log.byDay().at(QStringLiteral("2026-03-03")).snoozes, 1);
}

TEST_F(RescueLogTest, FollowsAChangeOfTheTimeZone) {
    RescueLog log = makeLog();
    now = at("2026-03-02T23:30:00");
    log.recordSnooze();
    zone = "Asia/Tokyo";
    log.recordSnooze();
    EXPECT_EQ(log.byDay(), (DayBuckets{{monday, DayBucket{0, 0, 1, 0, 0}},
                                       {QStringLiteral("2026-03-03"), DayBucket{0, 0, 1, 0, 0}}}));
}

TEST_F(RescueLogTest, AnnouncesTheDaysBeforeItStoresThemAndSavesAfterwards) {
    RescueLog log = makeLog();
    std::vector<DayBuckets> announced;
    std::vector<DayBuckets> inMemory;
    std::vector<bool> wasSaved;
    const Subscription subscription = log.subscribe([&](const DayBuckets &days) {
        announced.push_back(days);
        inMemory.push_back(log.byDay());
        wasSaved.push_back(QFile::exists(path));
    });
    log.recordDismiss();
    const DayBuckets one{{monday, DayBucket{0, 0, 0, 1, 0}}};
    EXPECT_EQ(announced, (std::vector<DayBuckets>{{}, one}));
    EXPECT_EQ(inMemory, (std::vector<DayBuckets>{{}, {}}));
    EXPECT_EQ(wasSaved, (std::vector{false, false}));
    EXPECT_EQ(log.byDay(), one);
    EXPECT_EQ(saved(), one);
}

TEST_F(RescueLogTest, KeepsCountingInMemoryWhenItCannotSave) {
    const fakes::CapturedLog captured;
    ASSERT_TRUE(QDir().mkdir(path));
    RescueLog log = makeLog();
    log.recordSnooze();
    log.recordSnooze();
    EXPECT_EQ(log.byDay().at(monday).snoozes, 2);
    ASSERT_EQ(fakes::CapturedLog::lines().size(), 3u);
    ASSERT_TRUE(QDir().rmdir(path));
    log.recordSnooze();
    EXPECT_EQ(saved().at(monday).snoozes, 3);
}

TEST_F(RescueLogTest, SumsTheDaysOfTheRange) {
    RescueLogStore(path).save({
        {QStringLiteral("2026-03-02"), DayBucket{1, 2, 3, 4, 5}},
        {QStringLiteral("2026-03-01"), DayBucket{10, 20, 30, 40, 50}},
        {QStringLiteral("2026-02-22"), DayBucket{100, 200, 300, 400, 500}},
    });
    const RescueLog log = makeLog();
    EXPECT_EQ(log.stats(week()), (RescueStats{33, 11, 22, 33, 44, 55, 2, 7}));
    EXPECT_EQ(log.stats(DateRange::allTime()), (RescueStats{333, 111, 222, 333, 444, 555, 3, 3}));
}

TEST_F(RescueLogTest, LeavesADayEightDaysOldOutOfTheWeek) {
    RescueLogStore(path).save({{QStringLiteral("2026-02-22"), DayBucket{1, 0, 0, 0, 0}},
                               {QStringLiteral("2026-02-23"), DayBucket{1, 0, 0, 0, 0}},
                               {QStringLiteral("2026-02-24"), DayBucket{1, 0, 0, 0, 0}}});
    const RescueLog log = makeLog();
    EXPECT_EQ(log.stats(week()).totalRescues, 1);
    EXPECT_EQ(log.stats(DateRange::allTime()).totalRescues, 3);
}

TEST_F(RescueLogTest, CountsADayWithoutRescuesAsADayOnly) {
    RescueLogStore(path).save({{monday, DayBucket{0, 0, 4, 3, 2}},
                               {QStringLiteral("2026-03-01"), DayBucket{0, 1, 0, 0, 0}},
                               {QStringLiteral("2026-02-28"), DayBucket{}}});
    const RescueStats stats = makeLog().stats(DateRange::allTime());
    EXPECT_EQ(stats.dayCount, 3);
    EXPECT_EQ(stats.daysWithRescue, 1);
}

TEST_F(RescueLogTest, HasNoDaysInAnEmptyRange) {
    RescueLog log = makeLog();
    log.recordRescue(RescueSource::takeover);
    EXPECT_EQ(log.stats(DateRange::lastDays(0, now, calendarIn(zone))), RescueStats{});
}

TEST_F(RescueLogTest, CountsADayAsOftenAsTheRangeNamesIt) {
    RescueLog log = makeLog();
    log.recordRescue(RescueSource::popover);
    EXPECT_EQ(log.stats(DateRange::days({monday, monday})), (RescueStats{2, 0, 2, 0, 0, 0, 2, 2}));
}

TEST_F(RescueLogTest, KeepsOldDaysForEver) {
    RescueLogStore(path).save({{QStringLiteral("1999-12-31"), DayBucket{1, 0, 0, 0, 0}}});
    RescueLog log = makeLog();
    log.recordSnooze();
    EXPECT_EQ(saved().size(), 2u);
}

TEST_F(RescueLogTest, CountsUpToTheLastNumber) {
    RescueLogStore(path).save({{monday, DayBucket{highest - 1, 0, 0, 0, 0}}});
    RescueLog log = makeLog();
    log.recordRescue(RescueSource::takeover);
    EXPECT_EQ(saved().at(monday).rescuesFromTakeover, highest);
    EXPECT_EQ(log.stats(DateRange::allTime()).totalRescues, highest);
}

TEST_F(RescueLogTest, StopsTheProgramWhenACountOverflows) {
    RescueLogStore(path).save({{monday, DayBucket{0, 0, highest, 0, 0}}});
    RescueLog log = makeLog();
    EXPECT_DEATH(log.recordSnooze(), "exceeds 64 bits");
    EXPECT_EQ(saved().at(monday).snoozes, highest);
}

struct OverflowCase {
    DayBucket first;
    DayBucket second;
};

class OverflowTest : public RescueLogTest, public testing::WithParamInterface<OverflowCase> {};

TEST_P(OverflowTest, StopsTheProgram) {
    RescueLogStore(path).save(
        {{monday, GetParam().first}, {QStringLiteral("2026-03-01"), GetParam().second}});
    const RescueLog log = makeLog();
    EXPECT_DEATH((void)log.stats(DateRange::allTime()), "exceeds 64 bits");
}

INSTANTIATE_TEST_SUITE_P(AllSums, OverflowTest,
                         testing::Values(OverflowCase{{highest, 1, 0, 0, 0}, {}},
                                         OverflowCase{{highest, 0, 0, 0, 0}, {1, 0, 0, 0, 0}},
                                         OverflowCase{{0, highest, 0, 0, 0}, {0, 1, 0, 0, 0}},
                                         OverflowCase{{highest, 0, 0, 0, 0}, {0, 1, 0, 0, 0}},
                                         OverflowCase{{0, 0, highest, 0, 0}, {0, 0, 1, 0, 0}},
                                         OverflowCase{{0, 0, 0, highest, 0}, {0, 0, 0, 1, 0}},
                                         OverflowCase{{0, 0, 0, 0, highest}, {0, 0, 0, 0, 1}},
                                         OverflowCase{{0, 0, 0, 0, -highest}, {0, 0, 0, 0, -2}}));

} // namespace
} // namespace vantrel
