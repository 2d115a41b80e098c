#include "ShownOnboarding.h"

#include <QLocale>

namespace vantrel::tests {

namespace {

/// The first run in a session whose language runs from the right.
class OnboardingMirroredTest : public ShownOnboarding {
protected:
    OnboardingMirroredTest() { QLocale::setDefault(QLocale(QStringLiteral("ar_EG"))); }
    ~OnboardingMirroredTest() override { QLocale::setDefault(m_before); }

    [[nodiscard]] QRectF area(const QQuickItem &item) const {
        return item.mapRectToScene(item.boundingRect());
    }

private:
    const QLocale m_before{QLocale()};
};

} // namespace

TEST_F(OnboardingMirroredTest, KeepsEveryTextInTheWindow) {
    for (const OnboardingStep step :
         {OnboardingStep::welcome, OnboardingStep::calendar, OnboardingStep::notifications,
          OnboardingStep::theme, OnboardingStep::demoTakeover, OnboardingStep::launchAtLogin}) {
        if (step == OnboardingStep::notifications)
            allow();
        showAt(step);
        for (const QQuickItem *item : gallery::withDescendants(stage->root())) {
            if (!item->inherits("QQuickText") || !item->isVisible())
                continue;
            const std::string text = item->property("text").toString().toStdString();
            EXPECT_GE(area(*item).left(), 0) << text;
            EXPECT_LE(area(*item).right(), 660) << text;
        }
    }
}

TEST_F(OnboardingMirroredTest, PutsWhatComesFirstToTheRight) {
    showAt(OnboardingStep::calendar);
    EXPECT_GT(area(*find("back")).left(), area(*find("primary")).right());
}

} // namespace vantrel::tests
