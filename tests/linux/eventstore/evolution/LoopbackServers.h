#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>

#include <memory>

namespace vantrel::tests {

/// A program that serves a folder over HTTP on a loopback port of its own until it is stopped.
class LoopbackServer {
public:
    virtual ~LoopbackServer();
    LoopbackServer(const LoopbackServer &) = delete;
    LoopbackServer &operator=(const LoopbackServer &) = delete;

    [[nodiscard]] quint16 port() const { return m_port; }

    /// Answers requests when this returns.
    void start();
    void stop();

protected:
    explicit LoopbackServer(QString folder);

    [[nodiscard]] virtual QStringList command() const = 0;

    /// Sends a request, which has to succeed, and answers nothing.
    void request(const QByteArray &method, const QByteArray &path,
                 const QByteArray &body = {}) const;

    const QString m_folder;

private:
    [[nodiscard]] QByteArray ask(const QByteArray &request) const;

    quint16 m_port;
    std::unique_ptr<QProcess> m_process;
};

/// A real CalDAV server with one calendar, /me/work/.
class CalDavServer : public LoopbackServer {
public:
    explicit CalDavServer(const QString &folder);

    /// Puts an item of those components there, as a calendar program would.
    void put(const QByteArray &name, const QByteArray &components) const;
    void remove(const QByteArray &name) const;

private:
    [[nodiscard]] QStringList command() const override;
};

/// A web server with files.
class WebServer : public LoopbackServer {
public:
    explicit WebServer(const QString &folder);

    void write(const QString &name, const QByteArray &bytes) const;
    void write(const char *name, const QByteArray &bytes) const {
        write(QLatin1String(name), bytes);
    }

private:
    [[nodiscard]] QStringList command() const override;
};

/// Wants a password, and takes none for the right one.
class RefusingServer : public LoopbackServer {
public:
    explicit RefusingServer(const QString &folder);

private:
    [[nodiscard]] QStringList command() const override;
};

/// Lets everybody connect and never says a word.
class HangingServer {
public:
    HangingServer();
    ~HangingServer();
    HangingServer(const HangingServer &) = delete;
    HangingServer &operator=(const HangingServer &) = delete;

    [[nodiscard]] quint16 port() const { return m_port; }

private:
    int m_listener;
    quint16 m_port;
};

} // namespace vantrel::tests
