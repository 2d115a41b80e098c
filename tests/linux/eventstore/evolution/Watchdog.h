#pragma once

#include <QFile>
#include <QObject>
#include <QTimer>

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <string>

namespace vantrel::tests {

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

    /// What has just held the main thread up was the test itself.
    void forgive() { m_last = now(); }

    /// At the end of a test.
    void expectNoBlock() const {
        EXPECT_GT(m_ticks, 10);
        EXPECT_LT(m_longest.count(), 50.0) << "milliseconds";
        ::testing::Test::RecordProperty("longest", std::to_string(m_longest.count()));
    }

private:
    using Milliseconds = std::chrono::duration<double, std::milli>;

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

} // namespace vantrel::tests
