#pragma once

#include "CalendarCatalog.h"
#include "EventIndex.h"

#include <linux/eventstore/ical/ZoneRegistry.h>
#include <linux/eventstore/source/ComponentSource.h>

#include <QStringList>
#include <QTimeZone>

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// The catalogs of all calendars of all sources. Reads and expands; used by one thread at a time.
class StoreCatalog {
public:
    /// The sources outlive the catalog.
    StoreCatalog(std::vector<ComponentSource *> sources, QStringList addresses);

    /// Brings everything in line with the sources, the window and the user's zone. Empty when no
    /// answer can have become different.
    std::optional<EventIndex::Calendars> bring(Window window, const QTimeZone &userZone);

    /// For people, in one sentence: what keeps it from showing all that there is. Empty when
    /// nothing does.
    [[nodiscard]] QString trouble() const;

    /// The user's own, from the next `bring` on.
    void setAddresses(QStringList addresses) { m_addresses = std::move(addresses); }

    /// From any thread: a `bring` under way ends soon, with whatever it has.
    void stop() { m_isStopping = true; }

private:
    struct Known {
        CalendarCatalog catalog;
        const ComponentSource *source = nullptr;
        std::shared_ptr<const CalendarOccurrences> occurrences;
    };

    std::vector<ComponentSource *> m_sources;
    QStringList m_addresses;
    ZoneRegistry m_zones;
    std::map<QString, Known> m_known; ///< By calendar identifier.
    std::vector<QString> m_order;
    std::vector<SourceKnowledge> m_knowledge;
    Window m_window;
    QTimeZone m_userZone;
    std::atomic<bool> m_isStopping = false;
};

} // namespace vantrel
