#pragma once

#include <QString>

#include <functional>
#include <variant>
#include <vector>

namespace vantrel {

/// One line of a menu that can be chosen.
struct MenuItem {
    QString title;         ///< Plain text: an underscore or an ampersand is just that.
    QString keyEquivalent; ///< One character that chooses it while the menu is open; or none.
    std::function<void()> action; ///< Empty for an item that cannot be chosen, shown as such.
};

struct MenuSeparator {};

using Menu = std::vector<std::variant<MenuItem, MenuSeparator>>;

} // namespace vantrel
