#pragma once

#include <platform/Time.h>

#include <QByteArray>
#include <QString>

namespace vantrel {

/// Whether there is an address to look for a bus at. The bus library would otherwise start a bus of
/// its own by way of the display.
[[nodiscard]] bool hasSessionBus();

/// Whether the session bus lets a program in, within `patience`, for which it blocks at most.
///
/// The libraries that talk to the bus wait for this without any limit, on the thread that asks:
/// a program that is to keep the time asks here, ahead of the application object. True where there
/// is no bus, and where its address is of a kind that is not tried.
[[nodiscard]] bool isSessionBusAnswering(Seconds patience);

/// Where the session bus is looked for: the environment's address, or the place where a bus stands
/// without one.
[[nodiscard]] QString sessionBusAddress();

/// Keeps the libraries that wait for a bus without a limit from looking for it: as long as this is
/// there, each of their connections fails at once, and those of Qt's own to the session bus fail
/// for good. At its end the environment names the bus again, for the links of this room and for the
/// programs that are started.
///
/// The environment is written to, so no other thread may read it at the beginning or the end.
class HiddenSessionBus {
public:
    HiddenSessionBus();
    HiddenSessionBus(const HiddenSessionBus &) = delete;
    HiddenSessionBus &operator=(const HiddenSessionBus &) = delete;
    ~HiddenSessionBus();

private:
    const QByteArray m_address;
};

} // namespace vantrel
