#pragma once

#include <QSize>

class QQuickItem;

namespace vantrel {

/// The size that a popup's content wants, before its first frame as well.
[[nodiscard]] QSize wantedSize(QQuickItem &item);

enum class Corners { round, square };

/// Tells the content which corners its window can have, where it asks for that.
void setCorners(QQuickItem &item, Corners corners);

} // namespace vantrel
