#include "LoopbackServers.h"

#include "CalendarFiles.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <utility>

namespace vantrel::tests {

namespace {

constexpr int patience = 30'000; // milliseconds

sockaddr_in loopback(quint16 port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int boundSocket() {
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(0);
    EXPECT_EQ(::bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    return listener;
}

quint16 portOf(int listener) {
    sockaddr_in address = loopback(0);
    socklen_t length = sizeof address;
    ::getsockname(listener, reinterpret_cast<sockaddr *>(&address), &length);
    return ntohs(address.sin_port);
}

quint16 freePort() {
    const int listener = boundSocket();
    const quint16 port = portOf(listener);
    ::close(listener);
    return port;
}

} // namespace

LoopbackServer::LoopbackServer(QString folder) : m_folder(std::move(folder)), m_port(freePort()) {
    QDir().mkpath(m_folder);
}

LoopbackServer::~LoopbackServer() {
    stop();
}

void LoopbackServer::start() {
    m_process = std::make_unique<QProcess>();
    m_process->setStandardErrorFile(m_folder + QStringLiteral(".log"));
    QStringList arguments = command();
    const QString program = arguments.takeFirst();
    m_process->start(program, arguments);
    ASSERT_TRUE(m_process->waitForStarted(patience)) << qPrintable(m_process->errorString());
    const QDeadlineTimer deadline(patience);
    while (ask("GET / HTTP/1.0\r\n\r\n").isEmpty())
        ASSERT_FALSE(deadline.hasExpired()) << "the server does not answer";
}

void LoopbackServer::stop() {
    if (!m_process)
        return;
    m_process->terminate();
    if (!m_process->waitForFinished(patience))
        m_process->kill();
    m_process.reset();
}

void LoopbackServer::request(const QByteArray &method, const QByteArray &path,
                             const QByteArray &body) const {
    const QByteArray answer =
        ask(method + ' ' + path + " HTTP/1.0\r\nContent-Type: text/calendar\r\nContent-Length: " +
            QByteArray::number(body.size()) + "\r\n\r\n" + body);
    ASSERT_TRUE(answer.mid(9, 1) == "2") << answer.constData();
}

QByteArray LoopbackServer::ask(const QByteArray &request) const {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(m_port);
    QByteArray answer;
    if (::connect(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 &&
        ::send(socket, request.constData(), static_cast<std::size_t>(request.size()),
               MSG_NOSIGNAL) == request.size()) {
        char buffer[4096];
        for (auto length = ::recv(socket, buffer, sizeof buffer, 0); length > 0;
             length = ::recv(socket, buffer, sizeof buffer, 0))
            answer.append(buffer, length);
    }
    ::close(socket);
    return answer;
}

CalDavServer::CalDavServer(const QString &folder) : LoopbackServer(folder) {
    QFile configuration(m_folder + QStringLiteral(".conf"));
    EXPECT_TRUE(configuration.open(QIODevice::WriteOnly));
    configuration.write("[server]\nhosts = 127.0.0.1:" + QByteArray::number(port()) +
                        "\n[auth]\ntype = none\n[rights]\ntype = owner_only\n"
                        "[storage]\nfilesystem_folder = " +
                        QFile::encodeName(m_folder) + "\n");
    configuration.close();
    start();
    // The owner first, or nobody owns what lies below.
    request("MKCOL", "/me/");
    request("MKCALENDAR", "/me/work/");
}

QStringList CalDavServer::command() const {
    return {QStringLiteral("/usr/bin/python3"), QStringLiteral("-m"), QStringLiteral("radicale"),
            QStringLiteral("--config"), m_folder + QStringLiteral(".conf")};
}

void CalDavServer::put(const QByteArray &name, const QByteArray &components) const {
    QByteArray text = calendarText(components);
    text.replace("\r\n", "\n").replace("\n", "\r\n");
    request("PUT", "/me/work/" + name + ".ics", text);
}

void CalDavServer::remove(const QByteArray &name) const {
    request("DELETE", "/me/work/" + name + ".ics");
}

WebServer::WebServer(const QString &folder) : LoopbackServer(folder) {
    start();
}

QStringList WebServer::command() const {
    return {QStringLiteral("/usr/bin/python3"),
            QStringLiteral("-m"),
            QStringLiteral("http.server"),
            QStringLiteral("--bind"),
            QStringLiteral("127.0.0.1"),
            QStringLiteral("--directory"),
            m_folder,
            QString::number(port())};
}

void WebServer::write(const QString &name, const QByteArray &bytes) const {
    QFile file(m_folder + u'/' + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

RefusingServer::RefusingServer(const QString &folder) : LoopbackServer(folder) {
    start();
}

QStringList RefusingServer::command() const {
    const auto program = QStringLiteral(R"(
import http.server, sys
class Refusal(http.server.BaseHTTPRequestHandler):
    def __getattr__(self, name):
        if not name.startswith('do_'):
            raise AttributeError(name)
        return self.refuse
    def refuse(self):
        self.rfile.read(int(self.headers.get('Content-Length') or 0))
        self.send_response(401)
        self.send_header('WWW-Authenticate', 'Basic realm="Office"')
        self.send_header('Content-Length', '0')
        self.end_headers()
http.server.ThreadingHTTPServer(('127.0.0.1', int(sys.argv[1])), Refusal).serve_forever()
)");
    return {QStringLiteral("/usr/bin/python3"), QStringLiteral("-c"), program,
            QString::number(port())};
}

HangingServer::HangingServer() : m_listener(boundSocket()), m_port(portOf(m_listener)) {
    // The kernel answers for who does not accept.
    EXPECT_EQ(::listen(m_listener, SOMAXCONN), 0);
}

HangingServer::~HangingServer() {
    ::close(m_listener);
}

} // namespace vantrel::tests
