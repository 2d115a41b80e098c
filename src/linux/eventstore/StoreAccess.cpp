#include "StoreAccess.h"

#include <utility>

namespace vantrel {

StoreAccess::StoreAccess(AccessRecord record, AccessPrompt *prompt)
    : m_record(std::move(record)), m_prompt(prompt), m_status(m_record->read()) {}

std::unique_ptr<StoreAccess> StoreAccess::granted() {
    return std::unique_ptr<StoreAccess>(new StoreAccess);
}

void StoreAccess::request(const std::vector<CalendarPlace> &places,
                          EventStore::AccessCompletion completion) {
    // The files may be others by now. What was granted stays so for as long as the program runs.
    if (m_status != StoreAuthorization::fullAccess && !m_question)
        adopt(m_record->read());
    if (m_status == StoreAuthorization::fullAccess || m_status == StoreAuthorization::restricted)
        return answerLater(std::move(completion), std::nullopt);
    if (!m_prompt)
        return answerLater(std::move(completion), QStringLiteral("there is nobody to ask"));
    m_waiting.push_back(std::move(completion));
    if (!m_question)
        m_question = m_prompt->ask(places, [this](AccessPrompt::Answer answer) { take(answer); });
}

void StoreAccess::answerLater(EventStore::AccessCompletion completion,
                              const std::optional<QString> &error) {
    QMetaObject::invokeMethod(
        &m_receiver,
        [completion = std::move(completion), error,
         isGranted = m_status == StoreAuthorization::fullAccess] { completion(isGranted, error); },
        Qt::QueuedConnection);
}

/// A question that was put aside leaves everything as it was: it is no answer, so none is kept, and
/// the next start asks again.
void StoreAccess::take(AccessPrompt::Answer answer) {
    const Subscription question = std::exchange(m_question, nullptr);
    const auto waiting = std::exchange(m_waiting, {});
    const bool isGranted = answer == AccessPrompt::Answer::allowed;
    if (answer != AccessPrompt::Answer::none) {
        m_record->keep(isGranted);
        adopt(isGranted ? StoreAuthorization::fullAccess : StoreAuthorization::denied);
    }
    for (const auto &completion : waiting)
        completion(isGranted, std::nullopt);
}

void StoreAccess::adopt(StoreAuthorization status) {
    const bool isGranted = status == StoreAuthorization::fullAccess && m_status != status;
    m_status = status;
    if (isGranted)
        wasGranted.announce();
}

} // namespace vantrel
