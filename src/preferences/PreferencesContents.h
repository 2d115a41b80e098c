#pragma once

#include "PreferencesModel.h"

#include <platform/ViewContent.h>

namespace vantrel {

/// The preferences. `model` must outlive the window that shows it.
[[nodiscard]] ViewContent preferencesContent(PreferencesModel &model);

} // namespace vantrel
