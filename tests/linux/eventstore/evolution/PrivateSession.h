#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace vantrel::tests {

/// A session bus, a home and the services that they start, for one test. The bus gives its own
/// environment to the services, so that none of them sees the user's. They end with the bus.
class PrivateSession {
public:
    PrivateSession();
    ~PrivateSession();
    PrivateSession(const PrivateSession &) = delete;
    PrivateSession &operator=(const PrivateSession &) = delete;

    void startBus();
    void endBus();

    [[nodiscard]] QString path(const QString &name) const { return m_home.filePath(name); }

    /// Describes an account or a calendar to the registry, which is not to run yet.
    void writeSource(const QString &uid, const QByteArray &keys) const;

    /// Has another process change something; fails when it could not.
    void write(const QStringList &arguments) const;

    /// A calendar text for `write`.
    [[nodiscard]] QString file(const QByteArray &text) const;

    /// What runs under a name of the bus, or any program of that name below the bus; 0 for none.
    [[nodiscard]] qint64 processOf(const QString &program) const;

private:
    QTemporaryDir m_home;
    std::unique_ptr<QProcess> m_bus;
    mutable int m_files = 0;
};

} // namespace vantrel::tests
