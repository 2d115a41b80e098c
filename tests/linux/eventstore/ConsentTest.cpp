#include "StoreFixture.h"

#include <fakes/FakeAccessPrompt.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFileInfo>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using Answer = AccessPrompt::Answer;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int patience = 20'000; // milliseconds until a test gives up

/// A store over one calendar with one event, which has to ask before it reads.
class ConsentTest : public StoreFixture {
protected:
    ConsentTest() {
        files.write(QStringLiteral("work/a.ics"), calendarText(noonEvent("meeting")));
        makeStore(&prompt);
    }

    void makeStore(AccessPrompt *asked) {
        StoreConfiguration configuration;
        configuration.roots = {{files.path(QStringLiteral("work")), QStringLiteral("Work"), false},
                               {files.path(QStringLiteral("none")), {}, false}};
        live = std::make_unique<LocalEventStore>(
            queue, configuration, [this] { return fakes::calendarIn(zone); },
            std::make_unique<StoreAccess>(record(), asked));
        m_subscription = live->changed.subscribe([this] { ++changes; });
    }

    AccessRecord record() const {
        return {files.path(QStringLiteral("access.json")),
                {files.path(QStringLiteral("policy.json"))}};
    }

    void request() {
        live->requestFullAccessToEvents([this](bool isGranted, const auto &error) {
            answers.push_back(isGranted);
            errors.push_back(error.value_or(QString()).toStdString());
        });
    }

    template <typename Condition>
    void settle(Condition condition) {
        const QDeadlineTimer deadline(patience);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired()) << log.text();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    /// Lets everything run that is under way already.
    void settleQuiet() {
        for (int round = 0; round < 20; ++round) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            queue.advance(Seconds{1.0});
        }
    }

    bool isUntouched() const {
        return changes == 0 && !live->isLoaded() && live->calendars().empty();
    }

    fakes::FakeAccessPrompt prompt;
    std::unique_ptr<LocalEventStore> live;
    int changes = 0;
    std::vector<bool> answers;
    std::vector<std::string> errors;

private:
    Subscription m_subscription;
};

TEST_F(ConsentTest, ReadsNothingBeforeTheUserAllowedIt) {
    live->start();
    request();
    settleQuiet();
    EXPECT_TRUE(isUntouched());
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::notDetermined);
    EXPECT_THAT(events(*live), IsEmpty());
    live->loadNow();
    EXPECT_TRUE(isUntouched());
    EXPECT_EQ(queue.pendingCount(), 0U);
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(ConsentTest, NamesThePlacesInTheirOrder) {
    request();
    ASSERT_EQ(prompt.questions.size(), 1U);
    EXPECT_THAT(
        prompt.questions[0].places,
        ElementsAre(CalendarPlace{QStringLiteral("Work"), files.path(QStringLiteral("work"))},
                    CalendarPlace{QStringLiteral("none"), files.path(QStringLiteral("none"))}));
}

TEST_F(ConsentTest, StartsByItselfOnceAllowedAndAnnouncesTheCalendars) {
    live->start();
    request();
    prompt.answer(Answer::allowed);
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::fullAccess);
    settle([this] { return changes > 0 && live->isLoaded(); });
    EXPECT_THAT(titles(*live), ElementsAre("meeting"));
    EXPECT_THAT(answers, ElementsAre(true));
    EXPECT_EQ(record().read(), StoreAuthorization::fullAccess);
    EXPECT_FALSE(prompt.questions[0].stands());
}

TEST_F(ConsentTest, KeepsARefusalAndAsksAgainWhenItIsAskedAgain) {
    live->start();
    request();
    prompt.answer(Answer::refused);
    settleQuiet();
    EXPECT_TRUE(isUntouched());
    EXPECT_THAT(answers, ElementsAre(false));
    EXPECT_THAT(errors, ElementsAre(""));
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::denied);
    EXPECT_EQ(record().read(), StoreAuthorization::denied);

    request();
    ASSERT_EQ(prompt.questions.size(), 2U);
    prompt.answer(Answer::allowed);
    settle([this] { return changes > 0 && live->isLoaded(); });
    EXPECT_THAT(answers, ElementsAre(false, true));
    EXPECT_EQ(record().read(), StoreAuthorization::fullAccess);
}

TEST_F(ConsentTest, AQuestionPutAsideGrantsNothingAndKeepsNothing) {
    request();
    prompt.answer(Answer::none);
    EXPECT_THAT(answers, ElementsAre(false));
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::notDetermined);
    EXPECT_FALSE(QFileInfo::exists(files.path(QStringLiteral("access.json"))));
}

TEST_F(ConsentTest, AQuestionPutAsideAfterARefusalLeavesTheRefusal) {
    record().keep(false);
    makeStore(&prompt);
    request();
    prompt.answer(Answer::none);
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::denied);
    EXPECT_EQ(record().read(), StoreAuthorization::denied);
}

TEST_F(ConsentTest, ASecondRequestSharesTheAnswer) {
    request();
    request();
    ASSERT_EQ(prompt.questions.size(), 1U);
    settleQuiet();
    EXPECT_THAT(answers, IsEmpty());
    prompt.answer(Answer::allowed);
    EXPECT_THAT(answers, ElementsAre(true, true));
}

TEST_F(ConsentTest, ARequestFromWithinAnAnswerIsAQuestionOfItsOwn) {
    live->requestFullAccessToEvents([this](bool, const auto &) { request(); });
    prompt.answer(Answer::refused);
    ASSERT_EQ(prompt.questions.size(), 2U);
    EXPECT_FALSE(prompt.questions[0].stands());
    EXPECT_TRUE(prompt.questions[1].stands());
    prompt.answer(Answer::refused);
    EXPECT_THAT(answers, ElementsAre(false));
}

TEST_F(ConsentTest, StartsWithoutAQuestionWhereTheUserAllowedItBefore) {
    record().keep(true);
    makeStore(&prompt);
    live->start();
    settle([this] { return changes > 0 && live->isLoaded(); });
    EXPECT_THAT(titles(*live), ElementsAre("meeting"));
    request();
    EXPECT_THAT(answers, IsEmpty()) << "not before the request returns";
    settle([this] { return !answers.empty(); });
    EXPECT_THAT(answers, ElementsAre(true));
    EXPECT_THAT(prompt.questions, IsEmpty());
}

TEST_F(ConsentTest, APolicyIsAnsweredWithoutAQuestion) {
    record().keep(true);
    files.write(QStringLiteral("policy.json"), R"({"calendarAccess": "restricted"})");
    makeStore(&prompt);
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::restricted);
    live->start();
    request();
    settle([this] { return !answers.empty(); });
    settleQuiet();
    EXPECT_THAT(answers, ElementsAre(false));
    EXPECT_THAT(prompt.questions, IsEmpty());
    EXPECT_TRUE(isUntouched());
}

TEST_F(ConsentTest, APolicyThatCameSinceTheStartIsFoundByTheNextRequest) {
    files.write(QStringLiteral("policy.json"), R"({"calendarAccess": "restricted"})");
    request();
    settle([this] { return !answers.empty(); });
    EXPECT_THAT(answers, ElementsAre(false));
    EXPECT_THAT(prompt.questions, IsEmpty());
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::restricted);
}

TEST_F(ConsentTest, SaysThatThereIsNobodyToAsk) {
    makeStore(nullptr);
    request();
    EXPECT_THAT(answers, IsEmpty());
    settle([this] { return !answers.empty(); });
    EXPECT_THAT(answers, ElementsAre(false));
    EXPECT_NE(errors[0], "");
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::notDetermined);
}

TEST_F(ConsentTest, ReadsForThisRunWhatWasAllowedButCouldNotBeKept) {
    QDir().mkpath(files.path(QStringLiteral("access.json")));
    request();
    prompt.answer(Answer::allowed);
    settle([this] { return changes > 0 && live->isLoaded(); });
    EXPECT_TRUE(log.has("access.json", "the answer is not kept")) << log.text();
    request();
    settle([this] { return answers.size() == 2; });
    EXPECT_THAT(answers, ElementsAre(true, true));
}

TEST_F(ConsentTest, TakesTheQuestionBackWhenItGoes) {
    request();
    EXPECT_TRUE(prompt.questions[0].stands());
    live.reset();
    EXPECT_FALSE(prompt.questions[0].stands());
    QCoreApplication::processEvents();
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(ConsentTest, AnswersNobodyOnceItIsGone) {
    record().keep(true);
    makeStore(&prompt);
    request();
    live.reset();
    settleQuiet();
    EXPECT_THAT(answers, IsEmpty());
}

} // namespace
} // namespace vantrel
