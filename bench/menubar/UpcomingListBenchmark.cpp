// What it takes to make the popover's list, without drawing it.

#include <calendar/EventGrouper.h>
#include <fakes/FakeEventStore.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <menubar/UpcomingEventsViewModel.h>

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

namespace vantrel {
namespace {

const Instant now = fakes::at("2026-03-02T09:00:00", "Europe/Zurich");
const LocalCalendar zurich = fakes::calendarIn("Europe/Zurich");

/// Spread evenly over 14 days.
Instant startOf(int index, int count) {
    return now + Seconds{1'209'000.0 * index / count};
}

void groupByDay(benchmark::State &state) {
    const auto count = static_cast<int>(state.range(0));
    std::vector<UpcomingEvent> events;
    for (int index = 0; index < count; ++index) {
        UpcomingEvent event;
        event.id = QString::number(index);
        event.startDate = startOf(index, count);
        events.push_back(event);
    }
    for ([[maybe_unused]] const auto &turn : state)
        benchmark::DoNotOptimize(EventGrouper::groupByDay(events, now, zurich));
}
BENCHMARK(groupByDay)->Arg(30)->Arg(2000)->Unit(benchmark::kMillisecond);

void refresh(benchmark::State &state) {
    const auto count = static_cast<int>(state.range(0));
    fakes::ManualMainQueue queue(now);
    fakes::FakeEventStore store([&queue] { return queue.now(); });
    auto work = std::make_shared<StoreCalendar>();
    work->calendarIdentifier = QStringLiteral("work");
    store.storedCalendars = {*work};
    for (int index = 0; index < count; ++index) {
        StoreEvent event;
        event.eventIdentifier = QString::number(index);
        event.title = QStringLiteral("Meeting");
        event.startDate = startOf(index, count);
        event.endDate = event.startDate + Seconds{1800.0};
        event.location = QStringLiteral("https://meeting.example.com/room/%1").arg(index);
        event.calendar = work;
        store.storedEvents.push_back(event);
    }
    fakes::InMemoryUserDefaults defaults;
    PreferencesStore preferences(defaults);
    preferences.setSelectedCalendarIDs({work->calendarIdentifier});
    const UpcomingEventsQuery query(store);
    UpcomingEventsViewModel viewModel(query, preferences, queue, [] { return zurich; });
    viewModel.setMode(EventListMode::all);
    for ([[maybe_unused]] const auto &turn : state)
        viewModel.refresh();
}
BENCHMARK(refresh)->Arg(30)->Arg(2000)->Unit(benchmark::kMillisecond);

void timeRange(benchmark::State &state) {
    for ([[maybe_unused]] const auto &turn : state) {
        benchmark::DoNotOptimize(zurich.shortTime(now));
        benchmark::DoNotOptimize(zurich.shortTime(now + Seconds{1800.0}));
    }
}
BENCHMARK(timeRange)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace vantrel
