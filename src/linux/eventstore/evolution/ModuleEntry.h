#pragma once

#include <linux/eventstore/source/ComponentSource.h>

#include <functional>

namespace vantrel {

/// What the module exports. The caller owns the source; `announce` is called, on any thread, after
/// an answer may have changed. Both sides are of one build: what crosses is C++.
using MakeEvolutionSource = ComponentSource *(std::function<void()> announce);

inline constexpr char makeEvolutionSourceName[] = "vantrelMakeEvolutionSource";

} // namespace vantrel
