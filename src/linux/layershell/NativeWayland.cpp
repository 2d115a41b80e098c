#include "NativeWayland.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

// Public calls exist from Qt 6.5 on, and for display and seat alone.
#include <qpa/qplatformnativeinterface.h>

namespace vantrel::wayland {

namespace {

QPlatformNativeInterface *native() {
    const bool isWayland = QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    return isWayland ? QGuiApplication::platformNativeInterface() : nullptr;
}

} // namespace

wl_display *display() {
    auto *interface = native();
    return interface ? static_cast<wl_display *>(
                           interface->nativeResourceForIntegration(QByteArrayLiteral("wl_display")))
                     : nullptr;
}

wl_surface *surface(QWindow &window) {
    auto *interface = native();
    return interface && window.handle()
               ? static_cast<wl_surface *>(
                     interface->nativeResourceForWindow(QByteArrayLiteral("surface"), &window))
               : nullptr;
}

wl_output *output(QScreen &screen) {
    auto *interface = native();
    return interface ? static_cast<wl_output *>(
                           interface->nativeResourceForScreen(QByteArrayLiteral("output"), &screen))
                     : nullptr;
}

} // namespace vantrel::wayland
