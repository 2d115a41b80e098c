#include "PrivateBus.h"

#include <stdexcept>

namespace vantrel::tests {

namespace {

constexpr int patience = 30'000; // milliseconds

PrivateBus *theBus = nullptr;

} // namespace

PrivateBus::PrivateBus()
    : m_address(QStringLiteral("unix:path=") + m_runtime.filePath(QStringLiteral("test-bus"))) {
    qputenv("XDG_RUNTIME_DIR", m_runtime.path().toLocal8Bit());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_address.toLocal8Bit());
    start();
    theBus = this;
}

PrivateBus &PrivateBus::current() {
    return *theBus;
}

void PrivateBus::start() {
    m_daemon.setProcessChannelMode(QProcess::SeparateChannels);
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"),
                    QStringLiteral("--print-address"), QStringLiteral("--address=") + m_address});
    // It prints the address once it listens.
    if (!m_daemon.waitForReadyRead(patience))
        throw std::runtime_error("there is no dbus-daemon");
}

PrivateBus::~PrivateBus() {
    theBus = nullptr;
    stop();
}

void PrivateBus::stop() {
    m_daemon.terminate();
    m_daemon.waitForFinished(patience);
}

} // namespace vantrel::tests
