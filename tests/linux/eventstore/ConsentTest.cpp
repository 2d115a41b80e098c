#include "ConsentFixture.h"

#include <QFileInfo>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using Answer = AccessPrompt::Answer;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

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
    EXPECT_THAT(prompt.questions, IsEmpty()) << "the places are read on another thread";
    settle([this] { return prompt.questions.size() == 1; });
    EXPECT_THAT(
        prompt.questions[0].places,
        ElementsAre(CalendarPlace{QStringLiteral("Work"), files.path(QStringLiteral("work"))},
                    CalendarPlace{QStringLiteral("none"), files.path(QStringLiteral("none"))}));
}

TEST_F(ConsentTest, StartsByItselfOnceAllowedAndAnnouncesTheCalendars) {
    live->start();
    ask();
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
    ask();
    prompt.answer(Answer::refused);
    settleQuiet();
    EXPECT_FALSE(live->isLoaded());
    EXPECT_THAT(live->calendars(), IsEmpty());
    EXPECT_THAT(answers, ElementsAre(false));
    EXPECT_THAT(errors, ElementsAre(""));
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::denied);
    EXPECT_EQ(record().read(), StoreAuthorization::denied);

    ask();
    ASSERT_EQ(prompt.questions.size(), 2U);
    prompt.answer(Answer::allowed);
    settle([this] { return changes > 0 && live->isLoaded(); });
    EXPECT_THAT(answers, ElementsAre(false, true));
    EXPECT_EQ(record().read(), StoreAuthorization::fullAccess);
}

TEST_F(ConsentTest, AQuestionPutAsideGrantsNothingAndKeepsNothing) {
    ask();
    prompt.answer(Answer::none);
    EXPECT_THAT(answers, ElementsAre(false));
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::notDetermined);
    EXPECT_FALSE(QFileInfo::exists(files.path(QStringLiteral("access.json"))));
}

TEST_F(ConsentTest, AQuestionPutAsideAfterARefusalLeavesTheRefusal) {
    record().keep(false);
    makeStore(&prompt);
    ask();
    prompt.answer(Answer::none);
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::denied);
    EXPECT_EQ(record().read(), StoreAuthorization::denied);
}

TEST_F(ConsentTest, ASecondRequestSharesTheAnswer) {
    ask();
    request();
    settleQuiet();
    EXPECT_THAT(answers, IsEmpty());
    prompt.answer(Answer::allowed);
    settle([this] { return answers.size() == 2; });
    EXPECT_THAT(answers, ElementsAre(true, true));
    EXPECT_EQ(prompt.questions.size(), 1U);
}

TEST_F(ConsentTest, ARequestFromWithinAnAnswerIsAQuestionOfItsOwn) {
    live->requestFullAccessToEvents([this](bool, const auto &) { request(); });
    settle([this] { return prompt.questions.size() == 1; });
    prompt.answer(Answer::refused);
    settle([this] { return prompt.questions.size() == 2; });
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
    ask();
    prompt.answer(Answer::allowed);
    settle([this] { return changes > 0 && live->isLoaded(); });
    EXPECT_TRUE(log.has("access.json", "the answer is not kept")) << log.text();
    request();
    settle([this] { return answers.size() == 2; });
    EXPECT_THAT(answers, ElementsAre(true, true));
}

TEST_F(ConsentTest, TakesTheQuestionBackWhenItGoes) {
    ask();
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
