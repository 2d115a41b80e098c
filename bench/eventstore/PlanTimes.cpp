#include "PlanTimes.h"

#include "Measurement.h"
#include "SampleQueue.h"

#include <app/AppCoordinator.h>
#include <fakes/FakeScreens.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/RecordingPanels.h>
#include <fakes/RecordingStatusBar.h>
#include <fakes/RecordingWorkspace.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>

namespace vantrel::bench {

namespace {

/// The program's store, which notes what the latest plan was made of.
class PlannedStore : public LocalEventStore {
public:
    using LocalEventStore::LocalEventStore;

    mutable std::size_t planned = 0;
    mutable Clock::time_point plannedAt;

    [[nodiscard]] std::vector<StoreEvent>
    events(Instant from, Instant to,
           const std::vector<QString> &calendarIdentifiers) const override {
        auto found = LocalEventStore::events(from, to, calendarIdentifiers);
        constexpr Seconds stretch{86'400.0 + 300.0}; // The scheduler's, and nobody else's.
        if (to - from == stretch && found.size() > planned) {
            planned = found.size();
            plannedAt = Clock::now();
        }
        return found;
    }
};

double millisecondsBetween(Clock::time_point start, Clock::time_point end) {
    return std::chrono::duration<double, std::milli>(end - start).count();
}

void print(const char *what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    QTextStream(stdout) << "from change to " << what << ": median " << times[times.size() / 2]
                        << " ms, least " << times.front() << " ms, most " << times.back() << " ms, "
                        << times.size() << " changes\n";
}

} // namespace

void measurePlans(const StoreConfiguration &configuration, const QStringList &writer, int count) {
    const QTemporaryDir folder;
    SampleQueue queue;
    const auto store = storeOf<PlannedStore>(queue, configuration);
    CalendarAccess access(*store);
    fakes::InMemoryUserDefaults defaults;
    PreferencesStore preferences(defaults);
    fakes::RecordingWorkspace workspace;
    fakes::FakeScreens screens;
    fakes::RecordingPanels panels;
    fakes::RecordingStatusBar statusBar;
    AppCoordinator coordinator(
        preferences, access,
        AppServices{queue, defaults, workspace, screens, panels, statusBar, sampleCalendar, [] {}},
        folder.filePath(QStringLiteral("rescues.json")));
    store->start();
    coordinator.start();
    waitFor([&] { return store->isLoaded() && occurrences(*store) > 0 && store->planned > 0; });

    std::vector<double> lists, plans;
    for (int number = 0; number < count; ++number) {
        const std::size_t before = occurrences(*store);
        const std::size_t plannedBefore = store->planned;
        Clock::time_point listed;
        const Subscription subscription = store->changed.subscribe([&] {
            if (listed == Clock::time_point() && occurrences(*store) > before)
                listed = Clock::now();
        });
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      writer + QStringList{QString::number(number)});
        waitFor([&] {
            return store->planned > plannedBefore && process.state() == QProcess::NotRunning;
        });
        const Clock::time_point taken{Clock::duration(process.readAll().trimmed().toLongLong())};
        lists.push_back(millisecondsBetween(taken, listed));
        plans.push_back(millisecondsBetween(taken, store->plannedAt));
    }
    print("list", lists);
    print("plan", plans);
}

void printTaken() {
    QTextStream(stdout) << qint64(Clock::now().time_since_epoch().count()) << '\n';
}

} // namespace vantrel::bench
