#pragma once

#include "RecapViewModel.h"

#include <platform/ViewContent.h>

namespace vantrel {

/// The recap. `viewModel` must outlive the window that shows it.
[[nodiscard]] ViewContent recapContent(RecapViewModel &viewModel);

} // namespace vantrel
