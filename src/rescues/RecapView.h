#pragma once

#include "RescueStats.h"

#include <theme/Palette.h>

#include <functional>

namespace vantrel {

/// What the recap tells.
struct RecapView {
    RescueStats weekly;
    RescueStats lifetime;
    Palette palette;
    /// For whoever works on the view; each has a button only where it is given.
    std::function<void()> onSeedSample;
    std::function<void()> onClear;
};

} // namespace vantrel
