#include <linux/eventstore/evolution/module/AnswerTable.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

SourceCalendar calendar(const QString &identifier) {
    SourceCalendar made;
    made.calendar.calendarIdentifier = identifier;
    return made;
}

TEST(AnswerTableTest, IsCompleteOnceEachListedCalendarHasDelivered) {
    AnswerTable table;
    table.list({calendar(u"a"_qs), calendar(u"b"_qs)}, {});
    table.settleRegistry(true);
    table.settle(u"a"_qs);
    EXPECT_FALSE(table.knowledge().isComplete);
    table.settle(u"b"_qs);
    EXPECT_TRUE(table.knowledge().isComplete);
}

TEST(AnswerTableTest, IsNotCompleteWhileAnAccountStillLooksForItsCalendars) {
    AnswerTable table;
    table.list({calendar(u"a"_qs)}, {{}, true});
    table.settleRegistry(true);
    table.settle(u"a"_qs);
    EXPECT_FALSE(table.knowledge().isComplete);
    table.list({calendar(u"a"_qs), calendar(u"found"_qs)}, {});
    table.settle(u"found"_qs);
    EXPECT_TRUE(table.knowledge().isComplete);
}

TEST(AnswerTableTest, WhoAsksOnceDoesNotWaitForWhatAnAccountMayFind) {
    AnswerTable table;
    table.list({calendar(u"a"_qs)}, {{}, true});
    table.settleRegistry(true);
    table.settle(u"a"_qs);
    table.waitUntilSettled(Seconds{3600.0});
    EXPECT_EQ(table.calendars().size(), 1U);
}

} // namespace
} // namespace vantrel
