#include "Zone.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

namespace vantrel {

Zone::Zone(QTimeZone timeZone) : m_timeZone(std::move(timeZone)) {}

Zone::Zone(int offset, std::vector<Transition> transitions)
    : m_offset(offset), m_transitions(std::move(transitions)) {}

int Zone::offsetAt(UtcSeconds utc) const {
    if (m_timeZone.isValid())
        return m_timeZone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(utc, Qt::UTC));
    const auto next = std::upper_bound(
        m_transitions.begin(), m_transitions.end(), utc,
        [](UtcSeconds instant, const Transition &transition) { return instant < transition.at; });
    return next == m_transitions.begin() ? m_offset : std::prev(next)->offset;
}

UtcSeconds Zone::toUtc(CivilSeconds civil) const {
    const int before = offsetAt(civil - secondsPerDay);
    const int after = offsetAt(civil + secondsPerDay);
    if (before == after || offsetAt(civil - before) == before)
        return civil - before;
    return offsetAt(civil - after) == after ? civil - after : civil - before;
}

} // namespace vantrel
