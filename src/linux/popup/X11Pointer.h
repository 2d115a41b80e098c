#pragma once

#include <QAbstractNativeEventFilter>
#include <QPoint>

#include <cstdint>
#include <functional>

namespace vantrel {

/// Hears every button of the mouse that is pressed or let go anywhere on an X server, without
/// taking anything from whom it is for. Deaf off X11 and without the XInput extension.
class X11Pointer : public QAbstractNativeEventFilter {
public:
    /// `pressed` gets the pointer's place in device-independent pixels. The wheel is no button.
    X11Pointer(std::function<void(QPoint)> pressed, std::function<void()> released);
    X11Pointer(const X11Pointer &) = delete;
    X11Pointer &operator=(const X11Pointer &) = delete;
    ~X11Pointer() override;

    void listen();
    void stop();

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    void select(std::uint32_t events);

    const std::function<void(QPoint)> m_pressed;
    const std::function<void()> m_released;
    std::uint8_t m_extension = 0; ///< Zero without it.
    bool m_isListening = false;
};

} // namespace vantrel
