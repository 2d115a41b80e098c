#pragma once

#include <platform/Time.h>

namespace vantrel {

/// Keeps what a user was typing or clicking as a panel came up from being taken for an answer.
///
/// Only who was busy right before is kept waiting: for the moment in which nobody can have
/// read what the panel says, and with keys on until there is a pause in the typing, but two seconds
/// at the most. Who was not gets an answer through at once.
class TypingGuard {
public:
    struct Lengths {
        Seconds busy{0.5};    ///< Input less long ago than this makes a user a busy one.
        Seconds reading{0.4}; ///< Until anybody can have seen the panel.
        Seconds pause{0.4};   ///< Longer than between two letters of a text.
        Seconds longest{2.0};
    };

    TypingGuard() : TypingGuard(Lengths{}) {}
    explicit TypingGuard(Lengths lengths) : m_lengths(lengths) {}

    /// One that lets everything through.
    [[nodiscard]] static TypingGuard none() {
        return TypingGuard({Seconds::zero(), Seconds::zero(), Seconds::zero(), Seconds::zero()});
    }

    /// The panel has the keyboard from `now` on; the last key or click was `idle` ago.
    void begin(MonotonicInstant now, Seconds idle);

    /// Whether a key pressed at `now` belongs to what the user was at before.
    [[nodiscard]] bool takesKey(MonotonicInstant now);

    [[nodiscard]] bool takesClick(MonotonicInstant now) const { return now < m_read; }

private:
    Lengths m_lengths;
    MonotonicInstant m_read{}; ///< From here on a click counts.
    MonotonicInstant m_keys{}; ///< From here on a key does.
    MonotonicInstant m_end{};
};

} // namespace vantrel
