#pragma once

#include <platform/EventStore.h>

#include <QString>

#include <optional>

namespace vantrel {

// How every mapping in this room reads one field of a stored event.

/// "(no title)" when the event has none; an empty title stays empty.
[[nodiscard]] QString titleOf(const StoreEvent &event);

/// Without white space and line breaks at both ends; empty when nothing is left.
[[nodiscard]] std::optional<QString> locationOf(const StoreEvent &event);

/// Stops the program when the span is not a span of time: no store hands out such an event, and
/// nothing that is planned from one could be right.
void requireReadableSpan(const StoreEvent &event);

} // namespace vantrel
