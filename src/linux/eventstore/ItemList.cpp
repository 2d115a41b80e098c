#include "ItemList.h"

#include <algorithm>
#include <utility>

namespace vantrel {

ItemList::Change ItemList::replace(std::vector<SourceItem> items,
                                   std::vector<QByteArray> rewritten) {
    std::sort(rewritten.begin(), rewritten.end());
    std::sort(items.begin(), items.end(),
              [](const auto &left, const auto &right) { return left.name < right.name; });
    Change change;
    change.moved.assign(m_items.size(), gone);
    std::vector<bool> areFromWholeTexts(items.size());
    std::size_t old = 0;
    for (std::size_t index = 0; index < items.size(); ++index) {
        const SourceItem &item = items[index];
        while (old < m_items.size() && m_items[old].name < item.name)
            ++old;
        const bool isKnown = old < m_items.size() && m_items[old].name == item.name;
        if (isKnown) {
            change.moved[old] = static_cast<Index>(index);
            areFromWholeTexts[index] = m_areFromWholeTexts[old];
        }
        if (!isKnown || m_items[old].version != item.version ||
            std::binary_search(rewritten.begin(), rewritten.end(), item.name))
            change.toRead.push_back(static_cast<Index>(index));
    }
    items.shrink_to_fit();
    m_items = std::move(items);
    m_areFromWholeTexts = std::move(areFromWholeTexts);
    return change;
}

} // namespace vantrel
