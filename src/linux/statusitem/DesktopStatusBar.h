#pragma once

#include "SymbolArt.h"

#include <platform/MainQueue.h>
#include <platform/StatusItem.h>

namespace vantrel {

/// The desktop's status area, whichever it has: the hosts of StatusNotifierItem on the
/// session bus, or the system tray of an X11 desktop.
class DesktopStatusBar : public StatusBar {
public:
    /// `queue` must outlive the status bar and its items.
    DesktopStatusBar(MainQueue &queue, SymbolArt art);

    [[nodiscard]] std::unique_ptr<StatusItem> makeItem(StatusItemListener listener) override;

private:
    MainQueue &m_queue;
    SymbolArt m_art;
};

} // namespace vantrel
