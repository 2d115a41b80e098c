#pragma once

#include <QByteArrayView>

namespace vantrel {

/// Calls `take` with each value of a list between commas (RFC 5545, section 3.1.1), empty ones
/// included, without the blanks around it.
template <typename Take>
void forEachValue(QByteArrayView list, Take take) {
    for (qsizetype at = 0; at <= list.size();) {
        auto end = list.indexOf(',', at);
        end = end < 0 ? list.size() : end;
        take(list.sliced(at, end - at).trimmed());
        at = end + 1;
    }
}

} // namespace vantrel
