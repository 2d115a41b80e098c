#pragma once

#include <calendar/UpcomingEventsQuery.h>
#include <fakes/FakeEventStore.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <preferences/PreferencesStore.h>

#include <memory>

namespace vantrel {

/// One selected calendar, "work", that holds what a test puts in, on a Monday at nine.
struct MenuBarCalendar {
    MenuBarCalendar() {
        work->calendarIdentifier = QStringLiteral("work");
        work->color = Color{0.1, 0.2, 0.3, 1.0};
        store.storedCalendars = {*work};
        preferences.setSelectedCalendarIDs({work->calendarIdentifier});
    }

    /// Half an hour of it.
    StoreEvent &add(const QString &title, Instant start) {
        StoreEvent event;
        event.eventIdentifier = title;
        event.title = title;
        event.startDate = start;
        event.endDate = start + Seconds{1800.0};
        event.calendar = work;
        store.storedEvents.push_back(event);
        return store.storedEvents.back();
    }

    std::shared_ptr<StoreCalendar> work = std::make_shared<StoreCalendar>();
    fakes::ManualMainQueue queue{fakes::at("2026-03-02T09:00:00")};
    fakes::FakeEventStore store{[this] { return queue.now(); }};
    fakes::InMemoryUserDefaults defaults;
    PreferencesStore preferences{defaults};
    UpcomingEventsQuery query{store};
};

} // namespace vantrel
