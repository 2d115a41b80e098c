#pragma once

#include <platform/Time.h>

#include <algorithm>
#include <optional>

namespace vantrel {

/// The pauses between attempts at something that others may keep from succeeding: each twice as
/// long as the one before, up to a longest one, and where it is wanted an end to them.
class Backoff {
public:
    /// Without `attempts` there is no end.
    Backoff(Seconds first, Seconds longest, std::optional<int> attempts = std::nullopt)
        : m_next(first), m_longest(longest), m_attemptsLeft(attempts) {}

    /// How long to wait for the next attempt; empty when there is none left.
    [[nodiscard]] std::optional<Seconds> next() {
        if (m_attemptsLeft == 0)
            return std::nullopt;
        if (m_attemptsLeft)
            --*m_attemptsLeft;
        const Seconds pause = m_next;
        m_next = std::min(m_next * 2, m_longest);
        return pause;
    }

private:
    Seconds m_next;
    Seconds m_longest;
    std::optional<int> m_attemptsLeft;
};

} // namespace vantrel
