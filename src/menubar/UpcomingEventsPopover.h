#pragma once

#include "UpcomingEventsViewModel.h"

#include <platform/MainQueue.h>
#include <platform/Popups.h>
#include <platform/ViewContent.h>

#include <QRect>

#include <memory>
#include <optional>

namespace vantrel {

/// The window with the upcoming meetings that hangs from the status item. Made once, shown and
/// hidden; what it lists is kept up to date for as long as it is shown. Main thread only.
class UpcomingEventsPopover {
public:
    /// What is passed in must outlive the popover. `content` shows `viewModel`.
    UpcomingEventsPopover(Popups &popups, const ViewContent &content,
                          UpcomingEventsViewModel &viewModel, MainQueue &queue);
    UpcomingEventsPopover(const UpcomingEventsPopover &) = delete;
    UpcomingEventsPopover &operator=(const UpcomingEventsPopover &) = delete;

    /// Answers a click on the item: shows it at `anchor`, the place of the click, or closes it.
    ///
    /// To the desktop a click on the item is one elsewhere as well, and may have closed the popover
    /// by the time at which the item tells of it. Such a click does not show it again.
    void toggle(const std::optional<QRect> &anchor);

    void show(const std::optional<QRect> &anchor);

    /// Harmless when it is not shown.
    void close();

    [[nodiscard]] bool isShown() const { return m_popup->isShown(); }

private:
    void didClose();

    UpcomingEventsViewModel &m_viewModel;
    MainQueue &m_queue;
    std::optional<MonotonicInstant> m_closedAt; ///< Unless a click on the item has been seen since.
    std::unique_ptr<Popup> m_popup;
};

} // namespace vantrel
