#pragma once

#include <linux/eventstore/source/ComponentSource.h>

namespace vantrel {

/// What the module exports. The caller owns the source. Both sides are of one build: what crosses
/// is C++.
using MakeEvolutionSource = ComponentSource *();

inline constexpr char makeEvolutionSourceName[] = "vantrelMakeEvolutionSource";

} // namespace vantrel
