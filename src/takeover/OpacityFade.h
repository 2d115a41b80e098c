#pragma once

#include <platform/MainQueue.h>

#include <functional>

namespace vantrel {

/// Moves an opacity from one value to another in small steps of the main queue: slowing down on
/// the way in, gathering speed on the way out. Destroying it stops it where it is.
class OpacityFade {
public:
    /// The first call of `apply` comes on a later turn of the loop; the last one is with `to`,
    /// `length` from now, and `completed` follows it, which may destroy the fade. `queue` must
    /// outlive it.
    OpacityFade(MainQueue &queue, double from, double to, Seconds length,
                std::function<void(double)> apply, std::function<void()> completed);

    OpacityFade(const OpacityFade &) = delete;
    OpacityFade &operator=(const OpacityFade &) = delete;

private:
    void scheduleStep();
    void step();
    [[nodiscard]] double opacityAt(double progress) const;

    MainQueue &m_queue;
    double m_from;
    double m_to;
    MonotonicInstant m_begin;
    MonotonicInstant m_end;
    std::function<void(double)> m_apply;
    std::function<void()> m_completed;
    ScheduledWork m_step;
};

} // namespace vantrel
