#include "EvolutionFixture.h"

#include <QDateTime>
#include <QFile>

#include <csignal>
#include <utility>

namespace vantrel {
namespace {

using namespace tests;

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
    watchMainThread();
    begin();
    settle([this] { return count() == 5'000; }, "all events of the weeks are there");
    put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"));
    settle([this] { return count() == 5'001; }, "one more came");
}

TEST_F(MainThread, SeesEverythingAlthoughTheFactoryIsKilledBeforeItHasTold) {
    writeCalendar(50'000);
    StoreConfiguration configuration;
    configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
    store = storeOf(configuration);
    const Subscription subscription = store->changed.subscribe([this] { ++changes; });
    store->start();
    const auto factory = QStringLiteral("evolution-calendar-factory");
    settle([&] { return session.processOf(factory) > 1; }, "the factory runs");
    EXPECT_EQ(count(), 0U);
    signal(factory, SIGKILL);
    settle([this] { return count() == 5'000; }, "all events of the weeks are there");
}

} // namespace
} // namespace vantrel
