#pragma once

#include "EventComponent.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace vantrel {

/// A UID, by its hash: what many of them can be kept by.
using UidHash = std::uint64_t;

[[nodiscard]] UidHash uidHash(const QByteArray &uid);

/// Events brought together by their UIDs. The events outlive it, and keep their order within one
/// UID.
class ComponentsByUid {
public:
    explicit ComponentsByUid(const std::vector<EventComponent> &events);

    /// Calls `take(hash, events)` for each UID, in the order of their first events.
    template <typename Take>
    void forEach(Take take) const {
        std::vector<const EventComponent *> group;
        for (std::size_t index : firstOfEach()) {
            const UidHash uid = m_events[index].first;
            for (; index < m_events.size() && m_events[index].first == uid; ++index)
                group.push_back(m_events[index].second);
            take(uid, group);
            group.clear();
        }
    }

    /// Appends the events of that UID.
    void collect(UidHash uid, std::vector<const EventComponent *> &events) const;

private:
    [[nodiscard]] std::vector<std::size_t> firstOfEach() const;

    std::vector<std::pair<UidHash, const EventComponent *>> m_events;
};

} // namespace vantrel
