#include "Display.h"

#include <stdexcept>

namespace vantrel::tests {

namespace {

constexpr int patience = 30'000; // milliseconds

} // namespace

Display::Display() {
    m_server.setProcessChannelMode(QProcess::SeparateChannels);
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("800x600x24"), QStringLiteral("-nolisten"),
                    QStringLiteral("tcp"), QStringLiteral("-noreset")});
    // It prints its number once it listens.
    while (!m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(patience))
            throw std::runtime_error("there is no Xvfb");
    }
    qputenv("DISPLAY", ":" + m_server.readLine().trimmed());
}

Display::~Display() {
    m_server.terminate();
    m_server.waitForFinished(patience);
}

} // namespace vantrel::tests
