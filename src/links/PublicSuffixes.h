#pragma once

#include <QStringView>

namespace vantrel {

/// Whether the host ends in a suffix of ICANN's part of the public suffix list and has a name below
/// it: true for `zoom.us` and `bbc.co.uk`, false for `us`, `co.uk` and `server.local`.
[[nodiscard]] bool isBelowPublicSuffix(QStringView host);

} // namespace vantrel
