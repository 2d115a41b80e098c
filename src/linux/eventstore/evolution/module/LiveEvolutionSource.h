#pragma once

#include "AnswerTable.h"
#include "ServiceThread.h"

#include <linux/eventstore/source/ComponentSource.h>

#include <functional>
#include <memory>

namespace vantrel {

/// The calendars of Evolution Data Server. Talks to it on a thread of its own and answers from a
/// table. `changed` stays silent: whoever made it hears of changes by `announce`, which is called
/// on that thread, and not any more once this is gone.
class LiveEvolutionSource : public ComponentSource {
public:
    explicit LiveEvolutionSource(std::function<void()> announce);
    ~LiveEvolutionSource() override;

    void setWindow(Window window) override;
    void start() override;
    void waitUntilDelivered(Seconds limit) override;
    [[nodiscard]] std::vector<SourceCalendar> calendars() override;
    [[nodiscard]] SourceKnowledge knowledge() const override;
    [[nodiscard]] QString trouble() const override;
    [[nodiscard]] std::optional<std::vector<SourceItem>>
    items(const QString &calendarIdentifier) override;
    [[nodiscard]] std::optional<QByteArray> text(const QString &calendarIdentifier,
                                                 const QByteArray &item) override;
    [[nodiscard]] QString description(const QString &calendarIdentifier,
                                      const QByteArray &item) const override;

private:
    struct State;

    const std::shared_ptr<State> m_state; ///< The thread's as well, which may be there for longer.
    ServiceThread m_thread;
};

} // namespace vantrel
