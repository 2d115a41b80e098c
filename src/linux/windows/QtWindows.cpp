#include "QtWindows.h"

#include "QtWindow.h"

namespace vantrel {

std::unique_ptr<DesktopWindow> QtWindows::makeWindow(const ViewContent &content,
                                                     const WindowDescription &description) {
    return std::make_unique<QtWindow>(content, description, m_engine);
}

} // namespace vantrel
