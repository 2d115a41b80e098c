#pragma once

#include "GObjects.h"

#include <linux/eventstore/ical/ZoneRegistry.h>

#include <QByteArray>
#include <QByteArrayList>

#include <libecal/libecal.h>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace vantrel {

/// The VTIMEZONE texts of the zones that only a calendar knows, asked for once each.
class ZoneTexts : public std::enable_shared_from_this<ZoneTexts> {
public:
    ZoneTexts(ECalClient *client, GCancellable *cancellable);

    /// Those of the names for which a text is needed: none that the system knows itself.
    [[nodiscard]] QByteArrayList unusual(const QByteArrayList &names);

    /// Calls `take` with the texts of these zones, one after another: at once if they are known.
    /// What the calendar does not know is left out.
    void get(const QByteArrayList &names, std::function<void(const QByteArray &)> take);

private:
    struct Waiting {
        QByteArrayList names;
        std::function<void(const QByteArray &)> take;
    };

    void ask(const QByteArray &name);
    void serve();

    const Reference<ECalClient> m_client;
    const Reference<GCancellable> m_cancellable;
    ZoneRegistry m_system;
    std::map<QByteArray, QByteArray> m_texts; ///< By name.
    std::map<QByteArray, bool> m_asked;
    std::vector<Waiting> m_waiting;
};

} // namespace vantrel
