#include "ClockWatch.h"

#include <linux/eventstore/source/StoreLog.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

namespace vantrel {

namespace {

/// The year 2242: far enough, and well within what a kernel can hold in nanoseconds. Where a time
/// has 32 bits only, the last one that it can name, in 2038: that kernel has no later one either.
template <typename Time>
constexpr Time farFuture() {
    constexpr std::int64_t wanted = std::int64_t{1} << 33;
    constexpr std::int64_t last = std::numeric_limits<Time>::max();
    return static_cast<Time>(wanted < last ? wanted : last);
}
static_assert(farFuture<std::int64_t>() == 8'589'934'592);
static_assert(farFuture<std::int32_t>() == 2'147'483'647);

constexpr Seconds comparisonInterval{30.0};

/// More than a clock that is only being corrected drifts between two comparisons.
constexpr Seconds smallestJump{2.0};

} // namespace

ClockWatch::ClockWatch(MainQueue &queue, std::function<void()> report, const QByteArray &zoneFolder,
                       TimerCalls calls)
    : m_queue(queue),
      m_report(std::move(report)),
      m_zone([this](const auto &) { m_report(); }),
      m_calls(std::move(calls)) {
    if (!m_zone.add(zoneFolder, "localtime"))
        qCWarning(eventStoreLog, "another time zone of the system is noticed late (%s)",
                  std::strerror(errno));
    m_timer = m_calls.create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    if (m_timer < 0 || !arm()) {
        compareInstead(std::strerror(errno));
        return;
    }
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
bool ClockWatch::arm() {
    itimerspec deadline = {};
    deadline.it_value.tv_sec = farFuture<decltype(deadline.it_value.tv_sec)>();
    return m_calls.arm(m_timer, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &deadline, nullptr) ==
           0;
}

void ClockWatch::read() {
    std::uint64_t expirations = 0;
    const auto length = m_calls.read(m_timer, &expirations, sizeof expirations);
    if (length < 0 && errno != ECANCELED)
        return;
    if (length > 0)
        compareInstead("the far future has come");
    else if (!arm())
        compareInstead(std::strerror(errno));
    m_report();
}

void ClockWatch::compareInstead(const char *reason) {
    qCWarning(eventStoreLog).nospace()
        << "the kernel does not tell when the clock is set (" << reason
        << "); it is looked at every " << comparisonInterval.count() << " s";
    if (m_notifier)
        m_notifier->setEnabled(false);
    m_lead = lead();
    m_comparison = m_queue.every(comparisonInterval, [this] { compare(); });
}

/// The other clock stands still while the machine sleeps, so that waking shows too.
void ClockWatch::compare() {
    const Seconds before = std::exchange(m_lead, lead());
    if (std::chrono::abs(m_lead - before) >= smallestJump)
        m_report();
}

Seconds ClockWatch::lead() const {
    return m_queue.now().time_since_epoch() - m_queue.uptime().time_since_epoch();
}

} // namespace vantrel
