#include <linux/eventstore/ical/RecurrenceRule.h>

#include <QByteArray>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

class RuleThatCanBeRead : public ::testing::TestWithParam<const char *> {};
class RuleThatCannot : public ::testing::TestWithParam<const char *> {};

TEST_P(RuleThatCanBeRead, IsRead) {
    QString problem;
    EXPECT_TRUE(RecurrenceRule::parse(QByteArrayView(GetParam()), problem));
    EXPECT_TRUE(problem.isEmpty());
}

TEST_P(RuleThatCannot, IsRefusedWithAReason) {
    QString problem;
    EXPECT_FALSE(RecurrenceRule::parse(QByteArrayView(GetParam()), problem));
    EXPECT_FALSE(problem.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Table, RuleThatCanBeRead,
                         ::testing::Values("FREQ=DAILY", "freq=weekly;byday=mo,tu", "FREQ=DAILY;",
                                           "FREQ=DAILY ; COUNT=3", "COUNT=3;FREQ=DAILY",
                                           "FREQ=MONTHLY;BYDAY=+2TU,-1FR", "FREQ=DAILY;X-VENDOR=1",
                                           "FREQ=YEARLY;BYWEEKNO=-1;BYDAY=MO",
                                           "FREQ=DAILY;UNTIL=20260302", "FREQ=DAILY;BYSECOND=60",
                                           "RSCALE=GREGORIAN;FREQ=DAILY;SKIP=OMIT"));

INSTANTIATE_TEST_SUITE_P(
    Table, RuleThatCannot,
    ::testing::Values("", ";", "FREQ", "FREQ=", "FREQ=FORTNIGHTLY", "COUNT=3", "FREQ=DAILY;COUNT=0",
                      "FREQ=DAILY;COUNT=-1", "FREQ=DAILY;COUNT=99999999999",
                      "FREQ=DAILY;INTERVAL=0", "FREQ=DAILY;INTERVAL=-1",
                      "FREQ=DAILY;INTERVAL=999999999", "FREQ=DAILY;BYHOUR=24",
                      "FREQ=DAILY;BYMONTH=0", "FREQ=DAILY;BYMONTH=13", "FREQ=DAILY;BYMONTHDAY=0",
                      "FREQ=DAILY;BYMONTHDAY=32", "FREQ=DAILY;BYYEARDAY=-367",
                      "FREQ=DAILY;BYSETPOS=0", "FREQ=DAILY;BYDAY=XX", "FREQ=DAILY;BYDAY=54MO",
                      "FREQ=DAILY;BYDAY=0MO", "FREQ=DAILY;BYDAY=", "FREQ=DAILY;BYHOUR=1,,2",
                      "FREQ=DAILY;BYHOUR=one", "FREQ=DAILY;WKST=X", "FREQ=DAILY;UNTIL=20260231",
                      "FREQ=DAILY;UNKNOWN=1", "RSCALE=CHINESE;FREQ=YEARLY"));

} // namespace
} // namespace vantrel
