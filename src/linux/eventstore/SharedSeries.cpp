#include "SharedSeries.h"

#include <utility>

namespace vantrel {

SeriesReader::Result SharedSeries::expand(UidHash uid, const std::vector<ItemList::Index> &items,
                                          Problems &problems) {
    std::vector<const EventComponent *> components;
    for (const ItemList::Index item : items) {
        if (const auto &text = textOf(item))
            text->components.collect(uid, components);
    }
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
