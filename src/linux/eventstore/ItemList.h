#pragma once

#include <linux/eventstore/source/ComponentSource.h>

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

    /// The item counts as changed the next time, whatever its version is then. It keeps its place
    /// in the order of versions.
    void markUnread(Index index) {
        m_items[index].version = {m_items[index].version.modified, -1, ~std::uint64_t{0}};
    }

    /// Whether what is kept of the item comes from a complete text, which a half-written one must
    /// not displace. False of one that was not there before.
    [[nodiscard]] bool isFromWholeText(Index index) const { return m_areFromWholeTexts[index]; }
    void setFromWholeText(Index index, bool isWhole) { m_areFromWholeTexts[index] = isWhole; }

    [[nodiscard]] std::size_t size() const { return m_items.size(); }
    [[nodiscard]] const SourceItem &operator[](Index index) const { return m_items[index]; }

private:
    std::vector<SourceItem> m_items;
    std::vector<bool> m_areFromWholeTexts; ///< One for each item.
};

} // namespace vantrel
