#include "SharedSeries.h"

#include <utility>

namespace vantrel {

std::optional<SeriesReader::Result>
SharedSeries::expand(UidHash uid, const std::vector<ItemList::Index> &items, Problems &problems) {
    std::vector<const EventComponent *> components;
    bool isWhole = true;
    for (const ItemList::Index item : items) {
        const auto &text = textOf(item);
        isWhole = isWhole && text;
        if (text)
            text->components.collect(uid, components);
    }
    if (!isWhole)
        return std::nullopt;
    StepBudget budget;
    return m_reader.read(components, budget, problems);
}

const std::optional<SharedSeries::Text> &SharedSeries::textOf(ItemList::Index item) {
    const auto known = m_texts.find(item);
    if (known != m_texts.end())
        return known->second;
    std::optional<Text> text;
    if (auto read = m_read(item)) {
        ComponentsByUid components(read->events);
        text.emplace(Text{std::move(*read), std::move(components)});
    }
    return m_texts.emplace(item, std::move(text)).first->second;
}

} // namespace vantrel
