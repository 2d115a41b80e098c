#pragma once

#include <gio/gio.h>

#include <functional>
#include <memory>
#include <thread>

namespace vantrel {

/// A thread with a GLib main context of its own, to which all answers and signals of the calls made
/// on it come. So the main thread is never held up by a large answer, and no dispatcher of GLib's
/// is needed there.
class ServiceThread {
public:
    ServiceThread();
    ServiceThread(const ServiceThread &) = delete;
    ServiceThread &operator=(const ServiceThread &) = delete;
    ~ServiceThread();

    /// The thread keeps `kept` for as long as it runs.
    void start(std::shared_ptr<void> kept);

    /// Runs `work` on the thread, in turn. From any thread; nothing happens before `start`.
    void post(std::function<void()> work);

    /// Runs `last`, which cancels whatever is under way, waits for the answers, and ends the
    /// thread. One that is stuck is let go after a second: it does so once it can, and what it
    /// works with has to be `kept`. Harmless when it was not started.
    void stop(std::function<void()> last);

private:
    struct Loop;

    static void run(const std::shared_ptr<Loop> &loop, std::shared_ptr<void> kept);

    const std::shared_ptr<Loop> m_loop;
    std::thread m_thread;
};

} // namespace vantrel
