#include "SessionBusProbe.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QDBusConnection>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <optional>

namespace vantrel {

namespace {

constexpr char addressVariable[] = "DBUS_SESSION_BUS_ADDRESS";

QByteArray addressOfBus() {
    const QByteArray addresses = qgetenv(addressVariable);
    return addresses.isEmpty() ? "unix:path=" + qgetenv("XDG_RUNTIME_DIR") + "/bus" : addresses;
}

/// Empty for anything but a socket of this machine.
std::optional<sockaddr_un> socketOf(const QByteArray &address) {
    const QByteArray transport = "unix:";
    if (!address.startsWith(transport))
        return std::nullopt;
    for (const QByteArray &pair : address.mid(transport.size()).split(',')) {
        const bool isAbstract = pair.startsWith("abstract=");
        if (!isAbstract && !pair.startsWith("path="))
            continue;
        const QByteArray name = (isAbstract ? QByteArray(1, '\0') : QByteArray()) +
                                QByteArray::fromPercentEncoding(pair.mid(pair.indexOf('=') + 1));
        sockaddr_un place{};
        place.sun_family = AF_UNIX;
        if (static_cast<std::size_t>(name.size()) >= sizeof place.sun_path)
            return std::nullopt;
        std::memcpy(place.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
        return place;
    }
    return std::nullopt;
}

socklen_t lengthOf(const sockaddr_un &place) {
    const bool isAbstract = place.sun_path[0] == '\0';
    const std::size_t name =
        isAbstract ? 1 + std::strlen(place.sun_path + 1) : std::strlen(place.sun_path) + 1;
    return static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name);
}

class Connection {
public:
    explicit Connection(Seconds patience)
        : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)),
          m_patience(patience) {}
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    ~Connection() { ::close(m_socket); }

    /// EAGAIN where those who were accepted before leave no room.
    [[nodiscard]] int connect(const sockaddr_un &place) const {
        return ::connect(m_socket, reinterpret_cast<const sockaddr *>(&place), lengthOf(place)) == 0
                   ? 0
                   : errno;
    }

    /// What comes back, or that the other side has hung up: either is an answer.
    [[nodiscard]] bool isAnswered(const QByteArray &text) const {
        const auto size = static_cast<std::size_t>(text.size());
        if (::send(m_socket, text.constData(), size, MSG_NOSIGNAL) != text.size())
            return errno != EAGAIN;
        pollfd wait{m_socket, POLLIN, 0};
        constexpr double nanosecondsOfSecond = 1e9;
        const double whole = std::floor(m_patience.count());
        const timespec limit{static_cast<std::time_t>(whole),
                             static_cast<long>(nanosecondsOfSecond * (m_patience.count() - whole))};
        sigset_t all; // A signal would end the waiting, and look like an answer.
        ::sigfillset(&all);
        if (::ppoll(&wait, 1, &limit, &all) == 0)
            return false;
        char answer[512];
        (void)::recv(m_socket, answer, sizeof answer, 0);
        return true;
    }

private:
    const int m_socket;
    const Seconds m_patience;
};

/// How a program introduces itself (D-Bus specification, "Authentication Protocol").
QByteArray authentication() {
    return QByteArray(1, '\0') + "AUTH EXTERNAL " + QByteArray::number(::getuid()).toHex() + "\r\n";
}

/// The first call of all, which the bus itself answers (the same, "Message Format").
QByteArray hello() {
    const auto number = [](qsizetype value) {
        QByteArray bytes(4, '\0');
        for (int index = 0; index < 4; ++index)
            bytes[index] = static_cast<char>(value >> (8 * index) & 0xff);
        return bytes;
    };
    QByteArray fields;
    const auto add = [&](char code, char type, const QByteArray &text) {
        fields.append(QByteArray((8 - fields.size() % 8) % 8, '\0'));
        fields.append(code).append('\1').append(type).append('\0');
        fields.append(number(text.size())).append(text).append('\0');
    };
    add('\1', 'o', "/org/freedesktop/DBus");
    add('\2', 's', "org.freedesktop.DBus");
    add('\3', 's', "Hello");
    add('\6', 's', "org.freedesktop.DBus");
    const QByteArray head = QByteArray("l\1\0\1", 4) + number(0) + number(1);
    const QByteArray message = head + number(fields.size()) + fields;
    return message + QByteArray((8 - message.size() % 8) % 8, '\0');
}

} // namespace

bool hasSessionBus() {
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    return !qgetenv(addressVariable).isEmpty() ||
           (!runtime.isEmpty() && ::access((runtime + "/bus").constData(), F_OK) == 0);
}

bool isSessionBusAnswering(Seconds patience) {
    const auto place = socketOf(addressOfBus().split(';').first());
    if (!place)
        return true;
    const Connection connection(0.5 * patience);
    switch (connection.connect(*place)) {
    case 0:
        return connection.isAnswered(authentication()) &&
               connection.isAnswered("BEGIN\r\n" + hello());
    case EAGAIN:
        return false;
    default:
        return true; // There is none, which everybody notices at once.
    }
}

QString sessionBusAddress() {
    return QString::fromLocal8Bit(addressOfBus());
}

HiddenSessionBus::HiddenSessionBus() : m_address(addressOfBus()) {
    qputenv(addressVariable, "unix:path=/dev/null");
    // The bus library reads the address once and Qt keeps the connection, so nothing that asks Qt
    // for the session bus afterwards, its accessibility for one, waits for it either.
    (void)QDBusConnection::sessionBus();
}

HiddenSessionBus::~HiddenSessionBus() {
    qputenv(addressVariable, m_address);
}

} // namespace vantrel
