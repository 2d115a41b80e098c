// Lets the real scheduler fire on the real queue, and prints how far from the planned moment each
// takeover was shown. Takes about FIRES times 50 ms on an otherwise idle machine.
//
// Usage: fire_precision [FIRES]

#include <copy/TemplateCopyProvider.h>
#include <fakes/FakeEventStore.h>
#include <fakes/FakeScreens.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/RecordingPanels.h>
#include <fakes/RecordingWorkspace.h>
#include <linux/mainqueue/QtMainQueue.h>
#include <takeover/TakeoverTriggerScheduler.h>
#include <takeover/TakeoverWindowController.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace vantrel;

namespace {

constexpr Seconds spacing{0.05};

/// Notes when a panel is made, which is when a takeover is shown, and takes it down at once.
class TimingPanels : public fakes::RecordingPanels {
public:
    TimingPanels(MainQueue &queue, std::function<void(Instant)> shown)
        : m_queue(queue), m_shown(std::move(shown)) {}

    std::unique_ptr<ShieldingPanel> makePanel(const Screen &screen, PanelRole role,
                                              const ViewContent &content) override {
        m_shown(m_queue.now());
        return RecordingPanels::makePanel(screen, role, content);
    }

private:
    MainQueue &m_queue;
    std::function<void(Instant)> m_shown;
};

StoreEvent meeting(int index, Instant start, const std::shared_ptr<const StoreCalendar> &calendar) {
    StoreEvent event;
    event.eventIdentifier = QStringLiteral("meeting-%1").arg(index);
    event.title = QStringLiteral("Meeting");
    event.startDate = start;
    event.endDate = start + Seconds{600};
    event.calendar = calendar;
    return event;
}

double percentile(const std::vector<double> &sorted, double share) {
    const auto index = static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1));
    return sorted[index];
}

} // namespace

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    const int fires = argc > 1 ? std::atoi(argv[1]) : 200;
    const QTemporaryDir folder;

    QtMainQueue queue;
    const CurrentCalendar utc = [] { return LocalCalendar(QTimeZone::utc(), QLocale::c()); };
    fakes::FakeEventStore store([&] { return queue.now(); });
    auto calendar = std::make_shared<StoreCalendar>();
    calendar->calendarIdentifier = QStringLiteral("work");
    store.storedCalendars = {*calendar};

    fakes::FakeScreens screens;
    screens.connected = {{QStringLiteral("L"), QRect(0, 0, 1920, 1080)}};
    screens.mainScreenId = QStringLiteral("L");
    std::vector<double> errors;
    std::vector<Instant> planned;
    TakeoverWindowController *shownBy = nullptr;
    TimingPanels panels(queue, [&](Instant now) {
        errors.push_back((now - planned[errors.size()]).count() * 1000.0);
        queue.async([&] { shownBy->hide(); });
        if (static_cast<int>(errors.size()) == fires)
            queue.async([] { QCoreApplication::quit(); });
    });
    TakeoverWindowController controller(queue, screens, panels);
    shownBy = &controller;

    fakes::InMemoryUserDefaults defaults;
    PreferencesStore preferences(defaults);
    preferences.setLeadTimeSeconds(0);
    preferences.setSelectedCalendarIDs({QStringLiteral("work")});
    RescueLog rescueLog(
        RescueLogStore(folder.filePath(QStringLiteral("rescues.json"))),
        [&] { return queue.now(); }, utc);
    fakes::RecordingWorkspace workspace;
    const TemplateCopyProvider copyProvider;
    const UpcomingEventsQuery query(store);
    TakeoverTriggerScheduler scheduler(store, query, preferences, copyProvider, controller,
                                       rescueLog, queue, utc, workspace);

    const Instant first = queue.now() + Seconds{1.0};
    for (int index = 0; index < fires; ++index) {
        planned.push_back(first + index * spacing);
        store.storedEvents.push_back(meeting(index, planned.back(), calendar));
    }
    scheduler.start();
    QCoreApplication::exec();

    std::sort(errors.begin(), errors.end());
    std::printf("%d fires, late by: median %.2f ms, 95th percentile %.2f ms, most %.2f ms; "
                "earliest %.2f ms\n",
                fires, percentile(errors, 0.5), percentile(errors, 0.95), errors.back(),
                errors.front());
    return 0;
}
