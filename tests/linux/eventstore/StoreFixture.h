#pragma once

#include "CalendarFiles.h"
#include "CapturedLog.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/LocalEventStore.h>
#include <linux/eventstore/StoreAccess.h>

#include <memory>
#include <string>
#include <vector>

namespace vantrel::tests {

/// A scratch place for calendars, and a store on it that stands at 2026-03-02 08:00 in Zurich.
class StoreFixture : public ::testing::Test {
protected:
    std::unique_ptr<LocalEventStore> store(const QStringList &names) {
        StoreConfiguration configuration;
        configuration.addresses = {QStringLiteral("me@example.com")};
        for (const QString &name : names)
            configuration.roots.push_back({files.path(name), {}, false});
        return std::make_unique<LocalEventStore>(
            queue, configuration, [this] { return fakes::calendarIn(zone); },
            StoreAccess::granted());
    }

    std::unique_ptr<LocalEventStore> load(const QStringList &names) {
        auto loaded = store(names);
        loaded->loadNow();
        return loaded;
    }

    static std::vector<QString> identifiers(const EventStore &store) {
        std::vector<QString> identifiers;
        for (const StoreCalendar &calendar : store.calendars())
            identifiers.push_back(calendar.calendarIdentifier);
        return identifiers;
    }

    /// Two weeks from the fixture's day on.
    std::vector<StoreEvent> events(const EventStore &store) const {
        return store.events(fakes::at("2026-03-02T00:00:00", zone),
                            fakes::at("2026-03-16T00:00:00", zone), identifiers(store));
    }

    std::vector<std::string> titles(const EventStore &store) const {
        std::vector<std::string> titles;
        for (const StoreEvent &event : events(store))
            titles.push_back(event.title.value_or(QStringLiteral("-")).toStdString());
        return titles;
    }

    const char *zone = "Europe/Zurich";
    CapturedLog log;
    CalendarFiles files;
    fakes::ManualMainQueue queue{fakes::at("2026-03-02T08:00:00", "Europe/Zurich")};
};

/// A sound event of that title, at noon of the fixture's day.
inline QByteArray noonEvent(const QByteArray &title) {
    return event("uid-" + title,
                 "DTSTART:20260302T110000Z\nDTEND:20260302T120000Z\nSUMMARY:" + title + "\n");
}

} // namespace vantrel::tests
