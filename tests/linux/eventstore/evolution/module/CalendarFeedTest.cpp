#include "StandInFactory.h"

#include <linux/eventstore/evolution/module/CalendarFeed.h>

#include <QDeadlineTimer>

#include <CapturedLog.h>
#include <gmock/gmock.h>

#include <vector>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using Stall = StandInFactory::Stall;

/// Feeds of one place on a factory that does as it is told.
class CalendarFeedTest : public ::testing::Test {
protected:
    ~CalendarFeedTest() override {
        m_feeds.clear();
        while (g_main_context_iteration(nullptr, FALSE))
            ;
    }

    void list(const std::vector<QByteArray> &sources) {
        std::vector<SourceCalendar> listed;
        for (const QByteArray &source : sources) {
            SourceCalendar calendar;
            calendar.calendar.calendarIdentifier = calendar.calendar.title =
                QString::fromLatin1(source);
            listed.push_back(calendar);
        }
        table.list(listed, {});
        table.settleRegistry(true);
        for (const QByteArray &source : sources) {
            m_feeds.push_back(std::make_shared<CalendarFeed>(
                source, QString::fromLatin1(source),
                CalendarFeed::Surroundings{factory.client(), table, m_slots, [] {},
                                           FeedPatience{Seconds{0.3}, Seconds{60.0}}}));
            m_feeds.back()->start(Window{1'772'400'000, 1'773'600'000});
        }
    }

    template <typename Condition>
    void settle(Condition condition, const char *what) {
        const QDeadlineTimer deadline(60'000);
        ContextTimer tick; // Which also notices that it takes too long.
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired()) << "not in time: " << what << '\n' << log.text();
            if (!tick.isRunning())
                tick.startFor(Seconds{0.1}, [] {});
            g_main_context_iteration(nullptr, TRUE);
        }
    }

    std::size_t itemsOf(const char *source) {
        return table.items(QLatin1String(source)).value_or(std::vector<SourceItem>()).size();
    }

    [[nodiscard]] std::size_t linesWith(const std::string &part) const {
        std::size_t count = 0;
        for (const std::string &line : log.lines())
            count += line.find(part) != std::string::npos ? 1 : 0;
        return count;
    }

    void expectItYieldsAndReturns(Stall stall) {
        std::vector<QByteArray> sources;
        for (int number = 0; number < 8; ++number) {
            sources.push_back("slow" + QByteArray::number(number));
            factory.setStall(sources.back(), stall);
        }
        sources.push_back("quick");
        list(sources);
        settle([this] { return itemsOf("quick") == 1; }, "the one behind them has its turn");
        settle([this] { return table.knowledge().isComplete; }, "nobody waits for the others");
        EXPECT_EQ(itemsOf("slow0"), 0U);
        settle([this] { return factory.openings("slow0") > 1; }, "it is tried again");
        EXPECT_EQ(linesWith("slow0: does not answer"), 1U) << log.text();
        factory.setStall("slow0", Stall::nowhere);
        settle([this] { return itemsOf("slow0") == 1; }, "it comes after all");
        EXPECT_EQ(linesWith("slow0: is back"), 1U) << log.text();
    }

    CapturedLog log;
    StandInFactory factory;
    AnswerTable table;

private:
    ConnectSlots m_slots;
    std::vector<std::shared_ptr<CalendarFeed>> m_feeds;
};

TEST_F(CalendarFeedTest, LeavesItsSlotToOthersWhenACalendarDoesNotOpen) {
    expectItYieldsAndReturns(Stall::opening);
}

TEST_F(CalendarFeedTest, LeavesItsSlotToOthersWhenAViewDoesNotBegin) {
    expectItYieldsAndReturns(Stall::watching);
}

TEST_F(CalendarFeedTest, LeavesItsSlotToOthersWhenAViewIsNeverComplete) {
    expectItYieldsAndReturns(Stall::listing);
}

TEST_F(CalendarFeedTest, LeavesItsSlotToOthersWhenASeriesIsNotDelivered) {
    expectItYieldsAndReturns(Stall::fetching);
}

TEST_F(CalendarFeedTest, BeginsAnewWhenAChangedSeriesIsNeverDelivered) {
    list({"office"});
    settle([this] { return itemsOf("office") == 1; }, "its event");
    factory.setStall("office", Stall::fetching);
    factory.touch("office");
    settle([this] { return linesWith("office: does not answer") == 1; }, "it is noticed");
    EXPECT_EQ(itemsOf("office"), 1U) << "what was read last stays";
    factory.setStall("office", Stall::nowhere);
    settle([this] { return linesWith("office: is back") == 1; }, "it comes after all");
}

TEST_F(CalendarFeedTest, KeepsTheRestWhenOneSeriesCannotBeHad) {
    list({"office"});
    settle([this] { return itemsOf("office") == 1; }, "its event");
    factory.setFetchError("org.gnome.evolution.dataserver.Error.OtherError");
    factory.touch("office");
    settle([this] { return linesWith("office: it failed") == 1; }, "it is noticed");
    EXPECT_EQ(itemsOf("office"), 1U);
    EXPECT_EQ(factory.openings("office"), 1) << "the calendar is not left";
    EXPECT_EQ(linesWith("office: cannot be read"), 0U) << log.text();
}

TEST_F(CalendarFeedTest, FollowsTheUsersAddressAsItChanges) {
    list({"office"});
    const auto addresses = [this] { return table.calendars().at(0).addresses; };
    settle([&] { return addresses() == QStringList{QStringLiteral("me@office.example")}; },
           "the address it opened with");
    settle([this] { return itemsOf("office") == 1; }, "its event");
    factory.setAddress("office", "mailto:New@Office.Example");
    settle([&] { return addresses() == QStringList{QStringLiteral("new@office.example")}; },
           "the one it has become");
    factory.setAddress("office", "");
    settle([&] { return addresses().empty(); }, "it has none any more");
}

} // namespace
} // namespace vantrel
