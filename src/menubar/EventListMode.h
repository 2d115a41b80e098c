#pragma once

namespace vantrel {

/// Which of the meetings of the next two weeks the popover lists.
enum class EventListMode { today, all };

} // namespace vantrel
