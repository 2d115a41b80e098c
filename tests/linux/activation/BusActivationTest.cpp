#include <linux/activation/BusActivation.h>
#include <linux/mainqueue/QtMainQueue.h>
#include <session/PrivateBus.h>
#include <session/Waiting.h>

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <optional>
#include <vector>

namespace vantrel::tests {

using Asked = BusActivation::Asked;
using Claim = BusActivation::Claim;
using testing::ElementsAre;

namespace {

class BusActivationTest : public testing::Test {
protected:
    void follow(BusActivation &activation) {
        activation.follow([this](ActivationRequest request) { requests.push_back(request); });
    }

    /// Starts the program again, while this one answers; what came of it.
    static Claim startAgain(const QStringList &arguments) {
        return static_cast<Claim>(exitCodeOfSecond(arguments));
    }

    static QByteArray statusOfFirst() {
        QProcess second;
        second.start(QStringLiteral(SECOND_START), {QStringLiteral("--status")});
        EXPECT_TRUE(waitUntil([&] { return second.state() == QProcess::NotRunning; }));
        return second.readAllStandardOutput();
    }

    /// What comes of a verb.
    static Asked ask() {
        return static_cast<Asked>(
            exitCodeOfSecond({QStringLiteral("--ask"), QStringLiteral("pause")}));
    }

    static int exitCodeOfSecond(const QStringList &arguments) {
        QProcess second;
        second.setProcessChannelMode(QProcess::ForwardedChannels);
        second.start(QStringLiteral(SECOND_START), arguments);
        EXPECT_TRUE(waitUntil([&] { return second.state() == QProcess::NotRunning; }));
        EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
        return second.exitCode();
    }

    /// Calls the program as a desktop does; the error's name, empty for none.
    static QString call(const QString &member, const QVariantList &arguments) {
        QDBusConnection bus =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("desktop"));
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("org.vantrel.Vantrel"), QStringLiteral("/org/vantrel/Vantrel"),
            QStringLiteral("org.freedesktop.Application"), member);
        message.setArguments(arguments);
        const QDBusPendingCallWatcher pending(bus.asyncCall(message));
        EXPECT_TRUE(waitUntil([&] { return pending.isFinished(); }));
        return pending.reply().errorName();
    }

    bool waitForRequests(std::size_t count) {
        return waitUntil([&] { return requests.size() >= count; });
    }

    QtMainQueue queue;
    std::vector<ActivationRequest> requests;
};

} // namespace

TEST_F(BusActivationTest, HandsTheRequestOnToTheOneThatRuns) {
    BusActivation activation(queue, std::nullopt);
    ASSERT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
    follow(activation);
    EXPECT_EQ(startAgain({QStringLiteral("popover")}), Claim::wasHandedOn);
    EXPECT_EQ(startAgain({QStringLiteral("toggle-pause")}), Claim::wasHandedOn);
    ASSERT_TRUE(waitForRequests(2));
    EXPECT_THAT(requests,
                ElementsAre(ActivationRequest::showPopover, ActivationRequest::togglePause));
}

TEST_F(BusActivationTest, AsksTheOneThatRunsAndTakesNoName) {
    EXPECT_EQ(ask(), Asked::isNotRunning);
    BusActivation activation(queue, std::nullopt);
    ASSERT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
    follow(activation);
    EXPECT_EQ(ask(), Asked::hasTaken);
    ASSERT_TRUE(waitForRequests(1));
    EXPECT_THAT(requests, ElementsAre(ActivationRequest::pause));
}

TEST_F(BusActivationTest, HandsOnTheReportOfTheOneThatRuns) {
    EXPECT_EQ(statusOfFirst(), "none");
    BusActivation activation(queue, std::nullopt);
    ASSERT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
    EXPECT_EQ(statusOfFirst(), "{}");
    activation.answerStatus([] { return QByteArray("{\"version\": \"ä\"}"); });
    EXPECT_EQ(statusOfFirst(), "{\"version\": \"ä\"}");
}

TEST_F(BusActivationTest, SaysWhenTheOneThatRunsDoesNotTakeAVerb) {
    QDBusConnection stranger =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("stranger"));
    ASSERT_TRUE(stranger.registerService(BusActivation::busName(std::nullopt)));
    EXPECT_EQ(ask(), Asked::hasRefused);
    stranger.unregisterService(BusActivation::busName(std::nullopt));
}

TEST_F(BusActivationTest, KeepsWhatIsAskedBeforeTheProgramIsReady) {
    BusActivation activation(queue, std::nullopt);
    ASSERT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
    EXPECT_EQ(startAgain({QStringLiteral("preferences")}), Claim::wasHandedOn);
    follow(activation);
    ASSERT_TRUE(waitForRequests(1));
    EXPECT_THAT(requests, ElementsAre(ActivationRequest::showPreferences));
}

TEST_F(BusActivationTest, IsFirstAgainAfterTheOtherHasEnded) {
    EXPECT_EQ(startAgain({QStringLiteral("popover")}), Claim::isFirst);
    BusActivation activation(queue, std::nullopt);
    EXPECT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
}

TEST_F(BusActivationTest, LetsAnotherRunAsSoonAsItWasAskedToQuit) {
    BusActivation activation(queue, std::nullopt);
    ASSERT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
    follow(activation);
    EXPECT_EQ(startAgain({QStringLiteral("quit")}), Claim::wasHandedOn);
    EXPECT_EQ(startAgain({QStringLiteral("popover")}), Claim::isFirst);
    ASSERT_TRUE(waitForRequests(1));
    EXPECT_THAT(requests, ElementsAre(ActivationRequest::quit));
}

TEST_F(BusActivationTest, RunsOncePerProfileHoweverItsFolderIsSpelled) {
    const QTemporaryDir profile;
    BusActivation activation(queue, profile.path());
    ASSERT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
    follow(activation);
    const QTemporaryDir other;
    EXPECT_EQ(startAgain({QStringLiteral("quit")}), Claim::isFirst);
    EXPECT_EQ(startAgain({QStringLiteral("quit"), other.path()}), Claim::isFirst);
    EXPECT_EQ(startAgain({QStringLiteral("quit"), profile.path() + QStringLiteral("/./")}),
              Claim::wasHandedOn);
    EXPECT_TRUE(waitForRequests(1));
}

TEST_F(BusActivationTest, SaysWhenTheOneThatHasTheNameDoesNotTakeTheRequest) {
    const QString name = BusActivation::busName(std::nullopt);
    QDBusConnection stranger =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("stranger"));
    ASSERT_TRUE(stranger.registerService(name));
    EXPECT_EQ(startAgain({QStringLiteral("popover")}), Claim::wasRefused);
    stranger.unregisterService(name);
}

TEST_F(BusActivationTest, IsTheOneThatIsAskedAgainAfterTheBusWasRestarted) {
    BusActivation activation(queue, std::nullopt);
    ASSERT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
    follow(activation);
    PrivateBus::current().stop();
    PrivateBus::current().start();
    QDBusConnection desktop =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("restart"));
    EXPECT_TRUE(waitUntil(
        [&] {
            return desktop.interface()->isServiceRegistered(BusActivation::busName(std::nullopt));
        },
        Looking::often));
    EXPECT_EQ(startAgain({QStringLiteral("toggle-pause")}), Claim::wasHandedOn);
    ASSERT_TRUE(waitForRequests(1));
    EXPECT_THAT(requests, ElementsAre(ActivationRequest::togglePause));
}

TEST_F(BusActivationTest, IsFirstWithoutASessionBus) {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    BusActivation activation(queue, std::nullopt);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    EXPECT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
}

TEST_F(BusActivationTest, AnswersTheCallsOfTheDesktopEntrySpecification) {
    BusActivation activation(queue, std::nullopt);
    ASSERT_EQ(activation.claim(ActivationRequest::showPopover), Claim::isFirst);
    follow(activation);
    const QVariantMap platformData{{QStringLiteral("desktop-startup-id"), QStringLiteral("x")}};
    EXPECT_EQ(call(QStringLiteral("Activate"), {platformData}), QString());
    EXPECT_EQ(
        call(QStringLiteral("Open"), {QStringList{QStringLiteral("file:///x")}, platformData}),
        QString());
    EXPECT_EQ(call(QStringLiteral("ActivateAction"),
                   {QStringLiteral("format"), QVariantList(), platformData}),
              QStringLiteral("org.freedesktop.DBus.Error.InvalidArgs"));
    EXPECT_EQ(call(QStringLiteral("ActivateAction"),
                   {QStringLiteral("quit"), QVariantList(), platformData}),
              QString());
    ASSERT_TRUE(waitForRequests(2));
    EXPECT_THAT(requests, ElementsAre(ActivationRequest::showPopover, ActivationRequest::quit));
}

} // namespace vantrel::tests
