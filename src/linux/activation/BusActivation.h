#pragma once

#include "ApplicationObject.h"

#include <linux/sessionbus/SessionBusLink.h>
#include <platform/Activation.h>
#include <platform/MainQueue.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoop>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// One running program a session and profile, by a name on the session bus: the one that has the
/// name is asked what others were started for. The name is taken again when the bus was restarted.
class BusActivation : public Activation {
public:
    enum class Claim {
        isFirst,     ///< This one runs, and is asked from now on. Also without a session bus.
        wasHandedOn, ///< Another one runs and has taken the request.
        wasRefused,  ///< Another one runs and did not take it.
    };

    enum class Asked {
        hasTaken,    ///< The one that runs will do it.
        hasRefused,  ///< It does not answer, or knows no such request.
        isNotRunning ///< Also without a session bus.
    };

    /// `profile` is the folder of a profile; empty for the user's own. `queue` must outlive this.
    BusActivation(MainQueue &queue, const std::optional<QString> &profile);
    BusActivation(const BusActivation &) = delete;
    BusActivation &operator=(const BusActivation &) = delete;
    ~BusActivation() override = default;

    /// Runs the event loop until it is known whether another one runs, for some seconds at most.
    [[nodiscard]] Claim claim(ActivationRequest request);

    /// Like `claim`, but takes no name: nothing runs here.
    [[nodiscard]] Asked askRunning(ActivationRequest request);

    /// The report of the one that runs; empty when none does, or does not answer.
    [[nodiscard]] std::optional<QByteArray> askStatus();

    void follow(std::function<void(ActivationRequest)> handler) override;
    void answerStatus(std::function<QByteArray()> report) override { m_report = std::move(report); }

    /// The name on the bus that a profile's program has.
    [[nodiscard]] static QString busName(const std::optional<QString> &profile);

private:
    void findBus();
    void enter(QDBusConnection bus);
    void claimAgain(const QDBusConnection &bus);
    /// The answer; empty when none came in time.
    [[nodiscard]] std::optional<QDBusMessage> ask(const QDBusMessage &question);
    void take(ActivationRequest request);
    void releaseName();

    MainQueue &m_queue;
    QString m_name;
    ApplicationObject m_object;
    QEventLoop m_search; ///< For a bus, before the first claim.
    bool m_hasClaimed = false;
    bool m_isEnding = false;
    std::function<void(ActivationRequest)> m_handler;
    std::function<QByteArray()> m_report;
    std::vector<ActivationRequest> m_waiting;
    std::shared_ptr<char> m_life = std::make_shared<char>();
    SessionBusLink m_bus;
};

} // namespace vantrel
