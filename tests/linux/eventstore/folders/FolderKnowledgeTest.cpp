#include "CalendarFiles.h"
#include "CapturedLog.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/folders/FolderDescription.h>
#include <linux/eventstore/folders/FolderSource.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <set>

namespace vantrel {
namespace {

using namespace tests;

/// What a source makes of a calendar that it does not find any more.
class FolderKnowledgeTest : public ::testing::Test {
protected:
    enum class Kind { home, named };

    struct Knowledge {
        bool isComplete;
        std::set<QString> deletedCalendars;

        bool operator==(const Knowledge &) const = default;
    };

    FolderKnowledgeTest() {
        write("root/kept/a.ics");
        write("root/deleted/a.ics");
    }

    void begin(Kind kind) {
        source = std::make_unique<FolderSource>(
            queue, FolderRoot{files.path(QStringLiteral("root")), {}, kind == Kind::home});
        EXPECT_FALSE(source->knowledge().isComplete);
        EXPECT_EQ(look(), (Knowledge{true, {}}));
    }

    Knowledge look() {
        (void)source->calendars();
        return {source->knowledge().isComplete, source->knowledge().deletedCalendars};
    }

    Knowledge lookWithout(const char *name) {
        EXPECT_TRUE(QDir(path(name)).removeRecursively());
        return lookAfterAMinute();
    }

    Knowledge lookAfterAMinute() {
        (void)look();
        pass(Seconds{60.0});
        return look();
    }

    void pass(Seconds time) {
        QCoreApplication::sendPostedEvents();
        queue.advance(time);
    }

    void move(const char *from, const char *to) const {
        ASSERT_EQ(std::rename(qPrintable(path(from)), qPrintable(path(to))), 0);
    }

    QString path(const char *name) const { return files.path(QString::fromLatin1(name)); }

    QString identifier(const char *name) const {
        return identifierOfPath(QFile::encodeName(path(name)));
    }

    void write(const char *name) {
        files.write(QString::fromLatin1(name),
                    calendarText(event("a", "DTSTART:20260302T090000Z\n")));
    }

    CapturedLog log;
    CalendarFiles files;

    const Knowledge exhausted{true, {identifier("root/deleted")}};
    const Knowledge uncertain{true, {}};
    const Knowledge incomplete{false, {}};

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T08:00:00")};
    std::unique_ptr<FolderSource> source;
};

TEST_F(FolderKnowledgeTest, IsCertainOfAFolderThatHoldsCalendars) {
    for (const Kind kind : {Kind::home, Kind::named}) {
        write("root/deleted/a.ics");
        begin(kind);
        EXPECT_EQ(lookWithout("root/deleted"), exhausted);
    }
}

TEST_F(FolderKnowledgeTest, TakesACalendarForDeletedOnceItWasAwayForAMinute) {
    begin(Kind::home);
    int announcements = 0;
    const Subscription news = source->changed.subscribe([&announcements] { ++announcements; });
    move("root/deleted", "root/.deleted");
    EXPECT_EQ(look(), uncertain);
    pass(Seconds{59.0});
    EXPECT_EQ(look(), uncertain);
    EXPECT_EQ(announcements, 0);
    pass(Seconds{1.0});
    EXPECT_EQ(announcements, 1);
    EXPECT_EQ(look(), exhausted);
    move("root/.deleted", "root/deleted");
    EXPECT_EQ(look(), uncertain);
}

TEST_F(FolderKnowledgeTest, WaitsAnewForACalendarThatCameBackInBetween) {
    begin(Kind::home);
    move("root/deleted", "root/.deleted");
    EXPECT_EQ(look(), uncertain);
    pass(Seconds{50.0});
    move("root/.deleted", "root/deleted");
    EXPECT_EQ(look(), uncertain);
    move("root/deleted", "root/.deleted");
    EXPECT_EQ(look(), uncertain);
    pass(Seconds{50.0});
    EXPECT_EQ(look(), uncertain);
    pass(Seconds{10.0});
    EXPECT_EQ(look(), exhausted);
}

TEST_F(FolderKnowledgeTest, NeedsNoHomeToBeCompleteButIsNotCertainWithoutOne) {
    begin(Kind::home);
    EXPECT_EQ(lookWithout("root"), uncertain);
    QDir().mkpath(path("root"));
    EXPECT_EQ(look(), uncertain);
}

TEST_F(FolderKnowledgeTest, WaitsForAPlaceThatIsMissing) {
    begin(Kind::named);
    EXPECT_EQ(lookWithout("root"), incomplete);
}

TEST_F(FolderKnowledgeTest, WaitsForAPlaceThatIsEmptyAsWhereADiskIsNotMounted) {
    begin(Kind::named);
    ASSERT_TRUE(QDir(path("root")).removeRecursively());
    QDir().mkpath(path("root"));
    EXPECT_EQ(look(), incomplete);
}

TEST_F(FolderKnowledgeTest, WaitsForALinkThatLeadsNowhere) {
    begin(Kind::home);
    QFile::link(path("usb/private"), path("root/private"));
    EXPECT_EQ(lookWithout("root/deleted"), incomplete);
    write("usb/private/a.ics");
    EXPECT_EQ(lookAfterAMinute(), exhausted);
}

TEST_F(FolderKnowledgeTest, WaitsForAPlaceThatIsNoCalendarAtTheMoment) {
    begin(Kind::named);
    ASSERT_TRUE(QDir(path("root")).removeRecursively());
    QFile::link(QStringLiteral("/dev/null"), path("root"));
    EXPECT_EQ(look(), incomplete);
}

TEST_F(FolderKnowledgeTest, IsNotCertainOfAnEmptyFolderAmongItems) {
    write("root/item.ics");
    begin(Kind::named);
    QDir().mkpath(path("root/shared"));
    EXPECT_EQ(lookWithout("root/deleted"), uncertain);
    write("root/shared/b.ics");
    EXPECT_EQ(lookAfterAMinute(), exhausted);
}

TEST_F(FolderKnowledgeTest, DoesNotTakeACalendarForDeletedThatIsListedAtAnotherPath) {
    begin(Kind::home);
    ASSERT_TRUE(QFile::link(path("root/deleted"), path("root/alias")));
    EXPECT_EQ(look(), uncertain);
    EXPECT_EQ(source->calendars().front().calendar.calendarIdentifier, identifier("root/alias"));
}

TEST_F(FolderKnowledgeTest, DoesNotMindAFolderAmongItemsThatHoldsOtherThings) {
    write("root/item.ics");
    files.write(QStringLiteral("root/pictures/one.png"), "x");
    begin(Kind::named);
    EXPECT_EQ(lookWithout("root/deleted"), exhausted);
}

TEST_F(FolderKnowledgeTest, WaitsForAFolderThatMayNotBeRead) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "the superuser may read every folder, so nothing can be shown here";
    begin(Kind::home);
    const QByteArray root = QFile::encodeName(path("root"));
    ASSERT_EQ(::chmod(root.constData(), 0), 0);
    EXPECT_EQ(look(), incomplete);
    ASSERT_EQ(::chmod(root.constData(), 0700), 0);
}

} // namespace
} // namespace vantrel
