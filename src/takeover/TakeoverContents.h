#pragma once

#include "TakeoverViewModel.h"

#include <platform/ShieldingPanels.h>
#include <theme/Palette.h>

#include <QString>

namespace vantrel {

/// The full view of a takeover. `viewModel` must outlive the panel that shows it.
[[nodiscard]] ViewContent takeoverViewContent(TakeoverViewModel &viewModel, const Palette &palette);

/// What the other monitors show: the paw and the title.
[[nodiscard]] ViewContent takeoverEchoContent(const QString &title, const Palette &palette);

} // namespace vantrel
