#include "ContextTimer.h"

#include <cmath>
#include <utility>

namespace vantrel {

void ContextTimer::startFor(Seconds delay, std::function<void()> work) {
    stop();
    m_work = std::move(work);
    m_source = g_timeout_source_new(static_cast<guint>(std::ceil(delay.count() * 1000)));
    g_source_set_callback(m_source, fire, this, nullptr);
    g_source_attach(m_source, g_main_context_get_thread_default());
}

void ContextTimer::stop() {
    if (!m_source)
        return;
    g_source_destroy(m_source);
    g_source_unref(m_source);
    m_source = nullptr;
}

Seconds ContextTimer::uptime() {
    return std::chrono::microseconds(g_get_monotonic_time());
}

gboolean ContextTimer::fire(gpointer data) {
    auto *timer = static_cast<ContextTimer *>(data);
    const auto work = std::move(timer->m_work);
    timer->stop();
    work(); // Which may well be the end of the timer.
    return G_SOURCE_REMOVE;
}

} // namespace vantrel
