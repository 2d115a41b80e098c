#include "PlanTimes.h"

#include "Changes.h"
#include "SampleQueue.h"

#include <app/AppCoordinator.h>
#include <fakes/FakeLoginItem.h>
#include <fakes/FakeNotificationPermission.h>
#include <fakes/FakeScreens.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/RecordingPanels.h>
#include <fakes/RecordingPopups.h>
#include <fakes/RecordingStatusBar.h>
#include <fakes/RecordingUpdater.h>
#include <fakes/RecordingWindows.h>
#include <fakes/RecordingWorkspace.h>

#include <QTemporaryDir>

#include <vector>

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
    fakes::RecordingPopups popups;
    fakes::RecordingWindows windows;
    fakes::RecordingUpdater updater;
    fakes::FakeLoginItem loginItem;
    fakes::FakeNotificationPermission notifications;
    AppCoordinator coordinator(preferences, access,
                               AppServices{queue, defaults, workspace, screens, panels, statusBar,
                                           popups, windows, updater, loginItem, notifications,
                                           sampleCalendar, [] {}},
                               folder.filePath(QStringLiteral("rescues.json")));
    store->start();
    coordinator.start();
    waitFor([&] { return store->isLoaded() && occurrences(*store) > 0 && store->planned > 0; });

    Changes changes(writer);
    std::vector<double> lists, plans;
    for (int number = 0; number < count; ++number) {
        const std::size_t before = occurrences(*store);
        const std::size_t plannedBefore = store->planned;
        Clock::time_point listed;
        const Subscription subscription = store->changed.subscribe([&] {
            if (listed == Clock::time_point() && occurrences(*store) > before)
                listed = Clock::now();
        });
        const auto taken = changes.make([&] { return store->planned > plannedBefore; });
        lists.push_back(millisecondsBetween(taken, listed));
        plans.push_back(millisecondsBetween(taken, store->plannedAt));
    }
    printTimes("from change to list", lists);
    printTimes("from change to plan", plans);
}

} // namespace vantrel::bench
