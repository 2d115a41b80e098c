#include "CapturedLog.h"
#include "PrivateSession.h"

#include <linux/eventstore/evolution/EvolutionSource.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using ::testing::HasSubstr;
using tests::CapturedLog;

/// A desktop that lacks something. Nothing but files and variables is needed to tell.
class EvolutionAbsence : public ::testing::Test {
protected:
    EvolutionAbsence() {
        qputenv("XDG_DATA_DIRS", QFile::encodeName(m_data.path()));
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_data.path()));
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_data.path()));
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    }

    void installService() {
        const QString folder = m_data.filePath(QStringLiteral("dbus-1/services"));
        QDir().mkpath(folder);
        QFile file(folder + QStringLiteral("/org.gnome.evolution.dataserver.Sources5.service"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    std::string troubleWith(const QString &opened) {
        EvolutionSource source(opened);
        EXPECT_TRUE(source.trouble().isEmpty()) << "nothing is known before the start";
        source.start();
        source.waitUntilDelivered(Seconds{30.0});
        EXPECT_TRUE(source.calendars().empty());
        EXPECT_TRUE(source.knowledge().isComplete);
        EXPECT_TRUE(source.knowledge().exhaustedPrefix.isEmpty());
        EXPECT_THAT(log.lines(), ::testing::Contains(HasSubstr(source.trouble().toStdString())));
        return source.trouble().toStdString();
    }

    CapturedLog log;
    QTemporaryDir m_data;
    const QString module = QStringLiteral(EVOLUTION_MODULE);
};

TEST_F(EvolutionAbsence, SaysSoWhenTheBuildHasNoModule) {
    EXPECT_THAT(troubleWith(QStringLiteral("/nowhere/vantrel-evolution.so")),
                HasSubstr("comes without support"));
}

TEST_F(EvolutionAbsence, SaysSoWhenTheServiceIsNotInstalled) {
    EXPECT_THAT(troubleWith(module), HasSubstr("Evolution Data Server is not installed"));
}

TEST_F(EvolutionAbsence, SaysSoWhenThereIsNoSessionBus) {
    installService();
    EXPECT_THAT(troubleWith(module), HasSubstr("there is no session bus"));
}

TEST_F(EvolutionAbsence, TriesNothingAgainByItselfWhileTheServiceIsInstalled) {
    int count = 1;
    char name[] = "test";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    installService();
    {
        EvolutionSource source(module);
        bool isAnnounced = false;
        const auto subscription = source.changed.subscribe([&isAnnounced] { isAnnounced = true; });
        source.start();
        const QDeadlineTimer deadline(20'000);
        while (!isAnnounced && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        for (int turn = 0; turn < 50; ++turn)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    } // A further attempt, were there one, ends with the source.
    const auto lines = log.lines();
    EXPECT_THAT(lines, ::testing::ElementsAre(HasSubstr("there is no session bus")));
}

TEST_F(EvolutionAbsence, SaysSoWhenTheModuleDoesNotLoad) {
    installService();
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    QFile broken(m_data.filePath(QStringLiteral("vantrel-evolution.so")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no library");
    broken.close();
    EXPECT_THAT(troubleWith(broken.fileName()), HasSubstr("libraries"));
}

TEST_F(EvolutionAbsence, LoadsNoLibraryOfTheServiceWhereItIsNotInstalled) {
    troubleWith(module);
    QFile maps(QStringLiteral("/proc/self/maps"));
    ASSERT_TRUE(maps.open(QIODevice::ReadOnly));
    const QByteArray loaded = maps.readAll();
    EXPECT_TRUE(loaded.contains("libQt6Core"));
    EXPECT_FALSE(loaded.contains("libecal"));
    EXPECT_FALSE(loaded.contains("libedataserver"));
}

TEST(EvolutionArrival, IsNoticedWhenTheServiceIsInstalledWhileTheProgramRuns) {
    int count = 1;
    char name[] = "test";
    char *arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    const CapturedLog log;
    const tests::PrivateSession session; // Its bus can start the service from the beginning.
    const QTemporaryDir data;
    const QString folder = data.filePath(QStringLiteral("dbus-1/services"));
    QDir().mkpath(folder);
    qputenv("XDG_DATA_DIRS", QFile::encodeName(data.path()));
    qputenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas");
    const auto settle = [&log](const auto &condition, const char *what) {
        const QDeadlineTimer deadline(60'000);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired()) << "not in time: " << what << '\n' << log.text();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    };

    EvolutionSource source(QStringLiteral(EVOLUTION_MODULE));
    int changes = 0;
    const Subscription subscription = source.changed.subscribe([&changes] { ++changes; });
    source.start();
    settle([&] { return changes > 0; }, "it is missing");
    EXPECT_THAT(source.trouble().toStdString(), HasSubstr("not installed"));

    QFile file(folder + QStringLiteral("/org.gnome.evolution.dataserver.Sources5.service"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    settle([&] { return !source.calendars().empty(); }, "its calendars are listed");
    EXPECT_TRUE(source.trouble().isEmpty());
}

} // namespace
} // namespace vantrel
