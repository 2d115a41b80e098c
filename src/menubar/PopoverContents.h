#pragma once

#include "MenuModel.h"
#include "PopoverModel.h"

#include <platform/ViewContent.h>

namespace vantrel {

/// The popover with the upcoming meetings. `model` must outlive the window that shows it.
[[nodiscard]] ViewContent upcomingEventsContent(PopoverModel &model);

/// A menu. `model` must outlive the window that shows it.
[[nodiscard]] ViewContent menuContent(MenuModel &model);

} // namespace vantrel
