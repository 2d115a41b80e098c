#include "BusActivation.h"

#include <platform/Log.h>

#include <QCryptographicHash>
#include <QDBusError>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QFileInfo>

#include <utility>

namespace vantrel {

namespace {

VANTREL_LOG(activationLog, "Activation")

constexpr Seconds patience{5.0}; ///< With a bus, or another one, that does not answer.
constexpr int mostTries = 20;
constexpr char connectionName[] = "vantrel-activation";

QString objectPath(const QString &busName) {
    QString path = u'/' + busName;
    return path.replace(u'.', u'/');
}

/// Asked first, since the bus library would otherwise start a bus of its own by way of the display.
bool hasSessionBus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

QDBusMessage callOfBus(const QString &member) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), member);
}

QDBusMessage requestOfName(const QString &name) {
    constexpr uint doNotQueue = 4;
    QDBusMessage message = callOfBus(QStringLiteral("RequestName"));
    message << name << doNotQueue;
    return message;
}

/// Whether nobody has answered because the one with the name has ended meanwhile.
bool isEndOfOwner(const std::optional<QDBusMessage> &answer) {
    if (!answer || answer->type() != QDBusMessage::ErrorMessage)
        return false;
    const QDBusError::ErrorType type = QDBusError(*answer).type();
    return type == QDBusError::NoReply || type == QDBusError::ServiceUnknown;
}

QDBusMessage action(const QString &name, ActivationRequest request) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        name, objectPath(name), QStringLiteral("org.freedesktop.Application"),
        QStringLiteral("ActivateAction"));
    message << activationName(request) << QVariantList() << QVariantMap();
    return message;
}

} // namespace

QString BusActivation::busName(const std::optional<QString> &profile) {
    const QString own = QString::fromLatin1(applicationId);
    if (!profile)
        return own;
    const QFileInfo folder(*profile);
    const QString path = folder.exists() ? folder.canonicalFilePath() : folder.absoluteFilePath();
    // The parts of a name begin with no digit and hold few characters.
    return own + QStringLiteral(".Profile") +
           QString::fromLatin1(QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256)
                                   .toHex()
                                   .left(16));
}

BusActivation::BusActivation(MainQueue &queue, const std::optional<QString> &profile)
    : m_queue(queue),
      m_name(busName(profile)),
      m_object([this](ActivationRequest request) { take(request); }) {
    if (!hasSessionBus()) {
        qCInfo(activationLog, "There is no session bus, so nobody can ask for the popover on it");
        return;
    }
    QDBusConnection bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QLatin1String(connectionName));
    if (!bus.isConnected()) {
        qCWarning(activationLog).noquote()
            << "The session bus cannot be had, so nobody can ask for the popover on it:"
            << bus.lastError().message();
        return;
    }
    // Before the name is this one's: who waits for the name calls at once.
    bus.registerObject(objectPath(m_name), &m_object, QDBusConnection::ExportAdaptors);
    m_bus = bus;
}

BusActivation::~BusActivation() {
    m_bus.reset();
    QDBusConnection::disconnectFromBus(QLatin1String(connectionName));
}

BusActivation::Claim BusActivation::claim(ActivationRequest request) {
    constexpr uint isOwner = 1;
    constexpr uint isTaken = 3;
    if (!m_bus)
        return Claim::isFirst;
    // The one that runs may be at its end: then the name is free on the next try.
    for (int tries = 0; tries < mostTries; ++tries) {
        const auto answer = ask(requestOfName(m_name));
        const uint outcome = answer ? answer->arguments().value(0).toUInt() : 0;
        if (outcome != isTaken) {
            if (outcome != isOwner)
                qCWarning(activationLog, "The session bus gives no name");
            return Claim::isFirst;
        }
        const auto taken = ask(action(m_name, request));
        if (taken && taken->type() == QDBusMessage::ReplyMessage)
            return Claim::wasHandedOn;
        if (!isEndOfOwner(taken))
            break;
    }
    return Claim::wasRefused;
}

std::optional<QDBusMessage> BusActivation::ask(const QDBusMessage &question) {
    QDBusPendingCallWatcher watcher(m_bus->asyncCall(question));
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    const ScheduledWork limit = m_queue.after(patience, [&loop] { loop.quit(); });
    if (!watcher.isFinished())
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return watcher.isFinished() ? std::optional(watcher.reply()) : std::nullopt;
}

void BusActivation::follow(std::function<void(ActivationRequest)> handler) {
    m_handler = std::move(handler);
    for (const ActivationRequest request : std::exchange(m_waiting, {}))
        take(request);
}

void BusActivation::take(ActivationRequest request) {
    if (!m_handler) {
        m_waiting.push_back(request);
        return;
    }
    // Whoever starts from here on is to run, and not to be answered by one that ends.
    if (request == ActivationRequest::quit)
        releaseName();
    // Behind the answer to the one who asks, who may wait for it while this one quits.
    m_queue.async([this, request, life = std::weak_ptr<char>(m_life)] {
        if (!life.expired())
            m_handler(request);
    });
}

void BusActivation::releaseName() {
    QDBusMessage message = callOfBus(QStringLiteral("ReleaseName"));
    message << m_name;
    m_bus->asyncCall(message);
}

} // namespace vantrel
