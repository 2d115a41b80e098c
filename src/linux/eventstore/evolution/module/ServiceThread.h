#pragma once

#include <gio/gio.h>

#include <functional>
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

    void start();

    /// Runs `work` on the thread, in turn. From any thread; nothing happens before `start`.
    void post(std::function<void()> work);

    /// Runs `last`, which cancels whatever is under way, waits for the answers, and ends the
    /// thread. Harmless when it was not started.
    void stop(std::function<void()> last);

private:
    void run();

    GMainContext *m_context;
    GMainLoop *m_loop;
    std::thread m_thread;
};

} // namespace vantrel
