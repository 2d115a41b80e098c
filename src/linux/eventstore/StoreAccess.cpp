#include "StoreAccess.h"

#include <utility>

namespace vantrel {

StoreAccess::StoreAccess(AccessRecord record, AccessPrompt *prompt)
    : m_record(std::move(record)), m_prompt(prompt), m_found(m_record->read()), m_status(m_found) {}

std::unique_ptr<StoreAccess> StoreAccess::granted() {
    return std::unique_ptr<StoreAccess>(new StoreAccess);
}

void StoreAccess::follow(MainQueue &queue) {
    if (!m_record || m_watch)
        return;
    m_watch = std::make_unique<ConfigurationWatch>(queue, m_record->files(), [this] { look(); });
    look();
}

void StoreAccess::request(const std::vector<CalendarPlace> &places,
                          EventStore::AccessCompletion completion) {
    look();
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
    if (answer != AccessPrompt::Answer::none) {
        const bool isGranted = answer == AccessPrompt::Answer::allowed;
        m_record->keep(isGranted);
        m_found = m_record->read();
        adopt(m_found == StoreAuthorization::restricted ? m_found
              : isGranted                               ? StoreAuthorization::fullAccess
                                                        : StoreAuthorization::denied);
    }
    answerWaiting();
}

/// An answer that could not be kept holds for this run: only what the files did not say before
/// counts.
void StoreAccess::look() {
    if (!m_record)
        return;
    const StoreAuthorization found = m_record->read();
    if (std::exchange(m_found, found) == found)
        return;
    adopt(found);
    const bool isSettled =
        found == StoreAuthorization::fullAccess || found == StoreAuthorization::restricted;
    if (m_question && isSettled) {
        m_question.reset();
        answerWaiting();
    }
}

void StoreAccess::adopt(StoreAuthorization status) {
    if (std::exchange(m_status, status) != status)
        changed.announce();
}

void StoreAccess::answerWaiting() {
    const auto waiting = std::exchange(m_waiting, {});
    for (const auto &completion : waiting)
        completion(m_status == StoreAuthorization::fullAccess, std::nullopt);
}

} // namespace vantrel
