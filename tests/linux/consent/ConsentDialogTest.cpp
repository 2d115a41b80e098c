#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/consent/ConsentDialog.h>
#include <linux/consent/UnreadKeys.h>
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
constexpr Seconds instant{0.01};

class ConsentDialogTest : public testing::Test {
protected:
    /// Asks, and lets the user read the question.
    void ask(int count = 2) {
        askUnread(count);
        queue.advance(UnreadKeys::reading + instant);
    }

    void askUnread(int count = 2) {
        std::vector<CalendarPlace> places;
        for (int number = 1; number <= count; ++number)
            places.push_back({QStringLiteral("Place %1").arg(number), {}});
        handle = dialog.ask(places, [this](Answer answer) {
            answers.push_back(answer);
            handle.reset();
        });
        ASSERT_TRUE(window());
        activate(*window());
        awaitFrame();
    }

    /// QTest's own let the event loop turn.
    static void pressWithoutEventLoop(Qt::Key key) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(window(), &press);
    }

    static void activate(QWindow &one) {
        one.requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&one));
    }

    /// The first frame comes by itself; it may have come already.
    static void awaitFrame() {
        auto &quick = *qobject_cast<QQuickWindow *>(window());
        bool isDrawn = false;
        QObject receiver;
        QObject::connect(&quick, &QQuickWindow::frameSwapped, &receiver, [&] { isDrawn = true; });
        quick.update();
        const QDeadlineTimer deadline(patience);
        while (!isDrawn) {
            ASSERT_FALSE(deadline.hasExpired());
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
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

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T08:00:00")};
    ViewEngine views;
    ConsentDialog dialog{queue, views, [] {
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
    pressWithoutEventLoop(Qt::Key_Return);
    handle.reset(); // Taken back while the answer is under way.
    QCoreApplication::processEvents();
    EXPECT_THAT(answers, IsEmpty());
    EXPECT_THAT(QGuiApplication::topLevelWindows(), IsEmpty());
}

TEST_F(ConsentDialogTest, TakesNoKeyForAnAnswerThatCameBeforeItCanHaveBeenRead) {
    askUnread();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape}) {
        QTest::keyClick(window(), key);
        ASSERT_TRUE(window());
    }
    queue.advance(UnreadKeys::reading - instant);
    QTest::keyClick(window(), Qt::Key_Return);
    ASSERT_TRUE(window());
    queue.advance(UnreadKeys::pause + instant);
    QTest::keyClick(window(), Qt::Key_Return);
    settle();
    EXPECT_THAT(answers, ElementsAre(Answer::allowed));
}

TEST_F(ConsentDialogTest, TakesNoKeyForAnAnswerFromWhoGoesOnTyping) {
    askUnread();
    for (int letter = 0; letter < 20; ++letter) {
        QTest::keyClick(window(), letter % 7 == 6 ? Qt::Key_Return : Qt::Key_A);
        ASSERT_TRUE(window());
        queue.advance(Seconds{0.2});
    }
    queue.advance(Seconds{0.3});
    QTest::keyClick(window(), Qt::Key_Return);
    settle();
    EXPECT_THAT(answers, ElementsAre(Answer::allowed));
}

TEST_F(ConsentDialogTest, TakesNoKeyForAnAnswerAsTheUserComesBackToIt) {
    ask();
    QWindow *const question = window();
    QWindow other;
    other.show();
    activate(other);
    queue.advance(Seconds{60.0});
    activate(*question);
    QTest::keyClick(question, Qt::Key_Return);
    ASSERT_THAT(answers, IsEmpty());
    queue.advance(UnreadKeys::reading + instant);
    QTest::keyClick(question, Qt::Key_Return);
    settle();
    EXPECT_THAT(answers, ElementsAre(Answer::allowed));
}

TEST_F(ConsentDialogTest, TakesNoKeyForAnAnswerBeforeItStands) {
    handle = dialog.ask({}, [this](Answer answer) { answers.push_back(answer); });
    queue.advance(Seconds{60.0});
    pressWithoutEventLoop(Qt::Key_Return);
    EXPECT_TRUE(window());
}

TEST_F(ConsentDialogTest, AClickCountsAtOnce) {
    askUnread();
    const QQuickItem *const button = item("allow");
    ASSERT_TRUE(button);
    QTest::mouseClick(window(), Qt::LeftButton, Qt::NoModifier,
                      button->mapToScene(button->boundingRect().center()).toPoint());
    settle();
    EXPECT_THAT(answers, ElementsAre(Answer::allowed));
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
    fakes::ManualMainQueue queue(fakes::at("2026-03-02T08:00:00"));
    ViewEngine views;
    ConsentDialog dialog(queue, views,
                         [] { return QVariant::fromValue(QStringLiteral("no palette")); });
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
