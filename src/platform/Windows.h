#pragma once

#include "ViewContent.h"

#include <QSize>
#include <QString>

#include <memory>

namespace vantrel {

enum class WindowLevel {
    normal,
    floating ///< Stays above normal windows, where the desktop lets it.
};

enum class WindowSizing {
    free,
    fixed ///< The user cannot change it.
};

struct WindowDescription {
    QString title; ///< Plain text.
    QSize size; ///< Of the content, in device-independent pixels; less where the screen is small.
    QSize leastSize;
    WindowLevel level = WindowLevel::normal;
    WindowSizing sizing = WindowSizing::free;
};

/// An ordinary window with a frame of the desktop's, in the middle of the screen at first. Closing
/// it hides it; it comes back as it was. Destroying it takes it away, but not from within its own
/// content.
class DesktopWindow {
public:
    virtual ~DesktopWindow() = default;

    /// Brings it to the front, with the keyboard in it.
    virtual void show() = 0;

    /// As if it were closed; also from within its own content.
    virtual void hide() = 0;
};

/// Makes the windows of the program. Main thread only.
class Windows {
public:
    virtual ~Windows() = default;

    /// Not shown yet; its content is made when it is shown for the first time.
    [[nodiscard]] virtual std::unique_ptr<DesktopWindow>
    makeWindow(const ViewContent &content, const WindowDescription &description) = 0;
};

} // namespace vantrel
