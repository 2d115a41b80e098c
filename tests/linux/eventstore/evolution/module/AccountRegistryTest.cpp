#include <linux/eventstore/evolution/module/AccountRegistry.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <CapturedLog.h>
#include <gtest/gtest.h>

#include <csignal>

namespace vantrel {
namespace {

using tests::CapturedLog;

/// The program that the bus would start.
QString programOfService() {
    QFile file(QStandardPaths::locate(
        QStandardPaths::GenericDataLocation,
        QStringLiteral("dbus-1/services/org.gnome.evolution.dataserver.Sources5.service")));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("Exec="))
            return QFile::decodeName(line.mid(5).trimmed());
    }
    return {};
}

/// A bus that cannot start the service, or not by itself.
class AccountRegistryTest : public ::testing::Test {
protected:
    AccountRegistryTest() {
        for (const char *const variable :
             {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
            qputenv(variable, QFile::encodeName(home.path()));
        qputenv("GSETTINGS_BACKEND", "memory");
    }

    ~AccountRegistryTest() override {
        m_registry.reset();
        while (g_main_context_iteration(nullptr, FALSE))
            ;
        service.terminate();
        service.waitForFinished();
        g_test_dbus_stop(bus);
        g_object_unref(bus);
    }

    void begin(RegistryPatience patience) {
        AccountRegistry::Listener listener;
        listener.listed = [this](const SourceList &list) {
            calendars = list.calendars.size();
            isAwaitingMore = list.isAwaitingMore;
            ++lists;
        };
        listener.lost = [] {};
        listener.failed = [this] { ++failures; };
        m_registry = std::make_shared<AccountRegistry>(listener, patience);
        m_registry->start();
    }

    /// Describes an account or a calendar to the service, which is not to run yet.
    void writeSource(const QString &uid, const QByteArray &keys) const {
        const QString folder = home.filePath(QStringLiteral("evolution/sources"));
        ASSERT_TRUE(QDir().mkpath(folder));
        QFile file(QStringLiteral("%1/%2.source").arg(folder, uid));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Data Source]\nDisplayName=Work\nEnabled=true\n" + keys);
    }

    void listOnce() {
        g_test_dbus_up(bus);
        startService();
        begin({Seconds{300.0}, RetryPause(Seconds{300.0})});
        settle([this] { return calendars > 0; }, "it is there");
    }

    void startService() { service.start(m_program, QStringList()); }

    void expectItComesAfterAll() {
        settle([this] { return failures > 0; }, "it cannot be had");
        startService();
        settle([this] { return calendars > 0; }, "it is there");
        EXPECT_NE(log.text().find("is back"), std::string::npos) << log.text();
        EXPECT_EQ(failures, 1);
    }

    const CapturedLog log;
    const QTemporaryDir home;
    GTestDBus *const bus = g_test_dbus_new(G_TEST_DBUS_NONE);
    int failures = 0;
    std::size_t calendars = 0;
    bool isAwaitingMore = false;
    int lists = 0;
    QProcess service;

    template <typename Condition>
    void settle(const Condition &condition, const char *what) {
        const QDeadlineTimer deadline(60'000);
        ContextTimer tick; // Which also notices that it takes too long.
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired()) << "not in time: " << what << '\n' << log.text();
            if (!tick.isRunning())
                tick.startFor(Seconds{0.1}, [] {});
            g_main_context_iteration(nullptr, TRUE);
        }
    }

private:
    const QString m_program = programOfService();
    std::shared_ptr<AccountRegistry> m_registry;
};

TEST_F(AccountRegistryTest, NoticesAServiceThatTheBusFailedToStartOnceItIsThere) {
    QFile broken(home.filePath(QStringLiteral("registry.service")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write(
        "[D-BUS Service]\nName=org.gnome.evolution.dataserver.Sources5\nExec=/bin/false\n");
    broken.close();
    g_test_dbus_add_service_dir(bus, QFile::encodeName(home.path()).constData());
    g_test_dbus_up(bus);
    begin({Seconds{300.0}, RetryPause(Seconds{300.0})});
    expectItComesAfterAll();
    EXPECT_NE(log.text().find("the registry of accounts: "), std::string::npos) << log.text();
}

TEST_F(AccountRegistryTest, TakesAServiceThatTheBusDoesNotKnowForNoEmptyOne) {
    g_test_dbus_up(bus);
    begin({Seconds{300.0}, RetryPause(Seconds{300.0})});
    settle([this] { return failures > 0; }, "it cannot be had");
    EXPECT_EQ(lists, 0);
    expectItComesAfterAll();
    EXPECT_NE(log.text().find("the registry of accounts is not there"), std::string::npos)
        << log.text();
}

TEST_F(AccountRegistryTest, SaysThatAServiceDoesNotAnswerAndTakesItsAnswerAllTheSame) {
    g_test_dbus_up(bus);
    startService();
    begin({Seconds{300.0}, RetryPause(Seconds{300.0})});
    settle([this] { return calendars > 0; }, "it is there");
    calendars = 0;
    failures = 0; // It may have been looked for too early.
    ASSERT_EQ(::kill(static_cast<pid_t>(service.processId()), SIGSTOP), 0);
    begin({Seconds{0.2}, RetryPause(Seconds{300.0})});
    settle([this] { return failures > 0; }, "it does not answer");
    EXPECT_NE(log.text().find("the registry of accounts does not answer"), std::string::npos)
        << log.text();
    ASSERT_EQ(::kill(static_cast<pid_t>(service.processId()), SIGCONT), 0);
    settle([this] { return calendars > 0; }, "it answers after all");
    EXPECT_EQ(failures, 1);
}

TEST_F(AccountRegistryTest, ExpectsNoMoreOfAServiceThatHasAnswered) {
    g_test_dbus_up(bus);
    startService();
    const Seconds answer{1.0};
    begin({answer, RetryPause(Seconds{300.0})});
    settle([this] { return calendars > 0; }, "it is there");
    const int before = failures;
    bool isOver = false;
    ContextTimer later;
    later.startFor(2 * answer, [&isOver] { isOver = true; });
    settle([&isOver] { return isOver; }, "the time is over");
    EXPECT_EQ(failures, before) << log.text();
}

TEST_F(AccountRegistryTest, AwaitsTheCalendarsOfAnAccountThatHasListedNoneYet) {
    writeSource(QStringLiteral("account"), "[Collection]\nBackendName=none\n");
    listOnce();
    EXPECT_TRUE(isAwaitingMore);
}

TEST_F(AccountRegistryTest, AwaitsNoMoreOnceTheAccountHasListedOne) {
    writeSource(QStringLiteral("account"), "[Collection]\nBackendName=none\n");
    writeSource(QStringLiteral("child"),
                "Parent=account\n[Calendar]\nBackendName=local\nSelected=true\n");
    listOnce();
    EXPECT_FALSE(isAwaitingMore);
}

TEST_F(AccountRegistryTest, AwaitsNothingOfAnAccountWithoutCalendars) {
    writeSource(QStringLiteral("account"),
                "[Collection]\nBackendName=none\nCalendarEnabled=false\n");
    listOnce();
    EXPECT_FALSE(isAwaitingMore);
}

} // namespace
} // namespace vantrel
