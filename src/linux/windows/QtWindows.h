#pragma once

#include <platform/Windows.h>

namespace vantrel {

class ViewEngine;

/// Ordinary windows on Qt Quick's. Construct it after the application object.
class QtWindows : public Windows {
public:
    /// `engine` must outlive the windows.
    explicit QtWindows(ViewEngine &engine) : m_engine(engine) {}

    [[nodiscard]] std::unique_ptr<DesktopWindow>
    makeWindow(const ViewContent &content, const WindowDescription &description) override;

private:
    ViewEngine &m_engine;
};

} // namespace vantrel
