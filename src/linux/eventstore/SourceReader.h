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

namespace vantrel {

class ReaderThreads;

/// Reads and expands what one source has, one round at a time. Main thread only; needs its event
/// loop to run.
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

    /// `threads` outlives the reader.
    SourceReader(std::unique_ptr<ComponentSource> source, QStringList addresses,
                 ReaderThreads &threads, Finished finished);
    SourceReader(const SourceReader &) = delete;
    SourceReader &operator=(const SourceReader &) = delete;

    /// Waits for nothing: the source stays for as long as a round is under way, which ends soon
    /// where the source does not stand still.
    ~SourceReader();

    /// Reads now, and from then on whenever the source changes.
    void start(const Aim &aim);

    /// Reads again. While a round is under way the next one follows it.
    void readAgain();

    /// Reads again, for another aim.
    void aimAt(const Aim &aim);

    /// Has the source answer, and reads once before it returns. Not together with `start`.
    void readNow(const Aim &aim, Seconds patience);

    /// The user's own are others from the next round on, which follows at once.
    void setAddresses(const QStringList &addresses);

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

    void take(Found found);

    const Finished m_finished;
    ReaderThreads &m_threads;
    const std::shared_ptr<Core> m_core;
    Subscription m_changes;
    Aim m_aim;
    QStringList m_addresses;
    std::optional<EventIndex::Calendars> m_calendars;
    QString m_trouble;
    bool m_isReading = false;
    bool m_isOutdated = false; ///< Something happened while reading.
};

} // namespace vantrel
