#include "BusActivation.h"

#include <linux/sessionbus/BusCalls.h>
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
constexpr uint isOwner = 1; ///< The bus's answer to the request of a name, and the other one.
constexpr uint isTaken = 3;

QString objectPath(const QString &busName) {
    QString path = u'/' + busName;
    return path.replace(u'.', u'/');
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
      m_object([this](ActivationRequest request) { take(request); },
               [this] { return m_report ? m_report() : QByteArray("{}"); }),
      m_bus(queue, QStringLiteral("vantrel-activation"),
            {[this](const QDBusConnection &bus) { enter(bus); }, [this] { m_search.quit(); }}) {}

void BusActivation::enter(QDBusConnection bus) {
    // Before the name is this one's: who waits for the name calls at once.
    bus.registerObject(objectPath(m_name), &m_object, QDBusConnection::ExportAdaptors);
    if (m_hasClaimed && !m_isEnding)
        claimAgain(bus);
    m_search.quit();
}

void BusActivation::findBus() {
    const ScheduledWork limit = m_queue.after(patience, [this] { m_search.quit(); });
    if (!m_bus.isKnown())
        m_search.exec(QEventLoop::ExcludeUserInputEvents);
}

BusActivation::Asked BusActivation::askRunning(ActivationRequest request) {
    findBus();
    if (!m_bus.bus())
        return Asked::isNotRunning;
    QDBusMessage question = action(m_name, request);
    question.setAutoStartService(false);
    const auto answer = ask(question);
    if (answer && answer->type() == QDBusMessage::ReplyMessage)
        return Asked::hasTaken;
    const bool hasNoOwner =
        answer && answer->errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
    return hasNoOwner || isEndOfOwner(answer) ? Asked::isNotRunning : Asked::hasRefused;
}

std::optional<QByteArray> BusActivation::askStatus() {
    findBus();
    QDBusMessage question = QDBusMessage::createMethodCall(
        m_name, objectPath(m_name), QString::fromLatin1(applicationId), QStringLiteral("Status"));
    question.setAutoStartService(false);
    const auto answer = ask(question);
    if (!answer || answer->type() != QDBusMessage::ReplyMessage)
        return std::nullopt;
    return answer->arguments().value(0).toString().toUtf8();
}

BusActivation::Claim BusActivation::claim(ActivationRequest request) {
    findBus();
    m_hasClaimed = true;
    // The one that runs may be at its end: then the name is free on the next try.
    for (int tries = 0; m_bus.bus() && tries < mostTries; ++tries) {
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
            return Claim::wasRefused;
    }
    return m_bus.bus() ? Claim::wasRefused : Claim::isFirst;
}

void BusActivation::claimAgain(const QDBusConnection &bus) {
    auto *claim = new QDBusPendingCallWatcher(bus.asyncCall(requestOfName(m_name)), &m_object);
    QObject::connect(claim, &QDBusPendingCallWatcher::finished, claim, [claim] {
        claim->deleteLater();
        // Whoever came first while there was no bus is the one that is asked. Both run: a meeting
        // shown twice is a nuisance, one that is not shown is missed.
        if (claim->reply().arguments().value(0).toUInt() != isOwner)
            qCWarning(activationLog, "Another one has the program's name on the session bus");
    });
}

std::optional<QDBusMessage> BusActivation::ask(const QDBusMessage &question) {
    if (!m_bus.bus())
        return std::nullopt;
    QDBusPendingCallWatcher watcher(m_bus.bus()->asyncCall(question));
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
    if (request == ActivationRequest::quit) {
        m_isEnding = true;
        releaseName();
    }
    // Behind the answer to the one who asks, who may wait for it while this one quits.
    m_queue.async([this, request, life = std::weak_ptr<char>(m_life)] {
        if (!life.expired())
            m_handler(request);
    });
}

void BusActivation::releaseName() {
    if (!m_bus.bus())
        return;
    QDBusMessage message = callOfBus(QStringLiteral("ReleaseName"));
    message << m_name;
    m_bus.bus()->asyncCall(message);
}

} // namespace vantrel
