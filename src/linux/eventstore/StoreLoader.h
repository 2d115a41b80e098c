#pragma once

#include "ClockWatch.h"
#include "ConfigurationWatch.h"
#include "EventIndex.h"
#include "FolderReaders.h"
#include "SourceReader.h"
#include "StoreConfiguration.h"
#include "WakeWatch.h"

#include <linux/eventstore/files/MountWatch.h>
#include <linux/eventstore/ical/Window.h>
#include <linux/eventstore/source/ComponentSource.h>
#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

class ReaderThreads;

/// Keeps answers in line with the sources, the configuration and the clock: has each source read
/// and expanded whenever it changes, the window has to move on, or the clock or the zone is set.
/// Main thread only; needs its event loop to run.
class StoreLoader {
public:
    /// Called with the answers that take the place of all earlier ones; without a value when
    /// they stay, but what is asked may depend on the clock, which was set.
    using Take = std::function<void(std::optional<EventIndex::Calendars>)>;

    /// `queue` and `threads` outlive the loader. Without a `makeSource` folders are read from the
    /// disk.
    StoreLoader(MainQueue &queue, ReaderThreads &threads, StoreConfiguration configuration,
                CurrentCalendar currentCalendar, Take take,
                FolderReaders::MakeSource makeSource = nullptr);

    /// From here on `take` is called, whenever a source was heard.
    void start();

    /// Calls `take` once, before it returns.
    void loadNow();

    /// Whether every source has been heard.
    [[nodiscard]] bool isLoaded() const;

    /// What the sources cannot show, for people: a sentence each.
    [[nodiscard]] QStringList troubles() const;

    /// Has the window move on soon if a question about that stretch of time shows that it must.
    void noteQuestion(Instant from, Instant to);

private:
    [[nodiscard]] std::vector<SourceReader *> readers() const;
    [[nodiscard]] EventIndex::Calendars everything() const;
    void note(bool isDifferent);
    [[nodiscard]] SourceReader::Aim aimNow() const;
    [[nodiscard]] Window windowNow() const;
    void armForMidnight();
    void noteClock();
    void noteConfiguration();
    void noteMounts();
    void rollWhenDue();

    MainQueue &m_queue;
    StoreConfiguration m_configuration;
    const CurrentCalendar m_currentCalendar;
    const Take m_take;

    SourceReader::Aim m_aim; ///< What was read last for, or is being read.
    ScheduledWork m_rolling;
    ScheduledWork m_midnight;
    ScheduledWork m_askedRoll;
    ScheduledWork m_mountRound;
    bool m_isMountRoundDue = false;

    std::unique_ptr<ClockWatch> m_clockWatch;
    std::unique_ptr<WakeWatch> m_wakeWatch;
    std::unique_ptr<MountWatch> m_mountWatch;
    std::unique_ptr<ConfigurationWatch> m_configurationWatch;
    FolderReaders m_folders;
    std::unique_ptr<SourceReader> m_accounts; ///< Null where they are left alone.
};

} // namespace vantrel
