#include "ComponentsByUid.h"

#include <QHash>

#include <algorithm>

namespace vantrel {

UidHash uidHash(const QByteArray &uid) {
    return qHash(uid, static_cast<size_t>(QHashSeed::globalSeed()));
}

ComponentsByUid::ComponentsByUid(const std::vector<EventComponent> &events) {
    m_events.reserve(events.size());
    for (const EventComponent &event : events)
        m_events.emplace_back(uidHash(event.uid), &event);
    std::stable_sort(m_events.begin(), m_events.end(),
                     [](const auto &left, const auto &right) { return left.first < right.first; });
}

/// What they may use is shared out in this order, which must not hang on the hashes: those are
/// others in each run.
std::vector<std::size_t> ComponentsByUid::firstOfEach() const {
    std::vector<std::size_t> first;
    for (std::size_t index = 0; index < m_events.size(); ++index) {
        if (index == 0 || m_events[index - 1].first != m_events[index].first)
            first.push_back(index);
    }
    std::sort(first.begin(), first.end(), [this](std::size_t left, std::size_t right) {
        return m_events[left].second < m_events[right].second;
    });
    return first;
}

void ComponentsByUid::collect(UidHash uid, std::vector<const EventComponent *> &events) const {
    auto event = std::lower_bound(m_events.begin(), m_events.end(), uid,
                                  [](const auto &one, UidHash hash) { return one.first < hash; });
    for (; event != m_events.end() && event->first == uid; ++event)
        events.push_back(event->second);
}

} // namespace vantrel
