#pragma once

#include "AccessRecord.h"

#include <platform/AccessPrompt.h>
#include <platform/EventStore.h>

#include <QObject>

#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// Whether the calendars may be read, and the asking for it. Main thread only; needs its event loop
/// to run.
class StoreAccess {
public:
    /// Goes by the record's files, and keeps in them what the user answers to `prompt`, which
    /// outlives this. Without a prompt nobody can be asked.
    StoreAccess(AccessRecord record, AccessPrompt *prompt);

    /// For calendars that the user named themself: nobody has to be asked.
    [[nodiscard]] static std::unique_ptr<StoreAccess> granted();

    [[nodiscard]] StoreAuthorization status() const { return m_status; }

    /// See `EventStore::requestFullAccessToEvents`. While the question stands, further requests
    /// wait for its answer.
    void request(const std::vector<CalendarPlace> &places, EventStore::AccessCompletion completion);

    /// Announced when access is granted that was not before, ahead of the completions.
    Announcer<> wasGranted;

private:
    StoreAccess() : m_status(StoreAuthorization::fullAccess) {}

    void answerLater(EventStore::AccessCompletion completion, const std::optional<QString> &error);
    void take(AccessPrompt::Answer answer);
    void adopt(StoreAuthorization status);

    std::optional<AccessRecord> m_record;
    AccessPrompt *m_prompt = nullptr;
    StoreAuthorization m_status;
    std::vector<EventStore::AccessCompletion> m_waiting;
    Subscription m_question;
    QObject m_receiver; ///< Answers under way to it are dropped once it is gone.
};

} // namespace vantrel
