#pragma once

#include "StoreFixture.h"

#include <fakes/FakeAccessPrompt.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <memory>
#include <string>
#include <vector>

namespace vantrel::tests {

/// A store over one calendar with one event, which has to ask before it reads.
class ConsentTest : public StoreFixture {
protected:
    static constexpr int patience = 20'000; ///< Milliseconds until a test gives up.

    ConsentTest() {
        files.write(QStringLiteral("work/a.ics"), calendarText(noonEvent("meeting")));
        makeStore(&prompt);
    }

    void makeStore(AccessPrompt *asked) {
        StoreConfiguration configuration;
        configuration.roots = {{files.path(QStringLiteral("work")), QStringLiteral("Work"), false},
                               {files.path(QStringLiteral("none")), {}, false}};
        live = std::make_unique<LocalEventStore>(
            queue, configuration, [this] { return fakes::calendarIn(zone); },
            std::make_unique<StoreAccess>(record(), asked));
        m_subscription = live->changed.subscribe([this] { ++changes; });
    }

    AccessRecord record() const {
        return {files.path(QStringLiteral("access.json")),
                {files.path(QStringLiteral("policy.json"))}};
    }

    void request() {
        live->requestFullAccessToEvents([this](bool isGranted, const auto &error) {
            answers.push_back(isGranted);
            errors.push_back(error.value_or(QString()).toStdString());
        });
    }

    /// A request that leads to a question.
    void ask() {
        const auto before = prompt.questions.size();
        request();
        settle([&] { return prompt.questions.size() > before; });
    }

    template <typename Condition>
    void settle(Condition condition) {
        const QDeadlineTimer deadline(patience);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired()) << log.text();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    /// Lets everything run that is under way already.
    void settleQuiet() {
        for (int round = 0; round < 20; ++round) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            queue.advance(Seconds{1.0});
        }
    }

    bool isUntouched() const {
        return changes == 0 && !live->isLoaded() && live->calendars().empty();
    }

    fakes::FakeAccessPrompt prompt;
    std::unique_ptr<LocalEventStore> live;
    int changes = 0;
    std::vector<bool> answers;
    std::vector<std::string> errors;

private:
    Subscription m_subscription;
};

} // namespace vantrel::tests
