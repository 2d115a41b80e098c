#pragma once

#include "UpdatesViewModel.h"

#include <platform/ViewContent.h>

namespace vantrel {

/// What the window about updates shows. `viewModel` must outlive the window.
[[nodiscard]] ViewContent updatesContent(UpdatesViewModel &viewModel);

} // namespace vantrel
