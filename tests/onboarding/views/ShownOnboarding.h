#pragma once

#include "../OnboardingFixture.h"

#include <onboarding/OnboardingContents.h>

#include <QTest>

#include <gallery/Stage.h>

#include <memory>

namespace vantrel::tests {

/// The first run in a window, without motion.
class ShownOnboarding : public OnboardingFixture {
protected:
    ShownOnboarding() {
        state.onFinished = [this] { ++finishings; };
        viewModel.refresh();
    }

    ~ShownOnboarding() override {
        for (const QString &warning : stage->warnings())
            ADD_FAILURE() << warning.toStdString();
    }

    void show() {
        ViewContent content = onboardingContent(viewModel);
        content.properties.insert(QStringLiteral("reducedMotion"), true);
        stage = std::make_unique<gallery::Stage>(content, QSize(660, 640));
        stage->show();
    }

    /// Shows it at a step.
    void showAt(OnboardingStep step) {
        while (state.step() != step)
            state.acknowledge();
        show();
    }

    /// Shows the last step, which comes to those who have passed all others.
    void showDone() {
        store.authorization = StoreAuthorization::fullAccess;
        while (finishings == 0)
            state.acknowledge();
        state.advanceToFirstIncompleteStep();
        show();
    }

    void allow() { store.authorization = StoreAuthorization::fullAccess; }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&stage->window(), key, modifiers);
    }

    [[nodiscard]] QQuickItem *find(const char *objectName) const {
        return stage->find(QLatin1String(objectName));
    }

    int finishings = 0;
    int previews = 0;
    OnboardingState state{preferences, access, launchAtLogin, notifications,
                          [this] { ++previews; }};
    OnboardingViewModel viewModel{state, queue};
    std::unique_ptr<gallery::Stage> stage;
};

} // namespace vantrel::tests
