#pragma once

#include <QProcess>
#include <QTemporaryDir>

namespace vantrel::tests {

/// A session bus of the tests' own, with a runtime folder, named in the environment. One for the
/// process, since the bus library reads its address once.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

private:
    QTemporaryDir m_runtime;
    QProcess m_daemon;
};

} // namespace vantrel::tests
