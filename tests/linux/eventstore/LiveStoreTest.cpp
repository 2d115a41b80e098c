#include "LiveStore.h"

#include <linux/eventstore/folders/FolderChanges.h>

#include <QDateTime>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

namespace vantrel {
namespace {

using fakes::at;
using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(LiveStore, AnswersNothingUntilItIsLoadedAndThenAnnounces) {
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    live = store({QStringLiteral("work")});
    EXPECT_FALSE(live->isLoaded());
    EXPECT_THAT(titles(*live), IsEmpty());
    begin({QStringLiteral("work")});
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(titles(*live), ElementsAre("first"));
}

TEST_F(LiveStore, AnnouncesThatItIsLoadedAlsoWithoutCalendars) {
    begin({QStringLiteral("missing")});
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(live->calendars(), IsEmpty());
}

TEST_F(LiveStore, SeesAFileThatIsReplacedByRenaming) {
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    begin({QStringLiteral("work")});
    replace(QStringLiteral("work/a.ics"), oneEvent("second"));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("second"));
}

TEST_F(LiveStore, SeesAFileThatIsWrittenInPlaceWithTheSameLengthAndTime) {
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    begin({QStringLiteral("work")});
    QFile file(files.path(QStringLiteral("work/a.ics")));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime time = file.fileTime(QFileDevice::FileModificationTime);
    file.write(oneEvent("other"));
    file.flush();
    ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("other"));
}

TEST_F(LiveStore, SeesFilesThatComeAndGo) {
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    begin({QStringLiteral("work")});
    replace(QStringLiteral("work/b.ics"), calendarText(noonEvent("second")));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("second", "first"));
    QFile::remove(files.path(QStringLiteral("work/a.ics")));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("second"));
}

TEST_F(LiveStore, AnnouncesABurstOnce) {
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    begin({QStringLiteral("work")});
    for (int index = 0; index < 50; ++index)
        replace(QStringLiteral("work/%1.ics").arg(index),
                calendarText(noonEvent(QByteArray::number(index))));
    settleChange();
    settleQuiet();
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(titles(*live).size(), 51U);
}

TEST_F(LiveStore, IsNotKeptWaitingByAWriterThatNeverPauses) {
    begin({QStringLiteral("home")});
    QDir().mkpath(files.path(QStringLiteral("home/work")));
    settleChange();
    const int before = changes;
    for (int step = 0; step < 30; ++step) {
        replace(QStringLiteral("home/work/%1.ics").arg(step), oneEvent("x"));
        settle([this] { return queue.pendingCount() > pendingAtRest; });
        queue.advance(Seconds{0.05});
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    settle([this, before] { return changes > before; });
}

TEST_F(LiveStore, LeavesWhoWaitsForQuietTheirQuietWhileAWriterNeverPauses) {
    begin({QStringLiteral("home")});
    files.write(QStringLiteral("home/a.ics"), oneEvent("before"));
    settleChange();
    ScheduledWork follower;
    int calls = 0;
    const Subscription follows = live->changed.subscribe(
        [&] { follower = queue.after(Seconds{0.5}, [&calls] { ++calls; }); });
    for (int round = 0; round < 30; ++round) {
        replace(QStringLiteral("home/a.ics"), oneEvent(QByteArray::number(round)));
        settle([this] { return queue.pendingCount() > pendingAtRest; });
        for (int step = 0; step < 2; ++step) {
            queue.advance(Seconds{0.1});
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
    }
    EXPECT_GE(calls, 5);
}

TEST_F(LiveStore, SaysNothingOfNamesThatAreNoItems) {
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    begin({QStringLiteral("work")});
    files.write(QStringLiteral("work/.sync.lock"), "x");
    files.write(QStringLiteral("work/b.ics.tmp"), oneEvent("half"));
    files.write(QStringLiteral("work/readme.txt"), "x");
    settleQuiet();
    EXPECT_EQ(changes, 1);
}

TEST_F(LiveStore, SeesAFolderThatIsMadeLaterAndOneThatGoes) {
    begin({QStringLiteral("deep/down/home")});
    EXPECT_THAT(live->calendars(), IsEmpty());
    files.write(QStringLiteral("deep/down/home/work/a.ics"), oneEvent("first"));
    settle([this] {
        queue.advance(Seconds{1.0});
        return titles(*live).size() == 1;
    });
    ASSERT_TRUE(QDir(files.path(QStringLiteral("deep/down/home/work"))).removeRecursively());
    settle([this] {
        queue.advance(Seconds{1.0});
        return titles(*live).empty();
    });
    files.write(QStringLiteral("deep/down/home/work/a.ics"), oneEvent("again"));
    settle([this] {
        queue.advance(Seconds{1.0});
        return titles(*live) == std::vector<std::string>{"again"};
    });
}

TEST_F(LiveStore, SeesAFolderThatIsRenamed) {
    files.write(QStringLiteral("home/work/a.ics"), oneEvent("first"));
    begin({QStringLiteral("home")});
    const QString before = live->calendars().front().calendarIdentifier;
    ASSERT_TRUE(QDir().rename(files.path(QStringLiteral("home/work")),
                              files.path(QStringLiteral("home/other"))));
    settleChange();
    ASSERT_EQ(live->calendars().size(), 1U);
    EXPECT_EQ(live->calendars().front().title, QStringLiteral("other"));
    EXPECT_NE(live->calendars().front().calendarIdentifier, before);
    EXPECT_THAT(titles(*live), ElementsAre("first"));
    replace(QStringLiteral("home/other/a.ics"), oneEvent("second"));
    settle([this] {
        queue.advance(Seconds{0.2});
        return titles(*live) == std::vector<std::string>{"second"};
    });
}

TEST_F(LiveStore, SeesAFolderThatIsReplacedByAnotherAtOnce) {
    files.write(QStringLiteral("home/work/a.ics"), oneEvent("first"));
    files.write(QStringLiteral("aside/a.ics"), oneEvent("second"));
    begin({QStringLiteral("home")});
    ASSERT_TRUE(
        QDir().rename(files.path(QStringLiteral("home/work")), files.path(QStringLiteral("gone"))));
    ASSERT_TRUE(QDir().rename(files.path(QStringLiteral("aside")),
                              files.path(QStringLiteral("home/work"))));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("second"));
}

TEST_F(LiveStore, SeesANewNameAndColour) {
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    begin({QStringLiteral("work")});
    replace(QStringLiteral("work/displayname"), "Arbeit");
    settleChange();
    EXPECT_EQ(live->calendars().front().title, QStringLiteral("Arbeit"));
    EXPECT_EQ(events(*live).front().calendar->title, QStringLiteral("Arbeit"));
}

TEST_F(LiveStore, SeesASingleFileComeChangeAndGo) {
    begin({QStringLiteral("one.ics")});
    replace(QStringLiteral("one.ics"), oneEvent("first"));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("first"));
    replace(QStringLiteral("one.ics"), oneEvent("second"));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("second"));
    replace(QStringLiteral("unrelated.ics"), oneEvent("other"));
    settleQuiet();
    EXPECT_EQ(changes, 3);
    QFile::remove(files.path(QStringLiteral("one.ics")));
    settleChange();
    EXPECT_THAT(live->calendars(), IsEmpty());
}

TEST_F(LiveStore, SeesAFileChangeBehindALink) {
    files.write(QStringLiteral("elsewhere/real.ics"), oneEvent("first"));
    QDir().mkpath(files.path(QStringLiteral("work")));
    ASSERT_TRUE(QFile::link(files.path(QStringLiteral("elsewhere/real.ics")),
                            files.path(QStringLiteral("work/a.ics"))));
    begin({QStringLiteral("work")});
    EXPECT_THAT(titles(*live), ElementsAre("first"));
    replace(QStringLiteral("elsewhere/real.ics"), oneEvent("second"));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("second"));
}

TEST_F(LiveStore, KeepsTheLastCompleteVersionOfAHalfWrittenFile) {
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    begin({QStringLiteral("work")});
    const QByteArray next = oneEvent("second");
    files.write(QStringLiteral("work/a.ics"), next.left(next.size() / 2));
    settle([this] {
        queue.advance(Seconds{1.0});
        return log.has("a.ics", "last complete version stays");
    });
    settleQuiet();
    EXPECT_THAT(titles(*live), ElementsAre("first"));
    files.write(QStringLiteral("work/a.ics"), next);
    settle([this] {
        queue.advance(Seconds{1.0});
        return titles(*live) == std::vector<std::string>{"second"};
    });
}

TEST_F(LiveStore, ReadsAFileOnceUntilItChanges) {
    files.write(QStringLiteral("work/bad.ics"), "junk");
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    begin({QStringLiteral("work")});
    EXPECT_TRUE(log.has("bad.ics", "")) << log.text();
    log.clear();
    replace(QStringLiteral("work/a.ics"), oneEvent("second"));
    settleChange();
    EXPECT_FALSE(log.has("bad.ics", "")) << log.text();
}

TEST_F(LiveStore, ShowsTheOtherOfTwoFilesWithOneUidWhenOneGoes) {
    files.write(QStringLiteral("work/a.ics"),
                calendarText(event("x", "DTSTART:20260302T110000Z\nSEQUENCE:2\nSUMMARY:later\n")));
    files.write(QStringLiteral("work/b.ics"), oneEvent("earlier"));
    begin({QStringLiteral("work")});
    EXPECT_THAT(titles(*live), ElementsAre("later"));
    QFile::remove(files.path(QStringLiteral("work/a.ics")));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("earlier"));
    replace(QStringLiteral("work/c.ics"),
            calendarText(event("x", "DTSTART:20260302T110000Z\nSEQUENCE:3\nSUMMARY:latest\n")));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("latest"));
}

TEST_F(LiveStore, LooksAtEverythingWhenMoreHappensThanTheSystemKeeps) {
    files.write(QStringLiteral("work/a.ics"), oneEvent("first"));
    files.write(QStringLiteral("work/b.ics"), calendarText(noonEvent("second")));
    begin({QStringLiteral("work")});
    QFile one(files.path(QStringLiteral("work/a.ics")));
    QFile other(files.path(QStringLiteral("work/b.ics")));
    for (int round = 0; round < 20'000; ++round) { // The system's own limit is 16384 events.
        for (QFile *file : {&one, &other}) {
            ASSERT_TRUE(file->open(QIODevice::ReadWrite));
            file->close();
        }
    }
    replace(QStringLiteral("work/c.ics"), calendarText(noonEvent("third")));
    settleChange();
    EXPECT_THAT(titles(*live), ElementsAre("second", "third", "first"));
}

TEST_F(LiveStore, MovesItsWindowOnFromDayToDay) {
    files.write(
        QStringLiteral("work/a.ics"),
        calendarText(event("w", "DTSTART:20260302T110000Z\nRRULE:FREQ=WEEKLY\nSUMMARY:w\n") +
                     event("far", "DTSTART:20260410T110000Z\nSUMMARY:far\n") +
                     event("past", "DTSTART:20260301T110000Z\nSUMMARY:past\n")));
    begin({QStringLiteral("work")});
    const auto between = [this](const char *from, const char *to) {
        std::vector<std::string> found;
        for (const StoreEvent &event : live->events(at(from), at(to), identifiers(*live)))
            found.push_back(event.title->toStdString());
        return found;
    };
    EXPECT_THAT(between("2026-02-01T00:00:00", "2026-05-01T00:00:00"),
                ElementsAre("past", "w", "w", "w"));
    for (int day = 0; day < 30; ++day) {
        const int before = changes;
        queue.advance(std::chrono::hours(24));
        settle([this, before] { return changes > before; });
    }
    EXPECT_THAT(between("2026-04-01T00:00:00", "2026-04-15T00:00:00"),
                ElementsAre("w", "far", "w"));
    EXPECT_THAT(between("2026-02-01T00:00:00", "2026-03-15T00:00:00"), IsEmpty());
}

TEST_F(LiveStore, MovesItsWindowWhenAQuestionShowsThatTheClockWasSet) {
    files.write(QStringLiteral("work/a.ics"),
                calendarText(event("w", "DTSTART:20200101T110000Z\nRRULE:FREQ=DAILY\n")));
    begin({QStringLiteral("work")});
    for (const char *now : {"2027-06-01T00:00:00", "2024-06-01T00:00:00"}) {
        queue.jumpWallTo(at(now));
        const auto ask = [&] {
            return live->events(at(now), at(now) + std::chrono::days(14), identifiers(*live))
                .size();
        };
        EXPECT_EQ(ask(), 0U);
        const int before = changes;
        queue.advance(Seconds{1.0});
        settle([this, before] { return changes > before; });
        EXPECT_EQ(ask(), 14U);
    }
}

TEST_F(LiveStore, ReadsWholeDaysAgainWhenTheZoneIsAnother) {
    files.write(QStringLiteral("work/a.ics"),
                calendarText(event("d", "DTSTART;VALUE=DATE:20260303\n")));
    begin({QStringLiteral("work")});
    EXPECT_EQ(events(*live).front().startDate, at("2026-03-03T00:00:00", "Europe/Zurich"));
    zone = "America/New_York";
    const int before = changes;
    queue.advance(Seconds{1000.0});
    settle([this, before] { return changes > before; });
    EXPECT_EQ(events(*live).front().startDate, at("2026-03-03T00:00:00", "America/New_York"));
}

TEST_F(LiveStore, GoesAwayInTheMiddleOfReading) {
    QByteArray text;
    for (int index = 0; index < 20'000; ++index)
        text += event(QByteArray::number(index), "DTSTART:20260302T090000Z\nRRULE:FREQ=DAILY\n");
    for (int index = 0; index < 20; ++index)
        files.write(QStringLiteral("work/%1.ics").arg(index), calendarText(text));
    live = store({QStringLiteral("work")});
    live->start();
    live.reset();
    QCoreApplication::processEvents();
}

/// How many inotify descriptors this process holds.
int watchDescriptors() {
    int count = 0;
    const auto entries = QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::System);
    for (const QFileInfo &entry : entries) {
        char target[64] = {};
        const auto length =
            ::readlink(QFile::encodeName(entry.filePath()).constData(), target, sizeof target - 1);
        count += length > 0 && QByteArray(target) == "anon_inode:inotify" ? 1 : 0;
    }
    return count;
}

TEST_F(LiveStore, WatchesManyFoldersByOneDescriptor) {
    begin({QStringLiteral("0")});
    const int withOne = watchDescriptors();
    EXPECT_GT(withOne, 0);
    live.reset();
    QStringList names;
    for (int index = 0; index < 20; ++index) {
        names.append(QString::number(index));
        files.write(names.back() + QStringLiteral("/a.ics"), oneEvent(names.back().toUtf8()));
    }
    begin(names);
    settleQuiet(); // The announcement that all are loaded.
    EXPECT_EQ(watchDescriptors(), withOne);
    replace(QStringLiteral("19/a.ics"), oneEvent("other"));
    settleChange();
    EXPECT_EQ(titles(*live).back(), "other");
}

TEST_F(LiveStore, LooksOnceAMinuteWhereNothingCanBeWatched) {
    int announcements = 0;
    FolderChanges watched(queue, [&announcements] { ++announcements; });
    rlimit limit = {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    const rlimit none = {0, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    watched.start();
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    const auto look = [&] {
        const bool isEverything = watched.take().isEverything;
        watched.watch(QFile::encodeName(files.path()));
        watched.endRound();
        QCoreApplication::processEvents();
        return isEverything;
    };
    EXPECT_TRUE(look());
    EXPECT_TRUE(log.has("cannot be watched", "once a minute")) << log.text();
    EXPECT_FALSE(look());
    queue.advance(Seconds{59.0});
    EXPECT_EQ(announcements, 0);
    queue.advance(Seconds{1.0});
    EXPECT_EQ(announcements, 1);
    EXPECT_TRUE(look());
    EXPECT_EQ(log.lines().size(), 1U);
}

} // namespace
} // namespace vantrel
