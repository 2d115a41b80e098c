#pragma once

#include "IconPixmap.h"
#include "ItemLook.h"

#include <QString>

/// The texts of an item as hosts are to have them.
namespace vantrel {

/// On one line: what would break it or drive it is a space.
[[nodiscard]] QString onOneLine(const QString &text);

/// The text beside the icon, "● Stand-up • in 5 min"; empty for none. Hosts show it as it is and
/// without colours.
[[nodiscard]] QString labelText(const ItemLook &look);

/// A text as wide as the label will be while it counts down.
[[nodiscard]] QString labelGuide(const ItemLook &look);

/// What the item is called where there is no room for a label: the title, else the program.
[[nodiscard]] QString nameText(const ItemLook &look);

/// All there is to tell, one line each: the title and the tooltip, without what repeats the
/// program's name. May be empty.
[[nodiscard]] QString detailText(const ItemLook &look);

/// The details, else the program's name: a tooltip where no host makes one.
[[nodiscard]] QString plainToolTip(const ItemLook &look);

/// The program's name as heading and the details, escaped.
[[nodiscard]] HostToolTip hostToolTip(const ItemLook &look);

} // namespace vantrel
