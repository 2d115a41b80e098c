#pragma once

#include <platform/StatusItem.h>

#include <QString>

#include <optional>

namespace vantrel {

/// All that a status item is to show.
struct ItemLook {
    QString symbol;
    QString accessibleDescription;
    std::optional<StatusTitle> title;
    QString toolTip;

    bool operator==(const ItemLook &) const = default;
};

} // namespace vantrel
