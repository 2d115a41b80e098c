#pragma once

#include "LayerScene.h"
#include "PopupStack.h"

#include <platform/Popups.h>

namespace vantrel {

class LayerShell;
class ViewEngine;

/// Popups on Qt Quick's windows. On X11 the place is the program's own affair, and so it is where
/// the compositor has a layer shell. On other Wayland desktops, where no program knows the place of
/// anything, the compositor puts an ordinary window without a frame where it likes. Construct it
/// after the application object.
class QtPopups : public Popups {
public:
    /// All must outlive the popups.
    QtPopups(MainQueue &queue, ViewEngine &engine, const LayerShell &shell);

    /// Each popup must be gone before.
    [[nodiscard]] std::unique_ptr<Popup> makePopup(const ViewContent &content,
                                                   PopupListener listener) override;

private:
    ViewEngine &m_engine;
    const LayerShell &m_shell;
    PopupStack m_stack;
    LayerScene m_scene; ///< Empty without a layer shell.
};

} // namespace vantrel
