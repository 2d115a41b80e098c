#pragma once

#include "GObjects.h"

#include <linux/eventstore/source/ComponentSource.h>

#include <QStringList>

#include <libecal/libecal.h>

#include <optional>
#include <vector>

namespace vantrel {

/// How the identifiers of these calendars begin; the source's own follows.
inline constexpr char evolutionPrefix[] = "evolution:";

struct ListedSource {
    QByteArray uid; ///< What the service calls it.
    /// Where its events come from: calendars of one place stall together.
    QString place;
    /// What keeps it from its server, for people; empty when it has got there, and absent while
    /// it has come to neither.
    std::optional<QByteArray> obstacle;
    SourceCalendar calendar;
};

struct SourceList {
    std::vector<ListedSource> calendars; ///< By identifier.
    /// Whether a calendar that is not listed was deleted. It may as well be switched off, or of an
    /// account that finds its calendars in its own time.
    bool isExhausted = false;
    /// Whether an account that is to bring calendars has not listed any yet.
    bool isAwaitingMore = false;
};

/// The sources of a kind, or all of them for null.
template <typename Take>
void forEachSource(ESourceRegistry *registry, const char *extension, Take take) {
    GList *const sources = e_source_registry_list_sources(registry, extension);
    for (GList *link = sources; link; link = link->next)
        take(static_cast<ESource *>(link->data));
    g_list_free_full(sources, g_object_unref);
}

/// The registry's calendars that are switched on, each with the account that it hangs from: the
/// topmost source above it. Forecasts of the weather are no events and stay out.
[[nodiscard]] SourceList listSources(ESourceRegistry *registry);

/// In the form that addresses are compared in: lower case, without "mailto:".
[[nodiscard]] QString plainAddress(const QByteArray &address);

} // namespace vantrel
