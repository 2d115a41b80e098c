#pragma once

#include <platform/Time.h>

#include <algorithm>
#include <optional>

namespace vantrel {

/// How long to wait before something that failed is tried again: a second at first, twice as long
/// each time, but never longer than five minutes.
class RetryPause {
public:
    RetryPause() = default;
    explicit RetryPause(Seconds next) : m_next(next) {}

    /// The pause behind one more failure.
    [[nodiscard]] Seconds next() {
        const Seconds pause = m_next;
        m_next = std::min(2 * m_next, longest);
        return pause;
    }

    /// It went well.
    void reset() { m_next = first; }

private:
    static constexpr Seconds first{1.0};
    static constexpr Seconds longest{300.0};

    Seconds m_next = first;
};

/// What is expected of the registry.
struct RegistryPatience {
    Seconds answer{20.0}; ///< Then people are told. It may still come.
    RetryPause pause;
};

/// What is expected of a calendar's back end.
struct FeedPatience {
    Seconds signOfLife{60.0}; ///< Without one for so long it loses its slot to others.
    Seconds steady{60.0};     ///< One that ends sooner again and again is not started every second.
};

/// When changes are announced that come in bursts: once none has come for 0.1 s, but not later than
/// 1 s after the first.
class AnnouncementPace {
public:
    /// How long to wait from `now` on, unless another change comes. `now` counts any clock that is
    /// never set.
    [[nodiscard]] Seconds waitAfterChange(Seconds now) {
        if (!m_first)
            m_first = now;
        return std::clamp(*m_first + longest - now, Seconds::zero(), quiet);
    }

    void announced() { m_first.reset(); }

private:
    static constexpr Seconds quiet{0.1};
    static constexpr Seconds longest{1.0};

    std::optional<Seconds> m_first; ///< Of the changes that are not announced yet.
};

} // namespace vantrel
