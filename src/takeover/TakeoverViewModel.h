#pragma once

#include "TakeoverContext.h"
#include "TakeoverPhase.h"

#include <platform/MainQueue.h>
#include <platform/Published.h>

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantrel {

/// What the takeover's view shows and what its buttons do, for one showing. The countdown is read
/// from the clock anew each second, counted from construction, while the phase is urgent. Main
/// thread only.
class TakeoverViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString countdownText READ countdownText NOTIFY countdownTextChanged FINAL)
    Q_PROPERTY(QString copyLine READ copyLine CONSTANT FINAL)
    Q_PROPERTY(QString primaryActionLabel READ primaryActionLabel CONSTANT FINAL)
    Q_PROPERTY(QString announcement READ announcement CONSTANT FINAL)
    Q_PROPERTY(bool isJoined READ isJoined NOTIFY isJoinedChanged FINAL)

public:
    /// What the buttons call; none of them is empty.
    struct Actions {
        std::function<void()> join;
        std::function<void()> snooze;
        std::function<void()> dismiss;
    };

    /// `phaseState` and `queue` must outlive the view model, and it the views that show it.
    TakeoverViewModel(TakeoverContext context, TakeoverPhaseState &phaseState, MainQueue &queue,
                      Actions actions);

    /// The meeting's title in the form that is safe to draw; empty when it has none.
    [[nodiscard]] QString title() const;

    /// "starts in 0:58", "rolling now" or "wrapped up".
    [[nodiscard]] QString countdownText() const { return m_countdownText; }

    /// Empty when there is no line of copy.
    [[nodiscard]] QString copyLine() const { return m_context.copyLine.value_or(QString()); }

    [[nodiscard]] QString primaryActionLabel() const;

    /// For screen readers, once: the title and the countdown as it was at the start.
    [[nodiscard]] QString announcement() const { return m_announcement; }

    [[nodiscard]] bool isJoined() const { return m_phase == TakeoverPhase::joined; }

    Q_INVOKABLE void join() const { m_actions.join(); }
    Q_INVOKABLE void snooze() const { m_actions.snooze(); }
    Q_INVOKABLE void dismiss() const { m_actions.dismiss(); }

Q_SIGNALS:
    void countdownTextChanged();
    void isJoinedChanged();

private:
    void setPhase(TakeoverPhase phase);
    void startTicking();
    void tick();
    [[nodiscard]] QString countdownTextNow() const;

    const TakeoverContext m_context;
    MainQueue &m_queue;
    const Actions m_actions;
    TakeoverPhase m_phase = TakeoverPhase::urgent;
    QString m_countdownText;
    QString m_announcement;
    ScheduledWork m_tick;
    Subscription m_phaseSubscription;
};

} // namespace vantrel
