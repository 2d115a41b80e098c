#include "OrdinaryRights.h"
#include "StoreFixture.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FolderSourceTest : public StoreFixture {
protected:
    static std::vector<std::string> calendarTitles(const EventStore &store) {
        std::vector<std::string> titles;
        for (const StoreCalendar &calendar : store.calendars())
            titles.push_back(calendar.title.toStdString());
        return titles;
    }

    void link(const QString &target, const QString &name) const {
        ASSERT_TRUE(QFile::link(files.path(target), files.path(name)));
    }
};

const QByteArray sound = calendarText(noonEvent("x"));

TEST_F(FolderSourceTest, AFolderWithItemsIsACalendar) {
    files.write(QStringLiteral("work/a.ics"), sound);
    files.write(QStringLiteral("work/B.ICS"), calendarText(noonEvent("y")));
    const auto store = load({QStringLiteral("work")});
    EXPECT_THAT(calendarTitles(*store), ElementsAre("work"));
    EXPECT_THAT(titles(*store), ElementsAre("x", "y"));
}

TEST_F(FolderSourceTest, ANameForgesNoLineOfTheLog) {
    files.write(QStringLiteral("work/a\nvantrel: all is well.ics"), "junk");
    files.write(QStringLiteral("work/\x1b[2Jb.ics"), "junk");
    const auto store = load({QStringLiteral("work"), QStringLiteral("no\nfolder")});
    EXPECT_TRUE(log.has("a\\x0avantrel", "")) << log.text();
    EXPECT_TRUE(log.has("\\x1b[2Jb.ics", "")) << log.text();
    EXPECT_TRUE(log.has("no\\x0afolder", "no calendars")) << log.text();
    for (const std::string &line : log.lines())
        EXPECT_EQ(line.find_first_of("\n\x1b"), std::string::npos) << line;
}

TEST_F(FolderSourceTest, AFolderOfFoldersHoldsACalendarEach) {
    files.write(QStringLiteral("home/work/a.ics"), sound);
    files.write(QStringLiteral("home/private/a.ics"), sound);
    files.write(QStringLiteral("home/.cache/a.ics"), sound);
    files.write(QStringLiteral("home/work.tmp/a.ics"), sound);
    QDir().mkpath(files.path(QStringLiteral("home/empty")));
    const auto store = load({QStringLiteral("home")});
    EXPECT_THAT(calendarTitles(*store), ElementsAre("empty", "private", "work"));
    for (const StoreCalendar &calendar : store->calendars())
        EXPECT_EQ(calendar.source.title, QStringLiteral("home"));
}

TEST_F(FolderSourceTest, AFolderOfBothIsACalendarBesideThoseInIt) {
    files.write(QStringLiteral("home/stray.ics"), sound);
    files.write(QStringLiteral("home/work/a.ics"), calendarText(noonEvent("y")));
    files.write(QStringLiteral("home/notes/readme.txt"), "nothing");
    const auto store = load({QStringLiteral("home")});
    EXPECT_THAT(calendarTitles(*store), ElementsAre("home", "work"));
    EXPECT_THAT(titles(*store), ElementsAre("x", "y"));
}

TEST_F(FolderSourceTest, AnEmptyFolderIsACalendarWithoutEvents) {
    QDir().mkpath(files.path(QStringLiteral("empty")));
    const auto store = load({QStringLiteral("empty")});
    EXPECT_THAT(calendarTitles(*store), ElementsAre("empty"));
    EXPECT_THAT(titles(*store), IsEmpty());
}

TEST_F(FolderSourceTest, AnEmptyCalendarHomeHoldsNoCalendar) {
    QDir().mkpath(files.path(QStringLiteral("home")));
    StoreConfiguration configuration;
    configuration.roots.push_back({files.path(QStringLiteral("home")), {}, true});
    configuration.roots.push_back({files.path(QStringLiteral("missing")), {}, true});
    LocalEventStore store(
        queue, configuration, [] { return fakes::calendarIn("UTC"); }, StoreAccess::granted());
    store.loadNow();
    EXPECT_THAT(store.calendars(), IsEmpty());
    EXPECT_EQ(log.text(), "");
}

TEST_F(FolderSourceTest, APathThatLeadsNowhereIsLogged) {
    const auto store = load({QStringLiteral("missing")});
    EXPECT_THAT(store->calendars(), IsEmpty());
    EXPECT_TRUE(log.has("missing", "no calendars")) << log.text();
}

TEST_F(FolderSourceTest, DescriptionFilesNameAndColourACalendar) {
    files.write(QStringLiteral("work/a.ics"), sound);
    files.write(QStringLiteral("work/displayname"), "  Arbeit \xE2\x9C\x93\n");
    files.write(QStringLiteral("work/color"), "#FF8000\n");
    const auto calendar = load({QStringLiteral("work")})->calendars().front();
    EXPECT_EQ(calendar.title, QString::fromUtf8("Arbeit \xE2\x9C\x93"));
    EXPECT_EQ(calendar.color, (Color{1.0, 128.0 / 255.0, 0.0, 1.0}));
}

TEST_F(FolderSourceTest, ACalendarWithoutColourKeepsOneOfItsOwn) {
    files.write(QStringLiteral("work/a.ics"), sound);
    files.write(QStringLiteral("work/color"), "mauve-ish");
    const auto first = load({QStringLiteral("work")})->calendars().front();
    const auto second = load({QStringLiteral("work")})->calendars().front();
    ASSERT_TRUE(first.color);
    EXPECT_EQ(first.color, second.color);
}

TEST_F(FolderSourceTest, ASingleFileIsNamedAndColouredByItsText) {
    files.write(
        QStringLiteral("holidays.ics"),
        calendarText("X-WR-CALNAME:Feiertage\\, Schweiz\nX-APPLE-CALENDAR-COLOR:#00FF00FF\n" +
                     noonEvent("x")));
    files.write(QStringLiteral("named.ics"),
                calendarText("NAME:Named\nCOLOR:rebeccapurple\n" + noonEvent("x")));
    files.write(QStringLiteral("plain.ics"), sound);
    const auto store = load(
        {QStringLiteral("holidays.ics"), QStringLiteral("named.ics"), QStringLiteral("plain.ics")});
    EXPECT_THAT(calendarTitles(*store), ElementsAre("Feiertage, Schweiz", "Named", "plain"));
    EXPECT_EQ(store->calendars()[0].color, (Color{0.0, 1.0, 0.0, 1.0}));
    EXPECT_EQ(store->calendars()[1].color,
              (Color{102.0 / 255.0, 51.0 / 255.0, 153.0 / 255.0, 1.0}));
    EXPECT_TRUE(store->calendars()[2].color);
}

TEST_F(FolderSourceTest, ItemsOfAFolderDoNotNameIt) {
    files.write(QStringLiteral("work/a.ics"),
                calendarText("X-WR-CALNAME:Not this\n" + noonEvent("x")));
    EXPECT_THAT(calendarTitles(*load({QStringLiteral("work")})), ElementsAre("work"));
}

TEST_F(FolderSourceTest, APlaceThatTwoRootsLeadToIsOneCalendar) {
    files.write(QStringLiteral("home/work/a.ics"), sound);
    link(QStringLiteral("home/work"), QStringLiteral("alias"));
    const auto store =
        load({QStringLiteral("home"), QStringLiteral("home/work"), QStringLiteral("alias")});
    EXPECT_THAT(titles(*store), ElementsAre("x"));
}

TEST_F(FolderSourceTest, LinksAreFollowedOnceAndLoopsEnd) {
    files.write(QStringLiteral("elsewhere/a.ics"), sound);
    QDir().mkpath(files.path(QStringLiteral("home/real")));
    link(QStringLiteral("elsewhere"), QStringLiteral("home/linked"));
    link(QStringLiteral("home"), QStringLiteral("home/loop"));
    link(QStringLiteral("elsewhere/a.ics"), QStringLiteral("home/real/b.ics"));
    const auto store = load({QStringLiteral("home")});
    EXPECT_THAT(titles(*store), ElementsAre("x", "x"));
}

TEST_F(FolderSourceTest, WhatCannotBeReadIsLoggedAndCostsNothingElse) {
    const OrdinaryRights rights(files.path());
    files.write(QStringLiteral("home/work/good.ics"), sound);
    files.write(QStringLiteral("home/work/secret.ics"), sound);
    files.write(QStringLiteral("home/closed/a.ics"), sound);
    ASSERT_EQ(::chmod(qPrintable(files.path(QStringLiteral("home/work/secret.ics"))), 0), 0);
    ASSERT_EQ(::chmod(qPrintable(files.path(QStringLiteral("home/closed"))), 0), 0);
    const auto store = load({QStringLiteral("home")});
    ASSERT_EQ(::chmod(qPrintable(files.path(QStringLiteral("home/closed"))), 0700), 0);
    EXPECT_THAT(titles(*store), ElementsAre("x"));
    EXPECT_TRUE(log.has("secret.ics", "file not read")) << log.text();
    EXPECT_TRUE(log.has("closed", "folder not read")) << log.text();
    EXPECT_EQ(store->troubles().size(), 1);
}

TEST_F(FolderSourceTest, TellsOfAFileThatCannotBeRead) {
    const OrdinaryRights rights(files.path());
    files.write(QStringLiteral("work/a.ics"), sound);
    EXPECT_EQ(load({QStringLiteral("work")})->troubles(), QStringList());
    ASSERT_EQ(::chmod(qPrintable(files.path(QStringLiteral("work/a.ics"))), 0), 0);
    const QStringList troubles = load({QStringLiteral("work")})->troubles();
    ASSERT_EQ(troubles.size(), 1);
    EXPECT_TRUE(troubles[0].contains(QStringLiteral("work/a.ics"))) << qPrintable(troubles[0]);
}

TEST_F(FolderSourceTest, TellsOfAFileThatEndsInTheMiddle) {
    files.write(QStringLiteral("work/a.ics"), sound);
    files.write(QStringLiteral("work/b.ics"), sound.left(sound.size() / 2));
    const QStringList troubles = load({QStringLiteral("work")})->troubles();
    ASSERT_EQ(troubles.size(), 1);
    EXPECT_TRUE(troubles[0].contains(QStringLiteral("work/b.ics"))) << qPrintable(troubles[0]);
}

TEST_F(FolderSourceTest, TellsOfAFileThatIsReadInPart) {
    files.write(QStringLiteral("work/a.ics"),
                calendarText(noonEvent("x")) + QByteArray(33 * 1024 * 1024, '\n'));
    const QStringList troubles = load({QStringLiteral("work")})->troubles();
    ASSERT_EQ(troubles.size(), 1);
    EXPECT_TRUE(troubles[0].contains(QStringLiteral("work/a.ics"))) << qPrintable(troubles[0]);
}

TEST_F(FolderSourceTest, PermissionsTellWhetherACalendarCanBeChanged) {
    const OrdinaryRights rights(files.path());
    files.write(QStringLiteral("open.ics"), sound);
    files.write(QStringLiteral("closed.ics"), sound);
    ASSERT_EQ(::chmod(qPrintable(files.path(QStringLiteral("closed.ics"))), 0400), 0);
    const auto store = load({QStringLiteral("open.ics"), QStringLiteral("closed.ics")});
    EXPECT_TRUE(store->calendars()[0].allowsContentModifications);
    EXPECT_FALSE(store->calendars()[1].allowsContentModifications);
}

} // namespace
} // namespace vantrel
