#include "ClockWatch.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <utility>

namespace vantrel {

namespace {

/// The year 2242: far enough, and well within what a kernel can hold in nanoseconds.
constexpr time_t farFuture = 1LL << 33;

} // namespace

ClockWatch::ClockWatch(std::function<void()> report, const QByteArray &zoneFolder)
    : m_report(std::move(report)),
      m_zone([this](const auto &) { m_report(); }),
      m_timer(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
    m_zone.add(zoneFolder, "localtime");
    if (m_timer < 0)
        return;
    arm();
    m_notifier = std::make_unique<QSocketNotifier>(m_timer, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { read(); });
}

ClockWatch::~ClockWatch() {
    m_notifier.reset();
    if (m_timer >= 0)
        ::close(m_timer);
}

/// The timer is there for its cancellation, which comes when the clock jumps.
void ClockWatch::arm() {
    itimerspec deadline = {};
    deadline.it_value.tv_sec = farFuture;
    ::timerfd_settime(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &deadline, nullptr);
}

void ClockWatch::read() {
    std::uint64_t expirations = 0;
    const auto length = ::read(m_timer, &expirations, sizeof expirations);
    if (length > 0) {
        m_notifier->setEnabled(false); // The far future has come.
    } else if (errno == ECANCELED) {
        arm();
        m_report();
    }
}

} // namespace vantrel
