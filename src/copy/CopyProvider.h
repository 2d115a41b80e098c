#pragma once

#include "MeetingMoment.h"

#include <QString>

#include <optional>

namespace vantrel {

/// Finds the short line of copy that a takeover shows beneath the title.
class CopyProvider {
public:
    virtual ~CopyProvider() = default;

    /// Empty when there is nothing to say about this moment.
    [[nodiscard]] virtual std::optional<QString> line(const MeetingMoment &moment) const = 0;
};

} // namespace vantrel
