#pragma once

#include "PopupStack.h"

#include <platform/Popups.h>

namespace vantrel {

class ViewEngine;

/// Popups on Qt Quick's windows. On X11 the place is the program's own affair; on Wayland, where
/// no program knows the place of anything, the compositor puts an ordinary window without a frame
/// where it likes. Construct it after the application object.
class QtPopups : public Popups {
public:
    /// `engine` must outlive the popups.
    explicit QtPopups(ViewEngine &engine) : m_engine(engine) {}

    /// Each popup must be gone before.
    [[nodiscard]] std::unique_ptr<Popup> makePopup(const ViewContent &content,
                                                   PopupListener listener) override;

private:
    ViewEngine &m_engine;
    PopupStack m_stack;
};

} // namespace vantrel
