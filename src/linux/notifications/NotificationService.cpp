#include "NotificationService.h"

#include <linux/sessionbus/BusCalls.h>

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr Seconds patience{2.0}; ///< The user waits for it.

} // namespace

struct NotificationService::Question {
    QDBusMessage message;
    Answered answered;
    ScheduledWork limit;
    std::unique_ptr<QDBusPendingCallWatcher> call; ///< Once it was sent.
};

NotificationService::NotificationService(MainQueue &queue, QString serviceName)
    : m_queue(queue), m_serviceName(std::move(serviceName)) {}

void NotificationService::readStatus(std::function<void(Status)> completion) {
    QDBusMessage isRunning = callOfBus(QStringLiteral("NameHasOwner"));
    isRunning << m_serviceName;
    ask(isRunning, [this, completion](const std::optional<QDBusMessage> &running) {
        if (!running)
            return completion(Status::notDetermined);
        if (running->arguments().value(0).toBool())
            return completion(Status::authorized);
        ask(callOfBus(QStringLiteral("ListActivatableNames")),
            [this, completion](const std::optional<QDBusMessage> &startable) {
                if (!startable)
                    return completion(Status::notDetermined);
                const QStringList names = startable->arguments().value(0).toStringList();
                completion(names.contains(m_serviceName) ? Status::authorized : Status::denied);
            });
    });
}

void NotificationService::requestAuthorization(
    const std::set<NotificationKind> &,
    std::function<void(bool, const std::optional<QString> &)> completion) {
    const QDBusMessage greeting = QDBusMessage::createMethodCall(
        m_serviceName, QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("GetServerInformation"));
    ask(greeting, [completion](const std::optional<QDBusMessage> &answer) {
        if (!answer)
            completion(false, QStringLiteral("The desktop does not answer"));
        else if (answer->type() == QDBusMessage::ErrorMessage)
            completion(false, answer->errorMessage());
        else
            completion(true, std::nullopt);
    });
}

void NotificationService::ask(const QDBusMessage &message, Answered answered) {
    const auto question = std::make_shared<Question>();
    question->message = message;
    question->answered = std::move(answered);
    question->limit = m_queue.after(
        patience, [this, weak = std::weak_ptr(question)] { answer(weak.lock(), std::nullopt); });
    m_questions.push_back(question);
    if (!m_link)
        m_link.emplace(m_queue, QStringLiteral("vantrel-notifications"),
                       SessionBusLink::Listener{[this](const auto &) { takeWaiting(); },
                                                [this] { takeWaiting(); }});
    else if (m_link->isKnown())
        send(question);
}

void NotificationService::takeWaiting() {
    const auto waiting = m_questions;
    for (const auto &question : waiting)
        send(question);
}

void NotificationService::send(const std::shared_ptr<Question> &question) {
    if (!m_link->bus()) {
        question->call.reset();
        question->limit = m_queue.after(
            {}, [this, weak = std::weak_ptr(question)] { answer(weak.lock(), std::nullopt); });
        return;
    }
    question->call =
        std::make_unique<QDBusPendingCallWatcher>(m_link->bus()->asyncCall(question->message));
    QObject::connect(question->call.get(), &QDBusPendingCallWatcher::finished, question->call.get(),
                     [this, weak = std::weak_ptr(question)] {
                         const auto answered = weak.lock();
                         const QDBusMessage reply = answered->call->reply();
                         // Not within the call's own signal, since the call goes with the question.
                         answered->limit =
                             m_queue.after({}, [this, weak, reply] { answer(weak.lock(), reply); });
                     });
}

void NotificationService::answer(const std::shared_ptr<Question> &question,
                                 const std::optional<QDBusMessage> &message) {
    std::erase(m_questions, question);
    question->answered(message);
}

} // namespace vantrel
