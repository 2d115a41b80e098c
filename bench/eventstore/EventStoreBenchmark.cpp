#include "Measurement.h"
#include "PlainLoop.h"
#include "SampleFolder.h"

#include <calendar/UpcomingEventsQuery.h>

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <set>

namespace {

using namespace vantrel;

constexpr int fileCount = 10'000;

/// Stands still at the sample's noon; the benchmarks schedule nothing.
class StillQueue : public MainQueue {
public:
    [[nodiscard]] Instant now() const override {
        return Instant{Seconds{static_cast<double>(bench::sampleNow)}};
    }
    [[nodiscard]] MonotonicInstant uptime() const override { return {}; }

protected:
    void schedule(std::shared_ptr<ScheduledWork::State>, MonotonicInstant, Seconds) override {}
};

/// The sample, written once for all benchmarks.
const QString &sampleFolder() {
    static const QTemporaryDir directory;
    static const QString folder = [] {
        const QString path = directory.filePath(QStringLiteral("sample"));
        bench::writeSampleFolder(path, fileCount);
        return path;
    }();
    return folder;
}

std::unique_ptr<LocalEventStore> sampleStore(MainQueue &queue) {
    return bench::storeOf(queue, bench::folderConfiguration(sampleFolder()));
}

/// First load: every file read and parsed, the window expanded.
void loadFolder(benchmark::State &state) {
    StillQueue queue;
    sampleStore(queue)->loadNow(); // Warms the page cache.
    for (auto _ : state) {
        auto store = sampleStore(queue);
        store->loadNow();
        benchmark::DoNotOptimize(store->isLoaded());
    }
    state.counters["files/s"] = benchmark::Counter(static_cast<double>(fileCount),
                                                   benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(loadFolder)->Unit(benchmark::kMillisecond);

/// The next 14 days, as the program asks for them once a minute.
void queryFourteenDays(benchmark::State &state) {
    StillQueue queue;
    const auto store = sampleStore(queue);
    store->loadNow();
    const auto identifiers = bench::identifiersOf(*store);
    std::size_t count = 0;
    for (auto _ : state) {
        const auto events =
            store->events(queue.now(), queue.now() + std::chrono::days(14), identifiers);
        count = events.size();
        benchmark::DoNotOptimize(events.data());
    }
    state.counters["occurrences"] = static_cast<double>(count);
}
BENCHMARK(queryFourteenDays)->Unit(benchmark::kMicrosecond);

/// The same as the program's own records, with their links, which is what each consumer asks for.
void fetchUpcomingFourteenDays(benchmark::State &state) {
    StillQueue queue;
    const auto store = sampleStore(queue);
    store->loadNow();
    const auto identifiers = bench::identifiersOf(*store);
    const std::set<QString> selected(identifiers.begin(), identifiers.end());
    const UpcomingEventsQuery query(*store);
    std::size_t count = 0;
    for (auto _ : state) {
        const auto events = query.fetchUpcoming(selected, queue.now(), std::chrono::days(14));
        count = events.size();
        benchmark::DoNotOptimize(events.data());
    }
    state.counters["occurrences"] = static_cast<double>(count);
}
BENCHMARK(fetchUpcomingFourteenDays)->Unit(benchmark::kMicrosecond);

void findByIdentifier(benchmark::State &state) {
    StillQueue queue;
    const auto store = sampleStore(queue);
    store->loadNow();
    const auto events = store->events(queue.now(), queue.now() + std::chrono::days(14),
                                      bench::identifiersOf(*store));
    std::size_t index = 0;
    for (auto _ : state) {
        index = (index + 1) % events.size();
        benchmark::DoNotOptimize(store->eventWithIdentifier(*events[index].eventIdentifier));
    }
}
BENCHMARK(findByIdentifier)->Unit(benchmark::kNanosecond);

/// What the figures above are to be held against.
void plainLibicalLoop(benchmark::State &state) {
    std::size_t count = 0;
    for (auto _ : state)
        count = bench::plainLoop(sampleFolder(), bench::sampleNow, bench::sampleNow + 14 * 86'400);
    state.counters["occurrences"] = static_cast<double>(count);
}
BENCHMARK(plainLibicalLoop)->Unit(benchmark::kMillisecond);

} // namespace
