#pragma once

#include <platform/Color.h>

#include <QStringView>

namespace vantrel {

/// The opaque colour of "RRGGBB", read as leniently as a scanner reads hexadecimal numbers: white
/// space around it is ignored, "0x" may stand before it, and it ends at the first character that
/// is no digit. Of more than six digits the last six count; more than 64 bits read as all ones,
/// which is white; text without a number at its start is black.
[[nodiscard]] Color colorFromHex(QStringView hex);

} // namespace vantrel
