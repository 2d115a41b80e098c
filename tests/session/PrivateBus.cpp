#include "PrivateBus.h"

#include <stdexcept>

namespace vantrel::tests {

namespace {

constexpr int patience = 30'000; // milliseconds

} // namespace

PrivateBus::PrivateBus() {
    const QString address =
        QStringLiteral("unix:path=") + m_runtime.filePath(QStringLiteral("test-bus"));
    qputenv("XDG_RUNTIME_DIR", m_runtime.path().toLocal8Bit());
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toLocal8Bit());
    m_daemon.setProcessChannelMode(QProcess::SeparateChannels);
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"),
                    QStringLiteral("--print-address"), QStringLiteral("--address=") + address});
    // It prints the address once it listens.
    if (!m_daemon.waitForReadyRead(patience))
        throw std::runtime_error("there is no dbus-daemon");
}

PrivateBus::~PrivateBus() {
    m_daemon.terminate();
    m_daemon.waitForFinished(patience);
}

} // namespace vantrel::tests
