#include "TerminationSignals.h"

#include <platform/Log.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>

namespace vantrel {

namespace {

VANTREL_LOG(terminationLog, "Termination")

constexpr int kinds[] = {SIGTERM, SIGINT, SIGHUP};

/// Where the handler writes. A handler can be given nothing of its own.
volatile std::sig_atomic_t writingEnd = -1;

extern "C" void vantrelTakeSignal(int signal) {
    const int error = errno;
    const auto kind = static_cast<char>(signal);
    // A full pipe holds news enough.
    [[maybe_unused]] const auto written = ::write(writingEnd, &kind, 1);
    errno = error;
}

/// SIGHUP is ignored in what `nohup` started, and SIGINT in what a shell put in the background.
bool isIgnored(int kind) {
    struct sigaction action {};
    return ::sigaction(kind, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> told) : m_told(std::move(told)) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        qCWarning(terminationLog, "Signals end the program at once: there is no pipe for them");
        return;
    }
    m_reading = ends[0];
    writingEnd = ends[1];
    m_notifier.emplace(m_reading, QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, &*m_notifier, [this] { take(); });
    struct sigaction action {};
    action.sa_handler = vantrelTakeSignal;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int kind : kinds) {
        if (!isIgnored(kind))
            ::sigaction(kind, &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals() {
    if (m_reading < 0)
        return;
    for (const int kind : kinds) {
        if (!isIgnored(kind))
            std::signal(kind, SIG_DFL);
    }
    m_notifier.reset();
    ::close(m_reading);
    ::close(std::exchange(writingEnd, -1));
}

void TerminationSignals::take() {
    char kind = 0;
    while (::read(m_reading, &kind, 1) == 1)
        qCInfo(terminationLog, "Ends on signal %d", int{kind});
    m_told();
}

} // namespace vantrel
