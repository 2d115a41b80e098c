#include <linux/softwareupdater/UpdatesContents.h>
#include <theme/ThemeModule.h>
#include <theme/ThemePalette.h>

#include <QTest>

#include <gallery/Stage.h>
#include <gmock/gmock.h>

namespace vantrel {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

class UpdatesViewTest : public testing::Test {
protected:
    UpdatesViewTest() { useThemeModule(); }

    gallery::Stage &make(const UpdateAdvice &advice, QSize size = {480, 360}) {
        m_viewModel.show(advice, QVariant::fromValue(ThemePalette()));
        m_stage = std::make_unique<gallery::Stage>(updatesContent(m_viewModel), size);
        m_stage->show();
        return *m_stage;
    }

    /// The texts that are seen, from the top.
    QStringList texts() const {
        QStringList seen;
        for (QQuickItem *item : gallery::withDescendants(m_stage->root())) {
            const QVariant text = item->property("text");
            if (item->isVisible() && text.isValid() && !text.toString().isEmpty())
                seen.append(text.toString());
        }
        return seen;
    }

    std::unique_ptr<gallery::Stage> m_stage;
    UpdatesViewModel m_viewModel{QStringLiteral("9.8")};
};

const UpdateAdvice advice{QStringLiteral("From <b>here</b>."), QStringLiteral("This way:"),
                          QStringLiteral("update it")};

TEST_F(UpdatesViewTest, ShowsVersionOriginWayAndCommand) {
    make(advice);
    for (const QString &text :
         {QStringLiteral("Vantrel 9.8"), advice.origin, advice.way, advice.command})
        EXPECT_THAT(texts(), Contains(text));
    EXPECT_THAT(m_stage->warnings(), IsEmpty());
}

TEST_F(UpdatesViewTest, FollowsAnotherAnswer) {
    make(advice);
    m_viewModel.show({QStringLiteral("Built."), QStringLiteral("By hand."), {}},
                     QVariant::fromValue(ThemePalette()));
    EXPECT_THAT(texts(), Contains(QStringLiteral("Built.")));
    EXPECT_FALSE(m_stage->find(QStringLiteral("command"))->isVisible());
}

TEST_F(UpdatesViewTest, TabReachesTheCommandAndSelectsIt) {
    const gallery::Stage &stage = make(advice);
    QQuickItem &command = *stage.find(QStringLiteral("command"));
    for (int press = 0; press < 3 && !command.hasActiveFocus(); ++press)
        QTest::keyClick(&m_stage->window(), Qt::Key_Tab);
    ASSERT_TRUE(command.hasActiveFocus());
    EXPECT_EQ(command.property("selectedText").toString(), advice.command);
}

TEST_F(UpdatesViewTest, EscClosesTheWindow) {
    make(advice);
    QTest::keyClick(&m_stage->window(), Qt::Key_Escape);
    EXPECT_FALSE(m_stage->window().isVisible());
}

TEST_F(UpdatesViewTest, ReturnIsDone) {
    make(advice);
    QTest::keyClick(&m_stage->window(), Qt::Key_Return);
    EXPECT_FALSE(m_stage->window().isVisible());
}

TEST_F(UpdatesViewTest, HoldsTheLongestAdviceInTheSmallestWindow) {
    const gallery::Stage &stage =
        make(updateAdvice({}, QString(180, QLatin1Char('w')), RpmInstaller::dnf), {420, 380});
    for (QQuickItem *item : gallery::withDescendants(stage.root())) {
        if (item->isVisible()) {
            EXPECT_LE(item->mapToScene(QPointF(item->width(), 0)).x(), 420.0);
        }
    }
}

} // namespace
} // namespace vantrel
