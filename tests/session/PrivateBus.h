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

    /// The one that this process has.
    [[nodiscard]] static PrivateBus &current();

    /// Ends it, and every connection to it.
    void stop();
    /// Starts another one at the same address.
    void start();

private:
    QTemporaryDir m_runtime;
    QString m_address;
    QProcess m_daemon;
};

} // namespace vantrel::tests
