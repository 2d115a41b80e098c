#include "TakeoverViewModel.h"

#include "CountdownFormatter.h"

#include <theme/DisplayTitle.h>

#include <QStringList>

#include <utility>

namespace vantrel {

namespace {

constexpr Seconds tickInterval{1.0};

} // namespace

TakeoverViewModel::TakeoverViewModel(TakeoverContext context, TakeoverPhaseState &phaseState,
                                     MainQueue &queue, Actions actions)
    : m_context(std::move(context)),
      m_queue(queue),
      m_actions(std::move(actions)),
      m_countdownText(countdownTextNow()) {
    QStringList spoken{title(), m_countdownText};
    spoken.removeAll(QString());
    m_announcement = spoken.join(QStringLiteral(", "));
    startTicking();
    m_phaseSubscription =
        phaseState.phase.subscribe([this](const TakeoverPhase &phase) { setPhase(phase); });
}

QString TakeoverViewModel::title() const {
    return displayTitle(m_context.title);
}

QString TakeoverViewModel::primaryActionLabel() const {
    using Kind = TakeoverContext::PrimaryAction::Kind;
    switch (m_context.primaryAction.kind()) {
    case Kind::join:
        return QStringLiteral("Join");
    case Kind::call:
        return QStringLiteral("Call");
    case Kind::headingOver:
        return QStringLiteral("Heading over");
    case Kind::acknowledge:
        return QStringLiteral("Got it");
    }
    Q_UNREACHABLE();
}

void TakeoverViewModel::setPhase(TakeoverPhase phase) {
    if (phase == m_phase)
        return;
    m_phase = phase;
    if (isJoined()) {
        m_tick.cancel();
    } else {
        tick();
        startTicking();
    }
    Q_EMIT isJoinedChanged();
}

void TakeoverViewModel::startTicking() {
    m_tick = m_queue.every(tickInterval, [this] { tick(); });
}

void TakeoverViewModel::tick() {
    QString text = countdownTextNow();
    if (text == m_countdownText)
        return;
    m_countdownText = std::move(text);
    Q_EMIT countdownTextChanged();
}

QString TakeoverViewModel::countdownTextNow() const {
    const Instant now = m_queue.now();
    if (now < m_context.startsAt)
        return QStringLiteral("starts in ") +
               CountdownFormatter::minutesAndSecondsString(m_context.startsAt, now);
    if (now < m_context.endsAt)
        return QStringLiteral("rolling now");
    return QStringLiteral("wrapped up");
}

} // namespace vantrel
