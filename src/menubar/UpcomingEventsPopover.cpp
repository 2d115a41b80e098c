#include "UpcomingEventsPopover.h"

#include <utility>

namespace vantrel {

namespace {

/// How long the news of a click may take from the desktop's host of status items to here. Shorter
/// than it takes anyone to click elsewhere and then on the item.
constexpr Seconds longestWayOfAClick{0.3};

} // namespace

UpcomingEventsPopover::UpcomingEventsPopover(Popups &popups, const ViewContent &content,
                                             UpcomingEventsViewModel &viewModel, MainQueue &queue)
    : m_viewModel(viewModel),
      m_queue(queue),
      m_popup(popups.makePopup(
          content, {[this] { m_viewModel.popoverDidShow(); }, [this] { didClose(); }})) {}

void UpcomingEventsPopover::toggle(const std::optional<QRect> &anchor) {
    const auto closedAt = std::exchange(m_closedAt, std::nullopt);
    if (isShown())
        close();
    else if (!closedAt || m_queue.uptime() - *closedAt > longestWayOfAClick)
        show(anchor);
}

void UpcomingEventsPopover::show(const std::optional<QRect> &anchor) {
    m_popup->show({anchor});
}

void UpcomingEventsPopover::close() {
    m_popup->close();
    m_closedAt.reset();
}

void UpcomingEventsPopover::didClose() {
    m_closedAt = m_queue.uptime();
    m_viewModel.popoverDidClose();
}

} // namespace vantrel
