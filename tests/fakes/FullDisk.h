#pragma once

#include <sys/resource.h>

#include <csignal>

namespace vantrel::fakes {

/// For as long as it lives, no file of this process can grow beyond `bytes`: writing further fails
/// as it does on a disk that is full. One at a time.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        m_previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_previousLimit);
        rlimit limit = m_previousLimit;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_previousLimit);
        std::signal(SIGXFSZ, m_previousHandler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_previousLimit{};
    void (*m_previousHandler)(int) = nullptr;
};

} // namespace vantrel::fakes
