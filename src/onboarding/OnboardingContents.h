#pragma once

#include "OnboardingViewModel.h"

#include <platform/ViewContent.h>

namespace vantrel {

/// The first run. `viewModel` must outlive the window that shows it.
[[nodiscard]] ViewContent onboardingContent(OnboardingViewModel &viewModel);

} // namespace vantrel
