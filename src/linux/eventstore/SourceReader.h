#pragma once

#include "EventIndex.h"

#include <linux/eventstore/ical/Window.h>
#include <linux/eventstore/source/ComponentSource.h>

#include <QString>
#include <QStringList>
#include <QTimeZone>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

class StoreCatalog;

/// Reads and expands what one source has, on a thread of its own: a source that stands still, on a
/// disk that does not answer for instance, keeps no other one waiting. Main thread only; needs its
/// event loop to run.
class SourceReader {
public:
    /// What the answers are for.
    struct Aim {
        Window window;
        QTimeZone zone;
        bool operator==(const Aim &) const = default;
    };

    /// Called when a round of reading is over, and told whether answers may have become different.
    using Finished = std::function<void(bool isDifferent)>;

    SourceReader(std::unique_ptr<ComponentSource> source, const QStringList &addresses,
                 Finished finished);
    SourceReader(const SourceReader &) = delete;
    SourceReader &operator=(const SourceReader &) = delete;

    /// Waits for a round under way, which ends soon; one that does not is left behind with its
    /// thread and its source.
    ~SourceReader();

    /// Reads now, and from then on whenever the source changes.
    void start(const Aim &aim);

    /// Reads again. While a round is under way the next one follows it.
    void aimAt(const Aim &aim);

    /// Has the source answer, and reads once before it returns. Not together with `start`.
    void readNow(const Aim &aim, Seconds patience);

    /// Runs on the reader's thread ahead of the next round, which follows at once.
    void change(std::function<void(ComponentSource &, StoreCatalog &)> work);

    /// Whether a round has been finished.
    [[nodiscard]] bool hasRead() const { return m_calendars.has_value(); }

    /// What the last round found; nothing before the first.
    [[nodiscard]] EventIndex::Calendars calendars() const;

    /// What kept the source from showing all that it should, for people; empty when nothing did.
    [[nodiscard]] const QString &trouble() const { return m_trouble; }

private:
    struct Core;

    struct Found {
        std::optional<EventIndex::Calendars> calendars; ///< Empty where they stay.
        QString trouble;
    };

    void read();
    void take(Found found);

    const Finished m_finished;
    std::unique_ptr<Core> m_core;
    Subscription m_changes;
    Aim m_aim;
    std::vector<std::function<void(ComponentSource &, StoreCatalog &)>> m_work;
    std::optional<EventIndex::Calendars> m_calendars;
    QString m_trouble;
    bool m_isReading = false;
    bool m_isOutdated = false; ///< Something happened while reading.
};

} // namespace vantrel
