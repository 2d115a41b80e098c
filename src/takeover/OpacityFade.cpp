#include "OpacityFade.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

/// One frame of a common monitor; more steps would not be seen.
constexpr Seconds stepLength{0.016};

/// A deadline is a sum of doubles and may come out this much before the end.
constexpr Seconds rounding{1e-6};

} // namespace

OpacityFade::OpacityFade(MainQueue &queue, double from, double to, Seconds length,
                         std::function<void(double)> apply, std::function<void()> completed)
    : m_queue(queue),
      m_from(from),
      m_to(to),
      m_begin(queue.uptime()),
      m_end(m_begin + length),
      m_apply(std::move(apply)),
      m_completed(std::move(completed)) {
    scheduleStep();
}

void OpacityFade::scheduleStep() {
    m_step = m_queue.after(std::min(stepLength, m_end - m_queue.uptime()), [this] { step(); });
}

void OpacityFade::step() {
    const MonotonicInstant now = m_queue.uptime();
    if (now < m_end - rounding) {
        m_apply(opacityAt((now - m_begin) / (m_end - m_begin)));
        scheduleStep();
        return;
    }
    m_apply(m_to);
    // May destroy this object and, with it, its members.
    const auto completed = std::move(m_completed);
    completed();
}

double OpacityFade::opacityAt(double progress) const {
    const bool fadesIn = m_to > m_from;
    const double rest = 1.0 - progress;
    const double share = fadesIn ? 1.0 - rest * rest : progress * progress;
    return m_from + (m_to - m_from) * share;
}

} // namespace vantrel
