#pragma once

#include "ChildProcess.h"
#include "OtherProgram.h"

#include <linux/mainqueue/QtMainQueue.h>

#include <QRect>
#include <QString>

#include <functional>
#include <memory>
#include <string>

namespace vantrel::tests {

/// The virtual screen's two monitors, side by side.
inline const QRect leftMonitor(0, 0, 800, 600);
inline const QRect rightMonitor(800, 0, 800, 600);
inline const QRect wholeScreen(0, 0, 1600, 600);

/// Starts an X server with the two monitors and points DISPLAY to it; call it
/// once, before the application object. It ends with the returned object.
[[nodiscard]] std::unique_ptr<ChildProcess> startDisplay();

/// Divides the screen between the two monitors.
void connectBothMonitors();
void disconnectRightMonitor();

/// Makes one monitor of the whole screen.
void joinMonitors();

/// Makes the whole screen 1280 by 500 pixels large, or what it was.
void setSmallMode(bool isSmall);

/// Runs the event loop until the condition holds; answers whether it came to
/// that within the time.
bool waitUntil(const std::function<bool()> &condition, Seconds longest = Seconds{30});

/// A desktop that comes and goes with this object: a window manager by name (""
/// for none).
class Desktop {
public:
    explicit Desktop(const std::string &windowManager);
    ~Desktop();
    Desktop(const Desktop &) = delete;
    Desktop &operator=(const Desktop &) = delete;

    [[nodiscard]] OtherProgram &program() { return m_program; }

    /// Opens a window and waits until it can be seen.
    xcb_window_t show(OtherProgram::Kind kind, const QRect &frame, const QColor &color);

private:
    OtherProgram m_program;
    std::unique_ptr<ChildProcess> m_windowManager;
};

} // namespace vantrel::tests
