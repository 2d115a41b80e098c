#include <linux/sessionbus/SessionBusProbe.h>

#include <QDBusConnection>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstring>
#include <thread>

namespace vantrel {
namespace {

/// A bus that takes the connection and says at most what it is told to.
class SessionBusProbeTest : public testing::Test {
protected:
    SessionBusProbeTest() { qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + m_path); }

    ~SessionBusProbeTest() override {
        if (m_listener >= 0)
            ::close(m_listener);
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_address);
    }

    void listen() {
        sockaddr_un place{};
        place.sun_family = AF_UNIX;
        std::memcpy(place.sun_path, m_path.constData(), static_cast<std::size_t>(m_path.size()));
        m_listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        ASSERT_EQ(::bind(m_listener, reinterpret_cast<sockaddr *>(&place), sizeof place), 0);
        ASSERT_EQ(::listen(m_listener, 1), 0);
    }

    const QTemporaryDir folder;
    const QByteArray m_path = QFile::encodeName(folder.filePath(QStringLiteral("bus")));
    const QByteArray m_address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    int m_listener = -1;
};

TEST_F(SessionBusProbeTest, FindsThatTheRealBusAnswers) {
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_address);
    EXPECT_TRUE(isSessionBusAnswering(Seconds{60.0}));
}

TEST_F(SessionBusProbeTest, FindsOneThatSaysNothing) {
    listen();
    EXPECT_FALSE(isSessionBusAnswering(Seconds{0.1}));
}

TEST_F(SessionBusProbeTest, FindsOneThatLetsNobodyIn) {
    listen();
    std::thread bus([this] {
        const int connection = ::accept(m_listener, nullptr, nullptr);
        char text[512];
        EXPECT_GT(::recv(connection, text, sizeof text, 0), 0);
        EXPECT_EQ(text[0], '\0');
        const char answer[] = "OK 0123456789abcdef0123456789abcdef\r\n";
        EXPECT_GT(::send(connection, answer, sizeof answer - 1, MSG_NOSIGNAL), 0);
        // The call of the program, and that it has given up.
        while (::recv(connection, text, sizeof text, 0) > 0)
            ;
        ::close(connection);
    });
    EXPECT_FALSE(isSessionBusAnswering(Seconds{1.0}));
    bus.join();
}

TEST_F(SessionBusProbeTest, WaitsForNoneThatIsNotThere) {
    EXPECT_TRUE(isSessionBusAnswering(Seconds{3600.0}));
}

TEST_F(SessionBusProbeTest, LetsNobodyFindABusThatIsHiddenUntilItIsNot) {
    listen();
    {
        const HiddenSessionBus hidden;
        EXPECT_TRUE(isSessionBusAnswering(Seconds{3600.0}));
        EXPECT_FALSE(QDBusConnection::sessionBus().isConnected());
    }
    EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "unix:path=" + m_path);
    EXPECT_FALSE(QDBusConnection::sessionBus().isConnected());
}

TEST_F(SessionBusProbeTest, LeavesABusOfTheRuntimeFolderNamedWhereItWasHidden) {
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    const QString place =
        QStringLiteral("unix:path=%1/bus").arg(qEnvironmentVariable("XDG_RUNTIME_DIR"));
    EXPECT_EQ(sessionBusAddress(), place);
    { const HiddenSessionBus hidden; }
    EXPECT_EQ(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), place);
}

TEST_F(SessionBusProbeTest, TakesNoSignalForAnAnswer) {
    listen();
    struct sigaction ignored {};
    ignored.sa_handler = [](int) {};
    struct sigaction before {};
    ::sigaction(SIGUSR1, &ignored, &before); // Without SA_RESTART, which poll disregards anyway.
    const pthread_t asking = ::pthread_self();
    std::atomic<bool> isOver = false;
    std::thread disturber([&] {
        while (!isOver) {
            ::pthread_kill(asking, SIGUSR1);
            std::this_thread::yield();
        }
    });
    EXPECT_FALSE(isSessionBusAnswering(Seconds{0.2}));
    isOver = true;
    disturber.join();
    ::sigaction(SIGUSR1, &before, nullptr);
}

} // namespace
} // namespace vantrel
