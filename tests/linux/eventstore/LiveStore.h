#pragma once

#include "StoreFixture.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <memory>

namespace vantrel::tests {

/// A store that watches. Its waiting counts the test's clock, its news come over the event loop.
class LiveStore : public StoreFixture {
protected:
    static constexpr int patience = 20'000; ///< Milliseconds until a test gives up.

    void begin(std::unique_ptr<LocalEventStore> begun) {
        live = std::move(begun);
        m_subscription = live->changed.subscribe([this] { ++changes; });
        live->start();
        settle([this] { return live->isLoaded(); });
    }

    void begin(const QStringList &names) { begin(store(names)); }

    /// Lets the event loop run until the condition holds; the clock stands still.
    template <typename Condition>
    void settle(Condition condition) {
        const QDeadlineTimer deadline(patience);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired()) << log.text();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    /// Waits for the news of a change and for what the store makes of it.
    void settleChange() {
        const int before = changes;
        settle([this] { return queue.pendingCount() > pendingAtRest; });
        queue.advance(Seconds{1.0});
        settle([this, before] { return changes > before; });
    }

    /// Lets everything run that is under way already.
    void settleQuiet() {
        for (int round = 0; round < 20; ++round) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            queue.advance(Seconds{0.2});
        }
    }

    /// The same, while the clock stands still.
    void settleAtOnce() {
        for (int round = 0; round < 20; ++round) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            queue.runDue();
        }
    }

    /// As careful programs do: written beside, then put in place.
    void replace(const QString &name, const QByteArray &bytes) const {
        files.write(name + QStringLiteral(".tmp"), bytes);
        ASSERT_EQ(::rename(qPrintable(files.path(name + QStringLiteral(".tmp"))),
                           qPrintable(files.path(name))),
                  0);
    }

    /// The rolling of the window, now and then and at midnight.
    static constexpr std::size_t pendingAtRest = 2;

    std::unique_ptr<LocalEventStore> live;
    int changes = 0;

private:
    Subscription m_subscription;
};

inline QByteArray oneEvent(const QByteArray &title) {
    return calendarText(event("x", "DTSTART:20260302T110000Z\nSUMMARY:" + title + "\n"));
}

} // namespace vantrel::tests
