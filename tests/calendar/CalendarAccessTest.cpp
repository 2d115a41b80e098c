#include <calendar/CalendarAccess.h>
#include <fakes/FakeEventStore.h>
#include <fakes/Times.h>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <unordered_set>

namespace vantrel {

void PrintTo(CalendarAccess::Status status, std::ostream *out) {
    constexpr const char *names[] = {"notDetermined", "denied", "restricted", "writeOnly",
                                     "fullAccess"};
    *out << names[static_cast<int>(status)];
}

void PrintTo(StoreAuthorization authorization, std::ostream *out) {
    constexpr const char *names[] = {"notDetermined", "restricted", "denied", "fullAccess",
                                     "writeOnly"};
    *out << names[static_cast<int>(authorization)];
}

namespace {

using Status = CalendarAccess::Status;

class CalendarAccessTest : public testing::Test {
protected:
    /// What a request answers; empty as long as it has not.
    std::optional<Status> requested() {
        access->requestFullAccess([this](Status status) {
            ++answers;
            answered = status;
        });
        return answered;
    }

    void answer(bool granted, const std::optional<QString> &error = {}) {
        ASSERT_EQ(store.accessRequests.size(), 1U);
        store.accessRequests.front()(granted, error);
    }

    fakes::FakeEventStore store{[] { return fakes::at("2026-03-02T09:00:00"); }};
    std::unique_ptr<CalendarAccess> access = std::make_unique<CalendarAccess>(store);
    std::optional<Status> answered;
    int answers = 0;
};

TEST_F(CalendarAccessTest, NamesEveryStatusOfTheStore) {
    const std::pair<StoreAuthorization, Status> rows[] = {
        {StoreAuthorization::notDetermined, Status::notDetermined},
        {StoreAuthorization::restricted, Status::restricted},
        {StoreAuthorization::denied, Status::denied},
        {StoreAuthorization::fullAccess, Status::fullAccess},
        {StoreAuthorization::writeOnly, Status::writeOnly},
        {static_cast<StoreAuthorization>(5), Status::denied},
        {static_cast<StoreAuthorization>(-1), Status::denied},
    };
    for (const auto &[authorization, status] : rows) {
        store.authorization = authorization;
        EXPECT_EQ(access->currentStatus(), status) << static_cast<int>(authorization);
    }
    EXPECT_TRUE(store.accessRequests.empty());
}

TEST_F(CalendarAccessTest, HasFiveStatusesInOrderThatCanBeHashed) {
    const std::unordered_set<Status> all{Status::notDetermined, Status::denied, Status::restricted,
                                         Status::writeOnly, Status::fullAccess};
    EXPECT_EQ(all.size(), 5U);
    EXPECT_EQ(static_cast<int>(Status::notDetermined), 0);
    EXPECT_EQ(static_cast<int>(Status::denied), 1);
    EXPECT_EQ(static_cast<int>(Status::restricted), 2);
    EXPECT_EQ(static_cast<int>(Status::writeOnly), 3);
    EXPECT_EQ(static_cast<int>(Status::fullAccess), 4);
}

TEST_F(CalendarAccessTest, AsksNobodyWhoHasGrantedFullAccess) {
    EXPECT_EQ(requested(), Status::fullAccess);
    EXPECT_TRUE(store.accessRequests.empty());
}

TEST_F(CalendarAccessTest, AsksNobodyWhoHasGrantedWritingOnly) {
    store.authorization = StoreAuthorization::writeOnly;
    EXPECT_EQ(requested(), Status::writeOnly);
    EXPECT_TRUE(store.accessRequests.empty());
}

class CalendarAccessAsking : public CalendarAccessTest,
                             public testing::WithParamInterface<StoreAuthorization> {
protected:
    CalendarAccessAsking() { store.authorization = GetParam(); }
};

TEST_P(CalendarAccessAsking, AnswersNothingBeforeTheUserDoes) {
    EXPECT_EQ(requested(), std::nullopt);
    EXPECT_EQ(store.accessRequests.size(), 1U);
}

TEST_P(CalendarAccessAsking, TakesTheAnswerForTheStatusWhateverTheStoreSaysThen) {
    requested();
    answer(true);
    EXPECT_EQ(answered, Status::fullAccess);
    EXPECT_EQ(answers, 1);
}

TEST_P(CalendarAccessAsking, CountsARefusalAsDenied) {
    requested();
    answer(false);
    EXPECT_EQ(answered, Status::denied);
}

TEST_P(CalendarAccessAsking, CountsAnErrorAsDeniedAlsoBesideAGrant) {
    requested();
    answer(true, QStringLiteral("no screen to ask on"));
    EXPECT_EQ(answered, Status::denied);
    answer(false, QString());
    EXPECT_EQ(answered, Status::denied);
}

TEST_P(CalendarAccessAsking, AnswersAlsoWhenItIsGone) {
    requested();
    access.reset();
    answer(true);
    EXPECT_EQ(answered, Status::fullAccess);
}

INSTANTIATE_TEST_SUITE_P(Status, CalendarAccessAsking,
                         testing::Values(StoreAuthorization::notDetermined,
                                         StoreAuthorization::denied,
                                         StoreAuthorization::restricted));

TEST_F(CalendarAccessTest, SeesNoCalendarAndNoEventWithoutFullAccess) {
    StoreCalendar calendar;
    calendar.calendarIdentifier = QStringLiteral("work");
    StoreEvent event;
    event.eventIdentifier = QStringLiteral("a");
    event.startDate = event.endDate = fakes::at("2026-03-02T09:00:00");
    event.calendar = std::make_shared<StoreCalendar>(calendar);
    store.storedCalendars = {calendar};
    store.storedEvents = {event};
    const auto answerCount = [&] {
        return store.calendars().size() +
               store
                   .events(event.startDate, event.startDate + Seconds{1},
                           {calendar.calendarIdentifier})
                   .size() +
               (store.eventWithIdentifier(QStringLiteral("a")) ? 1U : 0U);
    };
    EXPECT_EQ(answerCount(), 3U);
    for (const auto authorization :
         {StoreAuthorization::notDetermined, StoreAuthorization::restricted,
          StoreAuthorization::denied, StoreAuthorization::writeOnly}) {
        store.authorization = authorization;
        EXPECT_EQ(answerCount(), 0U);
        EXPECT_FALSE(store.hasAllCalendars());
        EXPECT_FALSE(store.isCalendarDeleted(QStringLiteral("gone")));
    }
}

} // namespace
} // namespace vantrel
