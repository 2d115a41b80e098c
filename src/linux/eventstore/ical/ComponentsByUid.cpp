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

void ComponentsByUid::collect(UidHash uid, std::vector<const EventComponent *> &events) const {
    auto event = std::lower_bound(m_events.begin(), m_events.end(), uid,
                                  [](const auto &one, UidHash hash) { return one.first < hash; });
    for (; event != m_events.end() && event->first == uid; ++event)
        events.push_back(event->second);
}

} // namespace vantrel
