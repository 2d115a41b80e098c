#include "CalendarFiles.h"
#include "CapturedLog.h"
#include "MemorySource.h"

#include <fakes/Times.h>
#include <linux/eventstore/EventIndex.h>
#include <linux/eventstore/StoreCatalog.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using fakes::at;
using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QString calendar = QStringLiteral("work");

/// An event at nine on that day of March, and on some days behind it.
QByteArray eventOn(const QByteArray &day, const QByteArray &title, const QByteArray &rest = {}) {
    return event("uid-" + title,
                 "DTSTART:202603" + day + "T090000Z\nSUMMARY:" + title + "\n" + rest);
}

/// What a writer leaves who never says that the calendar ends.
QByteArray withoutEnd(const QByteArray &components) {
    const QByteArray whole = calendarText(components);
    return whole.left(whole.indexOf("END:VCALENDAR"));
}

/// One calendar, and three days of it.
class CalendarCatalogTest : public testing::Test {
protected:
    void write(const QByteArray &name, const QByteArray &text) {
        source.content[calendar][name] = {text, ++m_version, 0};
    }

    /// What each day from the second on shows.
    std::vector<std::string> shownFrom(int day) {
        const Instant from = at("2026-03-01T00:00:00") + Seconds{86400.0 * (day - 1)};
        const auto second = static_cast<UtcSeconds>(from.time_since_epoch().count());
        const Window window{second, second + 3 * secondsPerDay};
        if (auto calendars = catalog.bring(window, QTimeZone::utc()))
            (void)index.replace(std::move(*calendars));
        std::vector<std::string> shown;
        for (const StoreEvent &one :
             index.events(from, from + Seconds{3.0 * secondsPerDay}, {calendar}))
            shown.push_back(one.title->toStdString());
        return shown;
    }

    const CapturedLog log;
    MemorySource source;
    StoreCatalog catalog{{&source}, {}};
    EventIndex index;

private:
    std::int64_t m_version = 0;
};

TEST_F(CalendarCatalogTest, ShowsEachVersionOfAFileThatNeverEnds) {
    write("a.ics", withoutEnd(eventOn("02", "first")));
    EXPECT_THAT(shownFrom(2), ElementsAre("first"));
    write("a.ics", withoutEnd(eventOn("03", "second")));
    EXPECT_THAT(shownFrom(2), ElementsAre("second"));
    EXPECT_FALSE(log.has("a.ics", "last complete version stays")) << log.text();
}

TEST_F(CalendarCatalogTest, FollowsTheWindowInAFileThatNeverEnds) {
    write("a.ics",
          withoutEnd(eventOn("02", "daily", "RRULE:FREQ=DAILY\n") + eventOn("09", "late")));
    EXPECT_THAT(shownFrom(2), ElementsAre("daily", "daily", "daily"));
    EXPECT_THAT(shownFrom(8), ElementsAre("daily", "daily", "late", "daily"));
}

TEST_F(CalendarCatalogTest, ShowsAFileThatWasEmptyUpToWhereItEnds) {
    write("a.ics", calendarText({}));
    EXPECT_THAT(shownFrom(2), IsEmpty());
    write("a.ics", withoutEnd(eventOn("02", "first")));
    EXPECT_THAT(shownFrom(2), ElementsAre("first"));
}

TEST_F(CalendarCatalogTest, KeepsTheLastCompleteVersionUntilTheNext) {
    write("a.ics", calendarText(eventOn("02", "first") + eventOn("03", "second")));
    EXPECT_THAT(shownFrom(2), ElementsAre("first", "second"));
    for (int version = 0; version < 2; ++version) {
        write("a.ics", withoutEnd(eventOn("02", "third")));
        EXPECT_THAT(shownFrom(2), ElementsAre("first", "second"));
    }
    EXPECT_TRUE(log.has("a.ics", "last complete version stays")) << log.text();
    EXPECT_THAT(shownFrom(3), ElementsAre("second"));
    write("a.ics", calendarText(eventOn("04", "third")));
    EXPECT_THAT(shownFrom(3), ElementsAre("third"));
}

TEST_F(CalendarCatalogTest, KnowsAFileAgainBehindOneThatComesBeforeIt) {
    write("b.ics", calendarText(eventOn("02", "first")));
    EXPECT_THAT(shownFrom(2), ElementsAre("first"));
    write("a.ics", withoutEnd(eventOn("03", "other")));
    EXPECT_THAT(shownFrom(2), ElementsAre("first", "other"));
    write("a.ics", withoutEnd(eventOn("04", "later")));
    write("b.ics", withoutEnd({}));
    EXPECT_THAT(shownFrom(2), ElementsAre("first", "later"));
}

TEST_F(CalendarCatalogTest, KeepsWhatAMasterAndItsOverrideShowWhileOneCannotBeRead) {
    write("master.ics", calendarText(eventOn("02", "x", "RRULE:FREQ=DAILY\n")));
    write("override.ics", calendarText(event("uid-x", "RECURRENCE-ID:20260303T090000Z\n"
                                                      "DTSTART:20260303T110000Z\n"
                                                      "SUMMARY:moved\n")));
    EXPECT_THAT(shownFrom(2), ElementsAre("x", "moved", "x"));
    source.unreadable = {"override.ics"};
    write("master.ics",
          calendarText(eventOn("02", "y", "RRULE:FREQ=DAILY\n").replace("uid-y", "uid-x")));
    EXPECT_THAT(shownFrom(2), ElementsAre("x", "moved", "x"));
    source.unreadable.clear();
    EXPECT_THAT(shownFrom(2), ElementsAre("y", "moved", "y"));
    source.unreadable = {"master.ics"};
    EXPECT_THAT(shownFrom(3), ElementsAre("moved", "y"));
    source.unreadable.clear();
    EXPECT_THAT(shownFrom(3), ElementsAre("moved", "y", "y"));
}

TEST_F(CalendarCatalogTest, KeepsWhatAMasterAndItsOverrideShowWhileOneIsBeingWritten) {
    write("master.ics", calendarText(eventOn("02", "x", "RRULE:FREQ=DAILY\n")));
    const QByteArray moved =
        event("uid-x", "RECURRENCE-ID:20260303T090000Z\nDTSTART:20260303T110000Z\n"
                       "SUMMARY:moved\n");
    write("override.ics", calendarText(moved));
    EXPECT_THAT(shownFrom(2), ElementsAre("x", "moved", "x"));
    write("override.ics", "BEGIN:VCALENDAR\n");
    EXPECT_THAT(shownFrom(2), ElementsAre("x", "moved", "x"));
    write("master.ics",
          calendarText(eventOn("02", "y", "RRULE:FREQ=DAILY\n").replace("uid-y", "uid-x")));
    EXPECT_THAT(shownFrom(2), ElementsAre("x", "moved", "x"));
    write("override.ics", calendarText(moved));
    EXPECT_THAT(shownFrom(2), ElementsAre("y", "moved", "y"));
}

TEST_F(CalendarCatalogTest, ExpandsAnOverrideThatNeverEndsTogetherWithItsMaster) {
    write("override.ics", withoutEnd(event("uid-x", "RECURRENCE-ID:20260303T090000Z\n"
                                                    "DTSTART:20260303T110000Z\n"
                                                    "SUMMARY:moved\n")));
    write("master.ics", calendarText(eventOn("02", "x", "RRULE:FREQ=DAILY\n")));
    EXPECT_THAT(shownFrom(2), ElementsAre("x", "moved", "x"));
    EXPECT_THAT(shownFrom(3), ElementsAre("moved", "x", "x"));
}

TEST_F(CalendarCatalogTest, KeepsWhatTwoFilesShowWhenOneGoesAndTheOtherCannotBeRead) {
    write("a.ics", calendarText(eventOn("02", "x", "RRULE:FREQ=DAILY\n")));
    write("b.ics", calendarText(event("uid-x", "RECURRENCE-ID:20260303T090000Z\n"
                                               "DTSTART:20260303T110000Z\nSUMMARY:moved\n")));
    EXPECT_THAT(shownFrom(2), ElementsAre("x", "moved", "x"));
    source.content[calendar].erase("a.ics");
    source.unreadable = {"b.ics"};
    EXPECT_THAT(shownFrom(2), ElementsAre("x", "moved", "x"));
    source.unreadable.clear();
    EXPECT_THAT(shownFrom(2), ElementsAre("moved"));
}

} // namespace
} // namespace vantrel
