#pragma once

#include <app/AppCoordinator.h>
#include <fakes/FakeEventStore.h>
#include <fakes/FakeLoginItem.h>
#include <fakes/FakeNotificationPermission.h>
#include <fakes/FakeScreens.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/RecordingPanels.h>
#include <fakes/RecordingPopups.h>
#include <fakes/RecordingStatusBar.h>
#include <fakes/RecordingUpdater.h>
#include <fakes/RecordingWindows.h>
#include <fakes/RecordingWorkspace.h>
#include <fakes/Times.h>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace vantrel {

/// The coordinator on a desktop of fakes, on a Monday at nine, with three calendars of which just
/// "work" is an ordinary one. The first run is over.
class CoordinatorFixture : public testing::Test {
protected:
    CoordinatorFixture() {
        defaults.objects[QStringLiteral("Vantrel.hasCompletedFirstRun")] = true;
        screens.connected = {{QStringLiteral("L"), QRect(0, 0, 1920, 1080)}};
        store.storedCalendars = {calendar("work", StoreCalendarType::local),
                                 calendar("holidays", StoreCalendarType::subscription),
                                 calendar("birthdays", StoreCalendarType::birthday)};
    }

    static StoreCalendar calendar(const char *identifier,
                                  StoreCalendarType type = StoreCalendarType::local) {
        StoreCalendar calendar;
        calendar.calendarIdentifier = QString::fromLatin1(identifier);
        calendar.title = calendar.calendarIdentifier;
        calendar.color = Color{0.1, 0.2, 0.3, 1.0};
        calendar.type = type;
        calendar.source = {QStringLiteral("source"), QStringLiteral("Source")};
        return calendar;
    }

    /// Half an hour on the first calendar.
    StoreEvent &addMeeting(const char *identifier, Instant start) {
        StoreEvent event;
        event.eventIdentifier = QString::fromLatin1(identifier);
        event.title = event.eventIdentifier;
        event.startDate = start;
        event.endDate = start + Seconds{1800};
        event.calendar = std::make_shared<StoreCalendar>(store.storedCalendars.front());
        store.storedEvents.push_back(event);
        return store.storedEvents.back();
    }

    void remove(const char *identifier) {
        std::erase_if(store.storedCalendars, [identifier](const StoreCalendar &calendar) {
            return calendar.calendarIdentifier == QLatin1String(identifier);
        });
    }

    /// Lets the coordinator know that the calendars have changed.
    void announceChange() {
        store.changed.announce();
        queue.advance(Seconds{0.5});
    }

    /// As at a new start of the program on the same settings.
    void startAgain() {
        coordinator.reset();
        preferences = std::make_unique<PreferencesStore>(defaults);
        start();
    }

    void start() {
        coordinator = std::make_unique<AppCoordinator>(
            *preferences, access,
            AppServices{queue, defaults, workspace, screens, panels, statusBar, popups, windows,
                        updater, loginItem, notifications, [] { return fakes::calendarIn(); },
                        [this] { ++terminations; }},
            rescueLogFile());
        coordinator->start();
        queue.runDue();
    }

    QString rescueLogFile() const { return folder.filePath(QStringLiteral("rescues.json")); }

    QTemporaryDir folder;
    fakes::ManualMainQueue queue{fakes::at("2026-03-02T09:00:00")};
    fakes::FakeEventStore store{[this] { return queue.now(); }};
    fakes::InMemoryUserDefaults defaults;
    fakes::RecordingWorkspace workspace;
    fakes::FakeScreens screens;
    fakes::RecordingPanels panels;
    fakes::RecordingStatusBar statusBar;
    fakes::RecordingPopups popups;
    fakes::RecordingWindows windows;
    fakes::RecordingUpdater updater;
    fakes::FakeLoginItem loginItem;
    fakes::FakeNotificationPermission notifications;
    int terminations = 0;
    std::unique_ptr<PreferencesStore> preferences = std::make_unique<PreferencesStore>(defaults);
    CalendarAccess access{store};
    std::unique_ptr<AppCoordinator> coordinator;
};

} // namespace vantrel
