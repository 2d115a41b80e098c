#pragma once

#include "ItemList.h"

#include <linux/eventstore/ical/CalendarText.h>
#include <linux/eventstore/ical/ComponentsByUid.h>
#include <linux/eventstore/ical/SeriesReader.h>

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace vantrel {

/// Expands together what several items of a calendar say of one UID: a master here and an override
/// there belong together, and of two masters the later revision shows. Reads each item once.
class SharedSeries {
public:
    /// Empty when the item cannot be had, or not all of it.
    using Read = std::function<std::optional<CalendarText>(ItemList::Index)>;

    SharedSeries(Read read, const SeriesReader &reader)
        : m_read(std::move(read)), m_reader(reader) {}

    /// The items from the oldest version to the latest. Empty when one of them cannot be had: what
    /// the others say alone may be an occurrence that was moved, in its old place.
    [[nodiscard]] std::optional<SeriesReader::Result>
    expand(UidHash uid, const std::vector<ItemList::Index> &items, Problems &problems);

private:
    struct Text {
        CalendarText text;
        ComponentsByUid components;
    };

    const std::optional<Text> &textOf(ItemList::Index item);

    Read m_read;
    const SeriesReader &m_reader;
    std::map<ItemList::Index, std::optional<Text>> m_texts;
};

} // namespace vantrel
