#pragma once

#include <platform/MainQueue.h>

#include <functional>
#include <memory>

namespace vantrel {

/// The threads on which calendars are read. Main thread only; needs its event loop to run.
///
/// A few rounds of work run at a time, however many sources have some: a hundred folders are no
/// reason for a hundred threads, each with a heap of its own. Rounds that go on for a second while
/// others wait are taken to stand still, on a disk that does not answer for instance, and no longer
/// count: others run in their place. Threads end by themselves without work.
class ReaderThreads {
public:
    /// `queue` outlives this.
    explicit ReaderThreads(MainQueue &queue);
    ReaderThreads(const ReaderThreads &) = delete;
    ReaderThreads &operator=(const ReaderThreads &) = delete;

    /// Drops what has not begun. Waits for what has, a second at most for all together: what does
    /// not end by then is left behind, and so is everything that its work holds.
    ~ReaderThreads();

    /// Runs `work` on a thread as soon as it is its turn, then `done` on the main thread, unless
    /// this is gone by then. What the two hold is let go of on the main thread.
    void run(std::function<void()> work, std::function<void()> done);

private:
    struct Core;

    void beginMore();
    void passOverSlow();

    MainQueue &m_queue;
    std::unique_ptr<Core> m_core;
    ScheduledWork m_patience; ///< Runs while rounds wait.
    bool m_isPatient = false;
};

} // namespace vantrel
