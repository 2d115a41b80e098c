#include "ConsentFixture.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using Answer = AccessPrompt::Answer;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A store that runs while the files on access are edited by hand.
class AccessChangeTest : public ConsentTest {
protected:
    void write(const char *name, const char *text) const {
        files.write(QString::fromLatin1(name) + QStringLiteral(".tmp"), text);
        ASSERT_EQ(
            ::rename(qPrintable(files.path(QString::fromLatin1(name)) + QStringLiteral(".tmp")),
                     qPrintable(files.path(QString::fromLatin1(name)))),
            0);
    }

    void remove(const char *name) const {
        ASSERT_TRUE(QFile::remove(files.path(QString::fromLatin1(name))));
    }

    void restrict() const { write("policy.json", R"({"calendarAccess": "restricted"})"); }

    void beginGranted() {
        record().keep(true);
        makeStore(&prompt);
        live->start();
        expectMeeting();
    }

    void expectMeeting() {
        settle([this] {
            queue.advance(Seconds{0.2});
            return titles(*live) == std::vector<std::string>{"meeting"};
        });
        EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::fullAccess);
    }

    void expectStatus(StoreAuthorization status) {
        const int before = changes;
        settle([&] {
            queue.advance(Seconds{0.2});
            return live->authorizationStatus() == status;
        });
        EXPECT_GT(changes, before);
    }

    void expectNothing(StoreAuthorization status) {
        expectStatus(status);
        EXPECT_THAT(live->calendars(), IsEmpty());
        EXPECT_FALSE(live->hasAllCalendars());
        EXPECT_FALSE(live->isLoaded());
        // Nor does anything come of what happens in the folders then.
        settleQuiet();
        const int before = changes;
        write("work/b.ics", calendarText(noonEvent("later")).constData());
        settleQuiet();
        EXPECT_THAT(live->calendars(), IsEmpty());
        EXPECT_EQ(changes, before);
        ASSERT_TRUE(QFile::remove(files.path(QStringLiteral("work/b.ics"))));
    }
};

TEST_F(AccessChangeTest, AnAnswerThatIsTakenBackEndsTheReading) {
    beginGranted();
    remove("access.json");
    expectNothing(StoreAuthorization::notDetermined);
    record().keep(true);
    expectMeeting();
}

TEST_F(AccessChangeTest, AnAnswerThatIsEditedCountsAtOnce) {
    beginGranted();
    write("access.json", R"({"calendarAccess": "denied"})");
    expectNothing(StoreAuthorization::denied);
    write("access.json", R"({"calendarAccess": "granted"})");
    expectMeeting();
}

TEST_F(AccessChangeTest, APolicyThatComesEndsTheReadingUntilItGoes) {
    beginGranted();
    restrict();
    expectNothing(StoreAuthorization::restricted);
    remove("policy.json");
    expectMeeting();
}

TEST_F(AccessChangeTest, APolicyThatMakesNoSenseEndsTheReadingToo) {
    beginGranted();
    write("policy.json", "{");
    expectNothing(StoreAuthorization::restricted);
}

TEST_F(AccessChangeTest, TheFoldersOfAPolicyMayComeLater) {
    const auto place = QStringLiteral("etc/xdg/Vantrel/policy.json");
    record().keep(true);
    StoreConfiguration configuration;
    configuration.roots = {{files.path(QStringLiteral("work")), {}, false}};
    live = std::make_unique<LocalEventStore>(
        queue, configuration, [this] { return fakes::calendarIn(zone); },
        std::make_unique<StoreAccess>(
            AccessRecord{files.path(QStringLiteral("access.json")), {files.path(place)}}, &prompt));
    live->start();
    expectMeeting();
    files.write(place, R"({"calendarAccess": "restricted"})");
    settle([this] {
        queue.advance(Seconds{0.2});
        return live->authorizationStatus() == StoreAuthorization::restricted;
    });
    EXPECT_THAT(live->calendars(), IsEmpty());
}

TEST_F(AccessChangeTest, ARefusalCanBeUndoneByHand) {
    record().keep(false);
    makeStore(&prompt);
    live->start();
    settleQuiet();
    EXPECT_TRUE(isUntouched());
    record().keep(true);
    expectMeeting();
    EXPECT_THAT(prompt.questions, IsEmpty());
}

TEST_F(AccessChangeTest, AQuestionThatTheFilesAnswerIsTakenBack) {
    live->start();
    ask();
    record().keep(true);
    expectMeeting();
    EXPECT_FALSE(prompt.questions[0].stands());
    EXPECT_THAT(answers, ElementsAre(true));
}

TEST_F(AccessChangeTest, AQuestionThatAPolicyForbidsIsTakenBack) {
    live->start();
    ask();
    restrict();
    expectStatus(StoreAuthorization::restricted);
    EXPECT_FALSE(prompt.questions[0].stands());
    EXPECT_THAT(answers, ElementsAre(false));
    settleQuiet();
    EXPECT_THAT(live->calendars(), IsEmpty());
}

TEST_F(AccessChangeTest, AnAnswerDoesNotOutweighAPolicyThatCameMeanwhile) {
    ask(); // Without a start, so that nothing follows the files.
    restrict();
    prompt.answer(Answer::allowed);
    EXPECT_THAT(answers, ElementsAre(false));
    EXPECT_EQ(live->authorizationStatus(), StoreAuthorization::restricted);
}

TEST_F(AccessChangeTest, AnAnswerThatCouldNotBeKeptStaysWhenOtherFilesChange) {
    QDir().mkpath(files.path(QStringLiteral("access.json")));
    live->start();
    ask();
    prompt.answer(Answer::allowed);
    expectMeeting();
    files.write(QStringLiteral("access.json/x"), "x");
    restrict();
    remove("policy.json"); // Gone before anybody looks, so that just its coming and going is told.
    settleQuiet();
    expectMeeting();
}

} // namespace
} // namespace vantrel
