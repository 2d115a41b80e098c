#include "X11Connection.h"

#include <QGuiApplication>

namespace vantrel::x11 {

xcb_connection_t *connection() {
    const auto *application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return application ? application->connection() : nullptr;
}

xcb_window_t rootWindow() {
    // Qt knows one X screen only, the one that DISPLAY names; its windows' parent is the root.
    return xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
}

} // namespace vantrel::x11
