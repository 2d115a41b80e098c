#include "EvolutionFixture.h"

#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <utility>

namespace vantrel {
namespace {

using namespace tests;

using Milliseconds = std::chrono::duration<double, std::milli>;

/// Watches the longest stretch in which the main thread did not come back to its event loop. Time
/// in which it could have run but got no processor does not count: that is the machine's load, and
/// the kernel tells how much of it there was.
class Watchdog {
public:
    Watchdog() : m_tick(new QTimer(&m_owner)) {
        m_last = now();
        QObject::connect(m_tick, &QTimer::timeout, &m_owner, [this] {
            const Sample present = now();
            const auto interval = Milliseconds(present.wall - m_last.wall);
            const auto waited = Milliseconds(present.waited - m_last.waited);
            m_longest = std::max(m_longest, interval - waited - Milliseconds(m_tick->interval()));
            m_last = present;
            ++m_ticks;
        });
        m_tick->setTimerType(Qt::PreciseTimer);
        m_tick->start(5);
    }

    [[nodiscard]] double longest() const { return m_longest.count(); }
    [[nodiscard]] int ticks() const { return m_ticks; }

private:
    struct Sample {
        std::chrono::nanoseconds wall;
        std::chrono::nanoseconds waited; ///< For a processor.
    };

    static Sample now() {
        QFile file(QStringLiteral("/proc/self/task/%1/schedstat").arg(::syscall(SYS_gettid)));
        std::chrono::nanoseconds waited{0};
        if (file.open(QIODevice::ReadOnly))
            waited = std::chrono::nanoseconds(file.readAll().split(' ').value(1).toLongLong());
        return {std::chrono::steady_clock::now().time_since_epoch(), waited};
    }

    QObject m_owner;
    QTimer *m_tick;
    Sample m_last;
    Milliseconds m_longest{0};
    int m_ticks = 0;
};

class MainThread : public EvolutionFixture {
protected:
    /// How many there are. Asked after changes alone, as the program does; the store leaves time
    /// between two of them.
    std::size_t count() {
        queue.advance(Seconds{0.01});
        if (std::exchange(m_countedAt, changes) != changes)
            m_count = events(*store).size();
        return m_count;
    }

    /// A local calendar's own file, as the service keeps it.
    void writeCalendar(int count) const {
        QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//test//EN\r\n";
        const QDateTime first(QDate(2026, 3, 2), QTime(6, 0), Qt::UTC);
        // One in ten lies in the weeks that the store shows, the others in the years behind them.
        for (int number = 0; number < count; ++number) {
            const int day = number % 10 == 0 ? number / 10 % 14 : 30 + number % 2000;
            const QDateTime start = first.addDays(day).addSecs(number % 40 * 900);
            text += "BEGIN:VEVENT\r\nUID:" + QByteArray::number(number) +
                    "\r\nDTSTAMP:20260101T000000Z\r\nDTSTART:" +
                    start.toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'")).toLatin1() +
                    "\r\nDURATION:PT30M\r\nSUMMARY:Event " + QByteArray::number(number) +
                    "\r\nDESCRIPTION:Join https://meet.example/" + QByteArray::number(number) +
                    "\r\nEND:VEVENT\r\n";
        }
        text += "END:VCALENDAR\r\n";
        const QString folder = session.path(QStringLiteral("data/evolution/calendar/system"));
        QDir().mkpath(folder);
        QFile file(folder + QStringLiteral("/calendar.ics"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

private:
    int m_countedAt = 0;
    std::size_t m_count = 0;
};

TEST_F(MainThread, IsNeverBlockedWhileACalendarOfFiftyThousandEventsIsReadAndChanged) {
    writeCalendar(50'000);
    const Watchdog watchdog;
    begin();
    settle([this] { return count() == 5'000; }, "all events of the weeks are there");
    QProcess writer;
    writer.start(
        QStringLiteral(CALENDAR_WRITER),
        {QStringLiteral("put"), ownCalendar(),
         session.file(calendarText(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n")))});
    settle([this] { return count() == 5'001; }, "one more came");
    settle([&] { return writer.state() == QProcess::NotRunning; }, "the writer ended");
    EXPECT_GT(watchdog.ticks(), 10);
    EXPECT_LT(watchdog.longest(), 50.0) << "milliseconds";
    RecordProperty("longest", std::to_string(watchdog.longest()));
}

TEST_F(MainThread, SeesEverythingAlthoughTheFactoryIsKilledBeforeItHasTold) {
    writeCalendar(50'000);
    StoreConfiguration configuration;
    configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
    store = storeOf(configuration);
    const Subscription subscription = store->changed.subscribe([this] { ++changes; });
    store->start();
    qint64 factory = 0;
    settle(
        [&] {
            factory = session.processOf(QStringLiteral("evolution-calendar-factory"));
            return factory > 1;
        },
        "the factory runs");
    ASSERT_GT(factory, 1);
    EXPECT_EQ(count(), 0U);
    ASSERT_EQ(::kill(static_cast<pid_t>(factory), SIGKILL), 0);
    settle([this] { return count() == 5'000; }, "all events of the weeks are there");
}

} // namespace
} // namespace vantrel
