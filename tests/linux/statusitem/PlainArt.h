#pragma once

#include <linux/statusitem/SymbolArt.h>

namespace vantrel::tests {

/// Symbols that are a filled square, in place of the program's.
[[nodiscard]] SymbolArt plainArt();

} // namespace vantrel::tests
