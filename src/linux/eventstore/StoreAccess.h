#pragma once

#include "AccessRecord.h"
#include "ConfigurationWatch.h"

#include <platform/AccessPrompt.h>
#include <platform/EventStore.h>
#include <platform/MainQueue.h>

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

    /// From here on what stands in the files counts as soon as it is written. `queue` outlives
    /// this.
    void follow(MainQueue &queue);

    /// See `EventStore::requestFullAccessToEvents`. While the question stands, further requests
    /// wait for its answer.
    void request(const std::vector<CalendarPlace> &places, EventStore::AccessCompletion completion);

    /// Announced when the status has become another, ahead of the completions.
    Announcer<> changed;

private:
    StoreAccess() : m_status(StoreAuthorization::fullAccess) {}

    void answerLater(EventStore::AccessCompletion completion, const std::optional<QString> &error);
    void take(AccessPrompt::Answer answer);
    void look();
    void adopt(StoreAuthorization status);
    void answerWaiting();

    std::optional<AccessRecord> m_record;
    AccessPrompt *m_prompt = nullptr;
    StoreAuthorization m_found = StoreAuthorization::notDetermined; ///< In the files, lately.
    StoreAuthorization m_status;
    std::unique_ptr<ConfigurationWatch> m_watch; ///< Null as long as the files are not followed.
    std::vector<EventStore::AccessCompletion> m_waiting;
    Subscription m_question;
    QObject m_receiver; ///< Answers under way to it are dropped once it is gone.
};

} // namespace vantrel
