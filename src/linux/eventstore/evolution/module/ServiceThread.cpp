#include "ServiceThread.h"

#include "Async.h"
#include "ContextTimer.h"

#include <memory>
#include <utility>

namespace vantrel {

namespace {

/// A service that does not even answer a cancelled call is not waited for.
constexpr Seconds patienceAtEnd{3.0};

gboolean runPosted(gpointer data) {
    (*static_cast<std::function<void()> *>(data))();
    return G_SOURCE_REMOVE;
}

void dropPosted(gpointer data) {
    delete static_cast<std::function<void()> *>(data);
}

} // namespace

ServiceThread::ServiceThread()
    : m_context(g_main_context_new()), m_loop(g_main_loop_new(m_context, FALSE)) {}

ServiceThread::~ServiceThread() {
    g_main_loop_unref(m_loop);
    g_main_context_unref(m_context);
}

void ServiceThread::start() {
    m_thread = std::thread([this] { run(); });
}

void ServiceThread::post(std::function<void()> work) {
    GSource *source = g_idle_source_new();
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    g_source_set_callback(source, runPosted,
                          std::make_unique<std::function<void()>>(std::move(work)).release(),
                          dropPosted);
    g_source_attach(source, m_context);
    g_source_unref(source);
}

void ServiceThread::stop(std::function<void()> last) {
    if (!m_thread.joinable())
        return;
    post([this, last = std::move(last)] {
        last();
        g_main_loop_quit(m_loop);
    });
    m_thread.join();
}

void ServiceThread::run() {
    g_main_context_push_thread_default(m_context);
    g_main_loop_run(m_loop);
    bool isOver = false;
    ContextTimer limit;
    limit.startFor(patienceAtEnd, [&isOver] { isOver = true; });
    while (Async::outstanding() > 0 && !isOver)
        g_main_context_iteration(m_context, TRUE);
    limit.stop();
    g_main_context_pop_thread_default(m_context);
}

} // namespace vantrel
