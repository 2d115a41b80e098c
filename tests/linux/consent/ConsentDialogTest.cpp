#include <linux/consent/ConsentDialog.h>
#include <linux/views/ViewEngine.h>
#include <theme/ThemeModule.h>
#include <theme/ThemePalette.h>

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QTest>

#include <gallery/Stage.h>
#include <gmock/gmock.h>

namespace vantrel {
namespace {

using Answer = AccessPrompt::Answer;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int patience = 20'000; // milliseconds until a test gives up

class ConsentDialogTest : public testing::Test {
protected:
    void ask(int count = 2) {
        std::vector<CalendarPlace> places;
        for (int number = 1; number <= count; ++number)
            places.push_back({QStringLiteral("Place %1").arg(number), {}});
        handle = dialog.ask(places, [this](Answer answer) {
            answers.push_back(answer);
            handle.reset();
        });
        ASSERT_TRUE(window());
        EXPECT_TRUE(QTest::qWaitForWindowActive(window()));
    }

    static QWindow *window() {
        const auto windows = QGuiApplication::topLevelWindows();
        for (QWindow *one : windows) {
            if (one->isVisible())
                return one;
        }
        return nullptr;
    }

    static QQuickItem *item(const char *objectName) {
        const auto items =
            gallery::withDescendants(*qobject_cast<QQuickWindow *>(window())->contentItem());
        for (QQuickItem *one : items) {
            if (one->objectName() == QLatin1String(objectName))
                return one;
        }
        return nullptr;
    }

    void settle() {
        const QDeadlineTimer deadline(patience);
        while (answers.empty()) {
            ASSERT_FALSE(deadline.hasExpired());
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    ViewEngine views;
    ConsentDialog dialog{views, [] {
                             useThemeModule();
                             return QVariant::fromValue(ThemePalette());
                         }};
    Subscription handle;
    std::vector<Answer> answers;
};

TEST_F(ConsentDialogTest, StandsUntilItIsAnsweredAndThenGoes) {
    ask();
    EXPECT_EQ(window()->title(), QStringLiteral("Vantrel"));
    QTest::keyClick(window(), Qt::Key_Return);
    EXPECT_FALSE(window());
    settle();
    EXPECT_THAT(answers, ElementsAre(Answer::allowed));
    EXPECT_THAT(QGuiApplication::topLevelWindows(), IsEmpty());
}

TEST_F(ConsentDialogTest, EscapeIsARefusal) {
    ask();
    QTest::keyClick(window(), Qt::Key_Escape);
    settle();
    EXPECT_THAT(answers, ElementsAre(Answer::refused));
}

TEST_F(ConsentDialogTest, ClosingItIsNoAnswer) {
    ask();
    window()->close();
    settle();
    EXPECT_THAT(answers, ElementsAre(Answer::none));
    EXPECT_THAT(QGuiApplication::topLevelWindows(), IsEmpty());
}

TEST_F(ConsentDialogTest, AnswersNotBeforeTheKeyIsHandled) {
    ask();
    QTest::sendKeyEvent(QTest::Press, window(), Qt::Key_Return, QString(), Qt::NoModifier);
    handle.reset(); // Taken back while the answer is under way.
    QCoreApplication::processEvents();
    EXPECT_THAT(answers, testing::AnyOf(IsEmpty(), ElementsAre(Answer::allowed)));
    EXPECT_THAT(QGuiApplication::topLevelWindows(), IsEmpty());
}

TEST_F(ConsentDialogTest, IsTakenBackWithItsHandle) {
    ask();
    handle.reset();
    EXPECT_THAT(QGuiApplication::topLevelWindows(), IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(ConsentDialogTest, AsksAgainAfterAnAnswer) {
    for (int round = 0; round < 3; ++round) {
        answers.clear();
        ask();
        QTest::keyClick(window(), Qt::Key_Escape);
        settle();
        EXPECT_THAT(answers, ElementsAre(Answer::refused));
    }
}

TEST_F(ConsentDialogTest, StaysWithinTheScreenHoweverManyPlaces) {
    for (const int count : {0, 1, 40, 1000}) {
        ask(count);
        const QRect screen = window()->screen()->availableGeometry();
        EXPECT_TRUE(screen.contains(window()->geometry())) << count;
        EXPECT_LT(window()->height(), 0.81 * screen.height()) << count;
        EXPECT_LE(window()->minimumHeight(), window()->height());
        handle.reset();
    }
}

TEST_F(ConsentDialogTest, IsLargeEnoughForSomePlacesAndTheTexts) {
    ask(5);
    const QQuickItem *list = item("places");
    const QQuickItem *explanation = item("explanation");
    ASSERT_TRUE(list && explanation);
    EXPECT_LE(list->property("contentHeight").toDouble(), list->height());
    EXPECT_GT(explanation->property("lineCount").toInt(), 1);
    EXPECT_LT(explanation->mapToScene({0.0, explanation->height()}).y(),
              list->mapToScene({0.0, 0.0}).y());
}

TEST(ConsentDialogWithoutPaletteTest, CountsAsPutAsideWhenItCannotBeMade) {
    ViewEngine views;
    ConsentDialog dialog(views, [] { return QVariant::fromValue(QStringLiteral("no palette")); });
    std::vector<Answer> answers;
    const Subscription handle =
        dialog.ask({}, [&answers](Answer answer) { answers.push_back(answer); });
    EXPECT_THAT(answers, IsEmpty());
    const QDeadlineTimer deadline(patience);
    while (answers.empty() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_THAT(answers, ElementsAre(Answer::none));
}

} // namespace
} // namespace vantrel
