#include "LiveStore.h"
#include "OrdinaryRights.h"

#include <gmock/gmock.h>

#include <cstdio>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A store on a folder `disk/work` of one event, which goes out of its reach.
class OutOfReachTest : public LiveStore {
protected:
    OutOfReachTest() : rights(files.path()) {
        files.write(QStringLiteral("disk/work/a.ics"), oneEvent("known"));
    }

    ~OutOfReachTest() override {
        permit("disk", 0700);
        permit("disk/work", 0700);
    }

    QString path(const char *name) const { return files.path(QString::fromLatin1(name)); }

    void permit(const char *name, mode_t mode) const { ::chmod(qPrintable(path(name)), mode); }

    void move(const char *from, const char *to) const {
        ASSERT_EQ(std::rename(qPrintable(path(from)), qPrintable(path(to))), 0);
    }

    void settleLog(const char *what, const char *error) {
        settle([&] {
            queue.advance(Seconds{0.2});
            return log.has(what, error);
        });
    }

    template <typename Matcher>
    void expectTitles(const Matcher &matcher) {
        settle([&] {
            queue.advance(Seconds{0.2});
            return ::testing::Value(titles(*live), matcher);
        });
    }

    void expectOnlyWhatIsKnown() {
        settle([this] { return !live->hasAllCalendars(); });
        EXPECT_THAT(titles(*live), ElementsAre("known"));
    }

    const OrdinaryRights rights;
};

TEST_F(OutOfReachTest, AFolderThatMayNoLongerBeReadKeepsItsEvents) {
    begin({QStringLiteral("disk/work")});
    permit("disk/work", 0);
    settleLog("folder not read", "Permission denied");
    expectOnlyWhatIsKnown();
    permit("disk/work", 0700);
    replace(QStringLiteral("disk/work/a.ics"), oneEvent("other"));
    expectTitles(ElementsAre("other"));
    EXPECT_TRUE(live->hasAllCalendars());
}

TEST_F(OutOfReachTest, AFolderThatMayNoLongerBeLookedAtKeepsItsEvents) {
    begin({QStringLiteral("disk/work")});
    permit("disk", 0);
    settleLog("no calendars", "Permission denied");
    expectOnlyWhatIsKnown();
    queue.advance(Seconds{86400.0}); // Another window does not ask more of it.
    settleQuiet();
    expectOnlyWhatIsKnown();
}

TEST_F(OutOfReachTest, TheLogTellsWhyAFolderCannotBeLookedAt) {
    begin({QStringLiteral("disk/work")});
    move("disk/work", "disk/aside");
    ASSERT_TRUE(QFile::link(path("disk/work"), path("disk/work")));
    settleLog("no calendars", "Too many levels of symbolic links");
    expectOnlyWhatIsKnown();
}

TEST_F(OutOfReachTest, ACalendarWhoseItemsMayNotBeLookedAtKeepsItsEvents) {
    begin({QStringLiteral("disk")});
    permit("disk/work", 0400);
    settleLog("folder not read", "Permission denied");
    EXPECT_THAT(titles(*live), ElementsAre("known"));
}

TEST_F(OutOfReachTest, ACalendarAmongItemsKeepsItsEventsThoughItMayNoLongerBeRead) {
    files.write(QStringLiteral("disk/b.ics"), oneEvent("beside"));
    begin({QStringLiteral("disk")});
    permit("disk/work", 0);
    settleLog("folder not read", "Permission denied");
    EXPECT_THAT(titles(*live), ElementsAre("beside", "known"));
}

TEST_F(OutOfReachTest, WhatALinkLeadsToKeepsItsEventsWhileItIsMissing) {
    files.write(QStringLiteral("home/near/a.ics"), oneEvent("near"));
    ASSERT_TRUE(QFile::link(path("disk/work"), path("home/far")));
    begin({QStringLiteral("home")});
    move("disk", "aside");
    settleLog("home/far", "out of reach");
    settle([this] { return !live->hasAllCalendars(); });
    EXPECT_THAT(titles(*live), ElementsAre("known", "near"));
    replace(QStringLiteral("aside/work/a.ics"), oneEvent("other"));
    move("aside", "disk");
    expectTitles(ElementsAre("other", "near"));
}

TEST_F(OutOfReachTest, CalendarsThatCannotBeLookedAtAreNotTakenForOnePlace) {
    files.write(QStringLiteral("disk/private/a.ics"), oneEvent("other"));
    permit("disk", 0400);
    begin({QStringLiteral("disk")});
    EXPECT_EQ(live->calendars().size(), 2U);
    permit("disk", 0700);
    expectTitles(ElementsAre("other", "known"));
}

TEST_F(OutOfReachTest, AFolderThatIsMissingWithTheOneAboveItKeepsItsEvents) {
    begin({QStringLiteral("disk/work")});
    move("disk", "aside");
    QDir().mkpath(path("disk"));
    permit("aside/work", 0500); // The folder itself is watched, the one above it is not.
    settleLog("no calendars", "No such file");
    expectOnlyWhatIsKnown();
}

TEST_F(OutOfReachTest, AFolderThatIsGoneFromTheOneAboveItHasNoEvents) {
    begin({QStringLiteral("disk/work")});
    move("disk/work", "aside");
    expectTitles(IsEmpty());
}

TEST_F(OutOfReachTest, AFolderWhoseEventsAreDeletedHasNone) {
    begin({QStringLiteral("disk/work")});
    ASSERT_TRUE(QFile::remove(path("disk/work/a.ics")));
    expectTitles(IsEmpty());
}

} // namespace
} // namespace vantrel
