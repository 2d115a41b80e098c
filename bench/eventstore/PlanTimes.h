#pragma once

#include <linux/eventstore/StoreConfiguration.h>

#include <QStringList>

namespace vantrel::bench {

/// Has another process add an event to that calendar, `count` times, and prints how long after each
/// the store's list held it, and how long after the program's next plan did: store, coordinator and
/// scheduler are the program's own. `writer` is the rest of a command line of this program, to
/// which a number is added; it makes the change and calls `printTaken`.
void measurePlans(const StoreConfiguration &configuration, const QStringList &writer, int count);

/// Prints the moment at which a change had been made, for `measurePlans`.
void printTaken();

} // namespace vantrel::bench
