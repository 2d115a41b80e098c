#pragma once

#include <linux/eventstore/StoreConfiguration.h>

#include <QStringList>

namespace vantrel::bench {

/// Has another process add an event to that calendar, `count` times (see `Changes`), and prints how
/// long after each the store's list held it, and how long after the program's next plan did: store,
/// coordinator and scheduler are the program's own.
void measurePlans(const StoreConfiguration &configuration, const QStringList &writer, int count);

} // namespace vantrel::bench
