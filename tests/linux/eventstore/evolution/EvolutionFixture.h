#pragma once

#include "CalendarFiles.h"
#include "CapturedLog.h"
#include "PrivateSession.h"
#include "Watchdog.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/LocalEventStore.h>
#include <linux/eventstore/StoreAccess.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QProcess>

#include <gmock/gmock.h>

#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::tests {

/// A store on a real Evolution Data Server in a session of the test's own. It stands at 2026-03-02
/// 08:00 in Zurich, a Monday.
class EvolutionFixture : public ::testing::Test {
protected:
    enum class MainLoop {
        qt,  ///< An answer that came to GLib's own context, the main thread's, would not be heard.
        glib ///< As Qt runs on most desktops.
    };

    /// Milliseconds until a test gives up: the service takes its time with 50,000 events on a
    /// machine that has other things to do.
    static constexpr int patience = 180'000;

    explicit EvolutionFixture(MainLoop loop = MainLoop::qt) : m_application(loop) {}
    ~EvolutionFixture() override {
        for (const pid_t process : m_stopped)
            ::kill(process, SIGCONT);
    }

    void TearDown() override {
        if (m_watchdog)
            m_watchdog->expectNoBlock();
    }

    /// From here to the end of the test the main thread is not to be blocked, except by the test.
    void watchMainThread() { m_watchdog.emplace(); }
    void forgiveBlock() {
        if (m_watchdog)
            m_watchdog->forgive();
    }

    [[nodiscard]] std::unique_ptr<LocalEventStore> storeOf(StoreConfiguration configuration) {
        configuration.addresses = {QStringLiteral("me@example.com")};
        return std::make_unique<LocalEventStore>(
            queue, configuration, [this] { return fakes::calendarIn(zone); },
            StoreAccess::granted());
    }

    void begin() {
        StoreConfiguration configuration;
        configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
        store = storeOf(configuration);
        m_subscription = store->changed.subscribe([this] { ++changes; });
        store->start();
        settle([this] { return store->hasAllCalendars(); }, "the calendars are there");
    }

    /// Lets the event loop run until the condition holds; the store's clock stands still.
    template <typename Condition>
    void settle(Condition condition, const char *what) {
        const QDeadlineTimer deadline(patience);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired())
                << "not in time: " << what << '\n'
                << log.text() << '\n'
                << (store ? ::testing::PrintToString(titles()) : "");
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    void settleTitles(const ::testing::Matcher<const std::vector<std::string> &> &matcher,
                      const char *what) {
        settle([&] { return matcher.Matches(titles()); }, what);
    }

    static std::vector<QString> identifiers(const EventStore &ofStore) {
        std::vector<QString> identifiers;
        for (const StoreCalendar &calendar : ofStore.calendars())
            identifiers.push_back(calendar.calendarIdentifier);
        return identifiers;
    }

    /// Two weeks from the fixture's day on.
    std::vector<StoreEvent> events(const EventStore &ofStore) const {
        return ofStore.events(fakes::at("2026-03-02T00:00:00", zone),
                              fakes::at("2026-03-16T00:00:00", zone), identifiers(ofStore));
    }

    std::vector<std::string> titles() const {
        std::vector<std::string> titles;
        for (const StoreEvent &event : events(*store))
            titles.push_back(event.title.value_or(QStringLiteral("-")).toStdString());
        return titles;
    }

    [[nodiscard]] std::optional<StoreCalendar> calendar(const QString &title) const {
        for (const StoreCalendar &one : store->calendars()) {
            if (one.title == title)
                return one;
        }
        return {};
    }

    /// Has another process change something, while the event loop runs here.
    void write(const QStringList &arguments) {
        QProcess writer;
        writer.setProcessChannelMode(QProcess::MergedChannels);
        writer.start(QStringLiteral(CALENDAR_WRITER), arguments);
        forgiveBlock();
        settle([&] { return writer.state() == QProcess::NotRunning; }, "the writer ended");
        ASSERT_EQ(writer.exitCode(), 0) << qPrintable(arguments.join(u' ')) << '\n'
                                        << writer.readAll().constData();
    }

    void put(const QByteArray &components, const QString &calendar = ownCalendar()) {
        write({QStringLiteral("put"), calendar, session.file(calendarText(components))});
    }

    [[nodiscard]] std::size_t linesWith(const std::string &part) const {
        std::size_t count = 0;
        for (const std::string &line : log.lines())
            count += line.find(part) != std::string::npos ? 1 : 0;
        return count;
    }

    /// To one of the services of this session. A stopped one goes on with the end of the session.
    void signal(const QString &program, int number) {
        qint64 process = 0;
        settle([&] { return (process = session.processOf(program)) > 1; }, "the service runs");
        forgiveBlock();
        ASSERT_GT(process, 1);
        ASSERT_EQ(::kill(static_cast<pid_t>(process), number), 0);
        if (number == SIGSTOP)
            m_stopped.push_back(static_cast<pid_t>(process));
    }

    /// The one that every registry brings along.
    static QString ownCalendar() { return QStringLiteral("system-calendar"); }

private:
    struct Application {
        explicit Application(MainLoop loop) {
            qputenv("QT_NO_GLIB", loop == MainLoop::qt ? "1" : "");
            application = std::make_unique<QCoreApplication>(count, arguments);
        }

        int count = 1;
        char name[5] = "test";
        char *arguments[2] = {name, nullptr};
        std::unique_ptr<QCoreApplication> application;
    };

    const Application m_application;

protected:
    const char *zone = "Europe/Zurich";
    CapturedLog log;
    PrivateSession session;
    fakes::ManualMainQueue queue{fakes::at("2026-03-02T08:00:00", "Europe/Zurich")};
    std::unique_ptr<LocalEventStore> store;
    int changes = 0;

private:
    Subscription m_subscription;
    std::vector<pid_t> m_stopped;
    std::optional<Watchdog> m_watchdog;
};

} // namespace vantrel::tests
