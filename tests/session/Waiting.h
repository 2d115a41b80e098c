#pragma once

#include <functional>

namespace vantrel::tests {

/// When to look at a condition again: after an event, or all the time, for one whose coming true is
/// no event.
enum class Looking { afterEvents, often };

/// Runs the event loop until the condition holds; answers whether it came to that in time.
bool waitUntil(const std::function<bool()> &condition, Looking looking = Looking::afterEvents);

} // namespace vantrel::tests
