#pragma once

#include <linux/sessionbus/SessionBusLink.h>
#include <platform/MainQueue.h>
#include <platform/NotificationPermission.h>

#include <QDBusMessage>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// The service that shows the desktop's notifications. A desktop asks no permission of its users:
/// who has the service, or would have it started, gets to see them. There is no connection to the
/// bus before the first question.
class NotificationService : public NotificationPermission {
public:
    /// `serviceName` is its name on the session bus. `queue` must outlive this.
    explicit NotificationService(
        MainQueue &queue, QString serviceName = QStringLiteral("org.freedesktop.Notifications"));

    /// Authorized where the service runs or can be started; nothing is started for it.
    void readStatus(std::function<void(Status)> completion) override;

    /// Starts the service where need be. Alerts and sounds are not told apart.
    void requestAuthorization(
        const std::set<NotificationKind> &kinds,
        std::function<void(bool, const std::optional<QString> &)> completion) override;

private:
    /// Gets no answer where there is no bus and where none came in time.
    using Answered = std::function<void(const std::optional<QDBusMessage> &)>;
    struct Question;

    void ask(const QDBusMessage &message, Answered answered);
    void send(const std::shared_ptr<Question> &question);
    void answer(const std::shared_ptr<Question> &question,
                const std::optional<QDBusMessage> &message);
    void takeWaiting();

    MainQueue &m_queue;
    const QString m_serviceName;
    std::vector<std::shared_ptr<Question>> m_questions; ///< Those without an answer.
    std::optional<SessionBusLink> m_link;               ///< From the first question on.
};

} // namespace vantrel
