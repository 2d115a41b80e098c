#pragma once

#include "ComponentSource.h"

#include <cstdint>
#include <vector>

namespace vantrel {

/// The items of a calendar, by name, each with the version that was read last.
class ItemList {
public:
    using Index = std::uint32_t;
    static constexpr Index gone = ~Index{0};

    struct Change {
        std::vector<Index> toRead; ///< Items that are there for the first time, or changed.
        std::vector<Index> moved;  ///< Where each item of the old list stands in the other one.
    };

    /// Items named in `rewritten` count as changed, whatever their version.
    Change replace(std::vector<SourceItem> items, std::vector<QByteArray> rewritten);

    [[nodiscard]] std::size_t size() const { return m_items.size(); }
    [[nodiscard]] const SourceItem &operator[](Index index) const { return m_items[index]; }

private:
    std::vector<SourceItem> m_items;
};

} // namespace vantrel
