#pragma once

#include "AnswerTable.h"
#include "ServiceThread.h"

#include <linux/eventstore/source/ComponentSource.h>

#include <functional>
#include <memory>

namespace vantrel {

class EvolutionService;

/// The calendars of Evolution Data Server. Talks to it on a thread of its own and answers from a
/// table. `changed` stays silent: whoever made it hears of changes by `announce`, which is called
/// on that thread.
class LiveEvolutionSource : public ComponentSource {
public:
    explicit LiveEvolutionSource(std::function<void()> announce);
    ~LiveEvolutionSource() override;

    void setWindow(Window window) override;
    void start() override;
    void waitUntilDelivered(Seconds limit) override { m_table.waitUntilSettled(limit); }
    [[nodiscard]] std::vector<SourceCalendar> calendars() override { return m_table.calendars(); }
    [[nodiscard]] SourceKnowledge knowledge() const override { return m_table.knowledge(); }
    [[nodiscard]] QString trouble() const override { return m_table.trouble(); }
    [[nodiscard]] std::optional<std::vector<SourceItem>>
    items(const QString &calendarIdentifier) override {
        return m_table.items(calendarIdentifier);
    }
    [[nodiscard]] std::optional<QByteArray> text(const QString &calendarIdentifier,
                                                 const QByteArray &item) override {
        return m_table.text(calendarIdentifier, item);
    }
    [[nodiscard]] QString description(const QString &calendarIdentifier,
                                      const QByteArray &item) const override;

private:
    AnswerTable m_table;
    std::shared_ptr<EvolutionService> m_service; ///< Of the service's thread.
    ServiceThread m_thread;
};

} // namespace vantrel
