#include "CalendarFiles.h"
#include "CapturedLog.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/StoreConfiguration.h>
#include <linux/eventstore/folders/FolderDescription.h>
#include <linux/eventstore/folders/FolderSource.h>

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrel {
namespace {

using namespace tests;

/// What a source of folders makes of a calendar that it does not find.
class FolderKnowledgeTest : public ::testing::Test {
protected:
    /// A look at the places of those names, the first of which is the home if `hasHome`.
    SourceKnowledge known(const QStringList &names, bool hasHome = false) {
        std::vector<FolderRoot> roots;
        for (const QString &name : names)
            roots.push_back({files.path(name), {}, hasHome && roots.empty()});
        return known(std::move(roots));
    }

    /// A look at those places and at one more, where a calendar is deleted just before.
    SourceKnowledge known(std::vector<FolderRoot> roots) {
        write("shelf/kept/a.ics");
        write("shelf/deleted/a.ics");
        roots.push_back({files.path(QStringLiteral("shelf")), {}, false});
        FolderSource source(queue, roots);
        EXPECT_FALSE(source.knowledge().isComplete);
        (void)source.calendars();
        EXPECT_TRUE(source.knowledge().deletedCalendars.empty());
        EXPECT_TRUE(QDir(files.path(QStringLiteral("shelf/deleted"))).removeRecursively());
        (void)source.calendars();
        return source.knowledge();
    }

    QString identifier(const char *name) const {
        return identifierOfPath(QFile::encodeName(files.path(QString::fromLatin1(name))));
    }

    void write(const char *name) {
        files.write(QString::fromLatin1(name),
                    calendarText(event("a", "DTSTART:20260302T090000Z\n")));
    }

    CapturedLog log;
    CalendarFiles files;

    const SourceKnowledge exhausted{true, {}, {identifier("shelf/deleted")}};
    const SourceKnowledge uncertain{true, {}, {}};
    const SourceKnowledge incomplete{false, {}, {}};

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T08:00:00")};
};

const auto home = QStringLiteral("home");

TEST_F(FolderKnowledgeTest, IsCertainOfFoldersThatHoldCalendars) {
    write("home/work/a.ics");
    write("other/a.ics");
    write("single.ics");
    EXPECT_EQ(known({home, QStringLiteral("other"), QStringLiteral("single.ics")}, true),
              exhausted);
}

TEST_F(FolderKnowledgeTest, NeedsNoHomeToBeCompleteButIsNotCertainWithoutOne) {
    write("other/a.ics");
    EXPECT_EQ(known({home, QStringLiteral("other")}, true), uncertain);
    QDir(files.path(QString())).mkpath(home);
    EXPECT_EQ(known({home, QStringLiteral("other")}, true), uncertain);
}

TEST_F(FolderKnowledgeTest, WaitsForAPlaceThatIsMissing) {
    write("home/work/a.ics");
    EXPECT_EQ(known({home, QStringLiteral("usb")}, true), incomplete);
}

TEST_F(FolderKnowledgeTest, WaitsForAPlaceThatIsEmptyAsWhereADiskIsNotMounted) {
    write("home/work/a.ics");
    QDir(files.path(QString())).mkpath(QStringLiteral("usb"));
    EXPECT_EQ(known({home, QStringLiteral("usb")}, true), incomplete);
}

TEST_F(FolderKnowledgeTest, WaitsForALinkInTheHomeThatLeadsNowhere) {
    write("home/work/a.ics");
    QFile::link(files.path(QStringLiteral("usb/private")),
                files.path(QStringLiteral("home/private")));
    EXPECT_EQ(known({home}, true), incomplete);
    write("usb/private/a.ics");
    EXPECT_EQ(known({home}, true), exhausted);
}

TEST_F(FolderKnowledgeTest, WaitsForAPlaceThatIsNoCalendarAtTheMoment) {
    write("home/work/a.ics");
    QFile::link(QStringLiteral("/dev/null"), files.path(QStringLiteral("odd")));
    EXPECT_EQ(known({home, QStringLiteral("odd")}, true), incomplete);
}

TEST_F(FolderKnowledgeTest, IsNotCertainOfAnEmptyFolderAmongItems) {
    write("flat/a.ics");
    QDir(files.path(QString())).mkpath(QStringLiteral("flat/shared"));
    EXPECT_EQ(known({QStringLiteral("flat")}), uncertain);
    write("flat/shared/b.ics");
    EXPECT_EQ(known({QStringLiteral("flat")}), exhausted);
}

TEST_F(FolderKnowledgeTest, WaitsForPlacesThatWereNamedWhereNobodyCouldReadIt) {
    for (const char *text :
         {"{\"folders\": [", "[]", "{\"folders\": \"/usb\"}", "{\"folders\": [\"/usb\", 1]}"}) {
        files.write(QStringLiteral("profile/calendars.json"), text);
        write("profile/calendars/work/a.ics");
        const auto configuration =
            StoreConfiguration::ofUser(files.path(QStringLiteral("profile")));
        EXPECT_EQ(known(configuration.roots), incomplete) << text;
    }
    files.write(QStringLiteral("profile/calendars.json"), "{\"folders\": []}");
    const auto configuration = StoreConfiguration::ofUser(files.path(QStringLiteral("profile")));
    EXPECT_EQ(known(configuration.roots), exhausted);
}

TEST_F(FolderKnowledgeTest, TellsNothingOfACalendarWhosePlaceIsNoLongerNamed) {
    write("home/work/a.ics");
    write("other/a.ics");
    const FolderRoot homeRoot{files.path(home), {}, true};
    const FolderRoot other{files.path(QStringLiteral("other")), {}, false};
    FolderSource source(queue, {homeRoot, other});
    (void)source.calendars();
    source.setRoots({homeRoot});
    (void)source.calendars();
    EXPECT_EQ(source.knowledge(), uncertain);
}

TEST_F(FolderKnowledgeTest, TellsOfACalendarThatWentWhileItsPlaceWasNotNamed) {
    write("home/work/a.ics");
    write("other/one/a.ics");
    write("other/two/a.ics");
    const FolderRoot homeRoot{files.path(home), {}, true};
    const FolderRoot other{files.path(QStringLiteral("other")), {}, false};
    FolderSource source(queue, {homeRoot, other});
    (void)source.calendars();
    source.setRoots({homeRoot});
    (void)source.calendars();
    ASSERT_TRUE(QDir(files.path(QStringLiteral("other/two"))).removeRecursively());
    source.setRoots({homeRoot, other});
    (void)source.calendars();
    EXPECT_EQ(source.knowledge().deletedCalendars, std::set{identifier("other/two")});
}

TEST_F(FolderKnowledgeTest, DoesNotTakeACalendarForDeletedThatIsListedAtAnotherPath) {
    write("home/work/a.ics");
    write("home/play/a.ics");
    ASSERT_TRUE(QFile::link(files.path(home), files.path(QStringLiteral("link"))));
    const FolderRoot homeRoot{files.path(home), {}, true};
    const FolderRoot link{files.path(QStringLiteral("link")), {}, false};
    FolderSource source(queue, {homeRoot, link});
    (void)source.calendars();
    source.setRoots({link, homeRoot});
    EXPECT_EQ(source.calendars().front().calendar.calendarIdentifier, identifier("link/play"));
    EXPECT_EQ(source.knowledge(), uncertain);
}

TEST_F(FolderKnowledgeTest, DoesNotMindAFolderAmongItemsThatHoldsOtherThings) {
    write("flat/a.ics");
    files.write(QStringLiteral("flat/pictures/one.png"), "x");
    EXPECT_EQ(known({QStringLiteral("flat")}), exhausted);
}

TEST_F(FolderKnowledgeTest, WaitsForAFolderThatMayNotBeRead) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "the superuser may read every folder, so nothing can be shown here";
    write("home/work/a.ics");
    const QByteArray path = files.path(home).toLocal8Bit();
    ASSERT_EQ(::chmod(path.constData(), 0), 0);
    EXPECT_EQ(known({home}, true), incomplete);
    ASSERT_EQ(::chmod(path.constData(), 0700), 0);
}

} // namespace
} // namespace vantrel
