#pragma once

#include <platform/Published.h>

namespace vantrel {

/// Whether the user has joined from the takeover that is up.
enum class TakeoverPhase { urgent, joined };

/// The phase as the takeover's view observes it. One object serves takeover after takeover; each
/// begins at `urgent`.
struct TakeoverPhaseState {
    Published<TakeoverPhase> phase{TakeoverPhase::urgent};
};

} // namespace vantrel
