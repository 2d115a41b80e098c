#include "Desktop.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace vantrel::tests {

std::unique_ptr<ChildProcess> startDisplay() {
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    auto server = std::make_unique<ChildProcess>(
        std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0",
                                 "1600x600x24", "-nolisten", "tcp", "-noreset"},
        ends[1]);
    close(ends[1]);
    std::string number;
    char letter = 0;
    while (read(ends[0], &letter, 1) == 1 && letter != '\n') // Ends when the server does.
        number += letter;
    close(ends[0]);
    if (number.empty())
        throw std::runtime_error("Xvfb did not start");
    setenv("DISPLAY", (":" + number).c_str(), 1);
    connectBothMonitors();
    return server;
}

void connectBothMonitors() {
    run({"xrandr", "--setmonitor", "L", "800/211x600/158+0+0", "screen"});
    run({"xrandr", "--setmonitor", "R", "800/211x600/158+800+0", "none"});
}

void disconnectRightMonitor() {
    run({"xrandr", "--delmonitor", "R"});
}

void joinMonitors() {
    run({"xrandr", "--delmonitor", "L"});
    run({"xrandr", "--delmonitor", "R"});
}

void setSmallMode(bool isSmall) {
    // Refused, and rightly so, when it is there already.
    run({"xrandr", "--newmode", "small", "40", "1280", "1300", "1400", "1500", "500", "510", "520",
         "530"});
    run({"xrandr", "--addmode", "screen", "small"});
    run({"xrandr", "--output", "screen", "--mode", isSmall ? "small" : "1600x600"});
}

bool waitUntil(const std::function<bool()> &condition, Seconds longest) {
    QtMainQueue queue;
    const MonotonicInstant end = queue.uptime() + longest;
    QEventLoop loop;
    // Some conditions are about other programs, of which the loop hears nothing.
    const auto look = queue.every(Seconds{0.002}, [&] {
        if (condition() || queue.uptime() > end)
            loop.quit();
    });
    if (!condition())
        loop.exec();
    return condition();
}

Desktop::Desktop(const std::string &windowManager) {
    m_program.forgetWindowManager();
    if (windowManager.empty())
        return;
    std::vector<std::string> command{windowManager};
    if (windowManager == "openbox")
        command.insert(command.end(), {"--sm-disable"});
    if (windowManager == "xfwm4")
        command.insert(command.end(), {"--compositor=off"});
    m_windowManager = std::make_unique<ChildProcess>(command);
    // It announces itself well before it is ready: it is once it has taken a window in hand.
    const xcb_window_t probe =
        m_program.openWindow(OtherProgram::Kind::ordinary, QRect(0, 0, 10, 10), Qt::white);
    if (!waitUntil([&] {
            return m_program.hasWindowManager() && m_program.number(probe, "WM_STATE") != 0;
        }))
        throw std::runtime_error(windowManager + " did not start");
    m_program.closeWindow(probe);
    waitUntil([&] { return m_program.number(m_program.root(), "_NET_CLIENT_LIST") == 0; });
}

Desktop::~Desktop() = default;

xcb_window_t Desktop::show(OtherProgram::Kind kind, const QRect &frame, const QColor &color) {
    const xcb_window_t window = m_program.openWindow(kind, frame, color);
    const QRgb wanted = color.rgb() | 0xff000000;
    waitUntil([&] {
        return m_program.isViewable(window) &&
               m_program.picture(QRect(frame.center(), QSize(1, 1))).pixel(0, 0) == wanted;
    });
    return window;
}

} // namespace vantrel::tests
