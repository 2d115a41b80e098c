#include "DesktopStatusBar.h"

#include "DesktopStatusItem.h"

namespace vantrel {

DesktopStatusBar::DesktopStatusBar(MainQueue &queue, SymbolArt art)
    : m_queue(queue), m_art(std::move(art)) {}

std::unique_ptr<StatusItem> DesktopStatusBar::makeItem(StatusItemListener listener) {
    return std::make_unique<DesktopStatusItem>(m_queue, m_art, std::move(listener));
}

} // namespace vantrel
