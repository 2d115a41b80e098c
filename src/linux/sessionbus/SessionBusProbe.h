#pragma once

#include <platform/Time.h>

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

/// Lets this process, and what it starts, do without the session bus: each connection fails at
/// once. Before there is a thread.
void leaveSessionBusOut();

} // namespace vantrel
