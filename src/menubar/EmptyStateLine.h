#pragma once

#include "EventListMode.h"

#include <QString>

#include <cstdint>

namespace vantrel {

/// What stands in the popover in place of a list that is empty: one of three lines a mode.
struct EmptyStateLine {
    EmptyStateLine() = delete;

    /// Drawn at random at the first call and the same ever after, so that the line changes from
    /// one run of the program to the next, and never during one. Not negative.
    [[nodiscard]] static std::int64_t numberOfThisProcess();

    /// `number` is not negative; the same one gives the line at the same place in either list.
    [[nodiscard]] static QString line(EventListMode mode, std::int64_t number);
};

} // namespace vantrel
