#pragma once

#include <QByteArray>

namespace vantrel {

/// ICU's name for a BCP 47 tag, extensions included; for a tag that is none, the root's, empty.
[[nodiscard]] QByteArray icuLocale(const QByteArray &tag);

} // namespace vantrel
