#pragma once

#include <linux/eventstore/LocalEventStore.h>
#include <linux/eventstore/StoreAccess.h>
#include <platform/MainQueue.h>

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace vantrel::bench {

/// What the programs that measure a store share. Times are in milliseconds, memory is PSS in kB.

using Clock = std::chrono::steady_clock;

[[nodiscard]] double millisecondsSince(Clock::time_point start);

/// Of this process; 0 where the kernel does not tell.
[[nodiscard]] qint64 proportionalSetSize();

[[nodiscard]] StoreConfiguration folderConfiguration(const QString &folder);

/// The user of the sample, who is in Zurich.
[[nodiscard]] LocalCalendar sampleCalendar();

/// A store that reads without asking anybody.
template <typename Store = LocalEventStore>
std::unique_ptr<Store> storeOf(MainQueue &queue, const StoreConfiguration &configuration) {
    return std::make_unique<Store>(queue, configuration, sampleCalendar, StoreAccess::granted());
}

[[nodiscard]] std::vector<QString> identifiersOf(const EventStore &store);

/// How many there are in the fortnight from the sample's noon on.
[[nodiscard]] std::size_t occurrences(const EventStore &store);

/// Lets the event loop run until then.
void waitFor(const std::function<bool()> &condition);

/// Starts a store on that and prints how long it takes to its complete list of at least so many
/// occurrences, and its memory.
void measureFirstList(const StoreConfiguration &configuration, std::size_t atLeast);

} // namespace vantrel::bench
