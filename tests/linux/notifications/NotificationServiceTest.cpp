#include <linux/mainqueue/QtMainQueue.h>
#include <linux/notifications/NotificationService.h>
#include <session/Waiting.h>

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusPendingCallWatcher>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <optional>

namespace vantrel::tests {

using Status = NotificationPermission::Status;

namespace {

const QString serviceName = QStringLiteral("org.vantrel.Test.Notifications");

/// Stands for the desktop's service: answers each call, with an error or never.
class StandInService : public QDBusVirtualObject {
public:
    enum class Manner { answers, refuses, keepsSilent };

    explicit StandInService(Manner manner) : m_manner(manner) {
        m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/Notifications"), this);
        EXPECT_TRUE(m_bus.registerService(serviceName));
    }
    ~StandInService() override {
        m_bus.unregisterService(serviceName);
        m_bus.unregisterObject(QStringLiteral("/org/freedesktop/Notifications"));
    }

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        asked.append(message.member());
        if (m_manner == Manner::answers)
            bus.send(message.createReply({QStringLiteral("Test"), QStringLiteral("Vantrel"),
                                          QStringLiteral("1"), QStringLiteral("1.2")}));
        else if (m_manner == Manner::refuses)
            bus.send(message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("No")));
        return true;
    }

    QStringList asked;

private:
    const Manner m_manner;
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("stand-in"));
};

class NotificationServiceTest : public testing::Test {
protected:
    Status status() {
        std::optional<Status> found;
        service.readStatus([&](Status status) { found = status; });
        EXPECT_TRUE(waitUntil([&] { return found.has_value(); }));
        return found.value_or(Status::notDetermined);
    }

    struct Answer {
        bool isGranted;
        std::optional<QString> error;
    };
    Answer request() {
        std::optional<Answer> found;
        service.requestAuthorization({NotificationKind::alert, NotificationKind::sound},
                                     [&](bool isGranted, const std::optional<QString> &error) {
                                         found = Answer{isGranted, error};
                                     });
        EXPECT_TRUE(waitUntil([&] { return found.has_value(); }));
        return found.value_or(Answer{});
    }

    QtMainQueue queue;
    NotificationService service{queue, serviceName};
};

/// Has the bus start a service of that name on demand.
class ActivatableService {
public:
    ActivatableService() {
        EXPECT_TRUE(QDir().mkpath(QFileInfo(m_file).path()));
        QFile file(m_file);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[D-BUS Service]\nExec=/bin/false\nName=" + serviceName.toUtf8() + '\n');
        file.close();
        reload();
    }
    ~ActivatableService() {
        QFile::remove(m_file);
        reload();
    }

private:
    static void reload() {
        QDBusConnection bus =
            QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("reloading"));
        const QDBusPendingCallWatcher call(bus.asyncCall(QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ReloadConfig"))));
        EXPECT_TRUE(waitUntil([&] { return call.isFinished(); }));
    }

    const QString m_file = qEnvironmentVariable("XDG_RUNTIME_DIR") +
                           QStringLiteral("/dbus-1/services/") + serviceName +
                           QStringLiteral(".service");
};

} // namespace

TEST_F(NotificationServiceTest, IsAuthorizedWhereTheServiceRuns) {
    const StandInService standIn(StandInService::Manner::answers);
    EXPECT_EQ(status(), Status::authorized);
    EXPECT_TRUE(standIn.asked.isEmpty());
}

TEST_F(NotificationServiceTest, IsAuthorizedWhereTheServiceWouldBeStarted) {
    const ActivatableService activatable;
    EXPECT_EQ(status(), Status::authorized);
}

TEST_F(NotificationServiceTest, IsDeniedWhereThereIsNoService) {
    EXPECT_EQ(status(), Status::denied);
}

TEST_F(NotificationServiceTest, FollowsTheServiceAsItComesAndGoes) {
    EXPECT_EQ(status(), Status::denied);
    {
        const StandInService standIn(StandInService::Manner::answers);
        EXPECT_EQ(status(), Status::authorized);
    }
    EXPECT_EQ(status(), Status::denied);
}

TEST_F(NotificationServiceTest, IsGrantedByAServiceThatAnswers) {
    const StandInService standIn(StandInService::Manner::answers);
    const Answer answer = request();
    EXPECT_TRUE(answer.isGranted);
    EXPECT_EQ(answer.error, std::nullopt);
    EXPECT_EQ(standIn.asked, QStringList{QStringLiteral("GetServerInformation")});
}

TEST_F(NotificationServiceTest, HandsOnWhatTheServiceRefusesWith) {
    const StandInService standIn(StandInService::Manner::refuses);
    const Answer answer = request();
    EXPECT_FALSE(answer.isGranted);
    EXPECT_EQ(answer.error, QStringLiteral("No"));
}

TEST_F(NotificationServiceTest, IsNotGrantedWithoutAService) {
    const Answer answer = request();
    EXPECT_FALSE(answer.isGranted);
    EXPECT_NE(answer.error, std::nullopt);
}

TEST_F(NotificationServiceTest, WaitsForASilentServiceNoLongerThanAUserWould) {
    const StandInService standIn(StandInService::Manner::keepsSilent);
    const MonotonicInstant before = queue.uptime();
    const Answer answer = request();
    EXPECT_FALSE(answer.isGranted);
    EXPECT_NE(answer.error, std::nullopt);
    EXPECT_GE(queue.uptime() - before, Seconds{2.0});
    EXPECT_LE(queue.uptime() - before, Seconds{10.0});
}

TEST_F(NotificationServiceTest, HasNotBeenToldWithoutASessionBus) {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_EQ(status(), Status::notDetermined);
    EXPECT_FALSE(request().isGranted);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
}

TEST_F(NotificationServiceTest, AnswersNobodyAfterItsEnd) {
    bool isAnswered = false;
    {
        NotificationService brief(queue, serviceName);
        brief.readStatus([&](Status) { isAnswered = true; });
    }
    EXPECT_EQ(status(), Status::denied);
    EXPECT_FALSE(isAnswered);
}

} // namespace vantrel::tests
