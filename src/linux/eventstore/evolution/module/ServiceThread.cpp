#include "ServiceThread.h"

#include "Async.h"
#include "ContextTimer.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace vantrel {

namespace {

/// A service that does not even answer a cancelled call is not waited for.
constexpr Seconds patienceForAnswers{0.5};
constexpr Seconds patienceForThread{1.0};

gboolean runPosted(gpointer data) {
    (*static_cast<std::function<void()> *>(data))();
    return G_SOURCE_REMOVE;
}

void dropPosted(gpointer data) {
    delete static_cast<std::function<void()> *>(data);
}

} // namespace

struct ServiceThread::Loop {
    GMainContext *const context = g_main_context_new();
    GMainLoop *const loop = g_main_loop_new(context, FALSE);
    std::mutex mutex; ///< Guards what follows.
    std::condition_variable hasEnded;
    bool isOver = false;

    Loop() = default;
    Loop(const Loop &) = delete;
    Loop &operator=(const Loop &) = delete;
    ~Loop() {
        g_main_loop_unref(loop);
        g_main_context_unref(context);
    }
};

ServiceThread::ServiceThread() : m_loop(std::make_shared<Loop>()) {}

ServiceThread::~ServiceThread() {
    stop([] {});
}

void ServiceThread::start(std::shared_ptr<void> kept) {
    m_thread = std::thread(
        [loop = m_loop, kept = std::move(kept)]() mutable { run(loop, std::move(kept)); });
}

void ServiceThread::post(std::function<void()> work) {
    GSource *source = g_idle_source_new();
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    g_source_set_callback(source, runPosted,
                          std::make_unique<std::function<void()>>(std::move(work)).release(),
                          dropPosted);
    g_source_attach(source, m_loop->context);
    g_source_unref(source);
}

void ServiceThread::stop(std::function<void()> last) {
    if (!m_thread.joinable())
        return;
    // It may run long after this object has gone.
    post([loop = m_loop->loop, last = std::move(last)] {
        last();
        g_main_loop_quit(loop);
    });
    std::unique_lock lock(m_loop->mutex);
    if (m_loop->hasEnded.wait_for(lock, patienceForThread, [this] { return m_loop->isOver; })) {
        lock.unlock();
        m_thread.join();
    } else {
        m_thread.detach();
    }
}

void ServiceThread::run(const std::shared_ptr<Loop> &loop, std::shared_ptr<void> kept) {
    g_main_context_push_thread_default(loop->context);
    g_main_loop_run(loop->loop);
    bool isOver = false;
    ContextTimer limit;
    limit.startFor(patienceForAnswers, [&isOver] { isOver = true; });
    while (Async::outstanding() > 0 && !isOver)
        g_main_context_iteration(loop->context, TRUE);
    limit.stop();
    // What was subscribed to is freed in turn.
    while (!isOver && g_main_context_iteration(loop->context, FALSE))
        ;
    g_main_context_pop_thread_default(loop->context);
    kept.reset();
    const std::lock_guard lock(loop->mutex);
    loop->isOver = true;
    loop->hasEnded.notify_all();
}

} // namespace vantrel
