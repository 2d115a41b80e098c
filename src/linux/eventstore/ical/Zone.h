#pragma once

#include "CivilTime.h"

#include <QTimeZone>

#include <vector>

namespace vantrel {

/// What turns wall-clock readings into instants: a time zone of the system, or one that a calendar
/// text brought along. Immutable, safe on any thread.
class Zone {
public:
    struct Transition {
        UtcSeconds at;
        int offset; ///< Seconds east of UTC from that instant on.
    };

    /// `timeZone` is valid.
    explicit Zone(QTimeZone timeZone);

    /// A zone that stands `offset` seconds east of UTC before the first transition. The
    /// transitions are in ascending order.
    Zone(int offset, std::vector<Transition> transitions);

    [[nodiscard]] int offsetAt(UtcSeconds utc) const;

    [[nodiscard]] CivilSeconds toCivil(UtcSeconds utc) const { return utc + offsetAt(utc); }

    /// A reading that the clock shows twice means the first time; one that it skips is taken with
    /// the offset before the change, so that it comes as much later as the clock was put forward
    /// (RFC 5545, section 3.3.5).
    [[nodiscard]] UtcSeconds toUtc(CivilSeconds civil) const;

private:
    QTimeZone m_timeZone; ///< Invalid when the transitions count.
    int m_offset = 0;
    std::vector<Transition> m_transitions;
};

} // namespace vantrel
