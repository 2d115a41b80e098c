#include <linux/consent/ConsentQuestion.h>
#include <theme/ThemeModule.h>
#include <theme/ThemePalette.h>

#include <QAccessible>
#include <QTest>

#include <gallery/Stage.h>
#include <gmock/gmock.h>

namespace vantrel {
namespace {

using Answer = AccessPrompt::Answer;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<CalendarPlace> places(int count) {
    std::vector<CalendarPlace> made;
    for (int number = 1; number <= count; ++number)
        made.push_back(
            {QStringLiteral("Place %1").arg(number), QStringLiteral("/srv/%1").arg(number)});
    return made;
}

class ConsentViewTest : public testing::Test {
protected:
    gallery::Stage &make(std::vector<CalendarPlace> shown, QSize size = {}) {
        m_stage.reset();
        useThemeModule();
        m_viewModel = std::make_unique<ConsentViewModel>(
            std::move(shown), [this](Answer answer) { answers.push_back(answer); });
        const ViewContent content =
            consentContent(*m_viewModel, QVariant::fromValue(ThemePalette()));
        if (size.isEmpty()) {
            const gallery::Stage measure(content, {1, 1});
            // The height hangs on how the texts break at that width.
            measure.root().setWidth(measure.root().implicitWidth());
            size = QSizeF(measure.root().implicitWidth(), measure.root().implicitHeight()).toSize();
        }
        m_stage = std::make_unique<gallery::Stage>(content, size);
        m_stage->show();
        return *m_stage;
    }

    QQuickItem &item(const char *objectName) const {
        QQuickItem *found = m_stage->find(QLatin1String(objectName));
        if (!found)
            qFatal("There is no item %s", objectName);
        return *found;
    }

    void press(Qt::Key key) const { QTest::keyClick(&m_stage->window(), key); }

    void click(const char *objectName) const {
        const QQuickItem &button = item(objectName);
        const QPointF middle(button.width() / 2.0, button.height() / 2.0);
        QTest::mouseClick(&m_stage->window(), Qt::LeftButton, Qt::NoModifier,
                          button.mapToScene(middle).toPoint());
    }

    bool hasFocus(const char *objectName) const { return item(objectName).hasActiveFocus(); }

    QRectF area(const QQuickItem &of) const {
        return {of.mapToItem(&m_stage->root(), QPointF()), of.size()};
    }

    std::vector<Answer> answers;

private:
    std::unique_ptr<ConsentViewModel> m_viewModel;
    std::unique_ptr<gallery::Stage> m_stage;
};

TEST_F(ConsentViewTest, ReturnAllows) {
    make(places(1));
    press(Qt::Key_Return);
    EXPECT_THAT(answers, ElementsAre(Answer::allowed));
}

TEST_F(ConsentViewTest, TheKeypadsEnterAllows) {
    make(places(1));
    press(Qt::Key_Enter);
    EXPECT_THAT(answers, ElementsAre(Answer::allowed));
}

TEST_F(ConsentViewTest, EscapeRefuses) {
    make(places(1));
    press(Qt::Key_Escape);
    EXPECT_THAT(answers, ElementsAre(Answer::refused));
}

TEST_F(ConsentViewTest, OtherKeysAnswerNothing) {
    make(places(1));
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Y, Qt::Key_N, Qt::Key_Down, Qt::Key_Delete})
        press(key);
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(ConsentViewTest, AKeyThatIsHeldFromElsewhereAnswersNothing) {
    gallery::Stage &stage = make(places(1));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Space}) {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&stage.window(), &repeated);
    }
    EXPECT_THAT(answers, IsEmpty());
}

TEST_F(ConsentViewTest, TheButtonsAnswerToClicks) {
    make(places(3));
    click("allow");
    EXPECT_THAT(answers, ElementsAre(Answer::allowed));
    answers.clear();
    make(places(3));
    click("refuse");
    EXPECT_THAT(answers, ElementsAre(Answer::refused));
}

TEST_F(ConsentViewTest, OnlyTheFirstAnswerCounts) {
    make(places(1));
    press(Qt::Key_Escape);
    press(Qt::Key_Return);
    click("allow");
    EXPECT_THAT(answers, ElementsAre(Answer::refused));
}

TEST_F(ConsentViewTest, TabGoesRoundBothButtonsAndKeysMeanTheOneWithTheRing) {
    make(places(1));
    EXPECT_TRUE(hasFocus("allow"));
    press(Qt::Key_Tab);
    EXPECT_TRUE(hasFocus("refuse"));
    press(Qt::Key_Tab);
    EXPECT_TRUE(hasFocus("allow"));
    press(Qt::Key_Backtab);
    EXPECT_TRUE(hasFocus("refuse"));
    press(Qt::Key_Return);
    EXPECT_THAT(answers, ElementsAre(Answer::refused));
}

TEST_F(ConsentViewTest, SpacePressesTheButtonWithTheRing) {
    make(places(1));
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_THAT(answers, ElementsAre(Answer::refused));
}

TEST_F(ConsentViewTest, ShowsEveryPlaceWhereThereIsRoom) {
    for (const int count : {1, 2, 5}) {
        gallery::Stage &stage = make(places(count));
        int seen = 0;
        const auto items = gallery::withDescendants(stage.root());
        for (const QQuickItem *one : items) {
            if (one->objectName() == QLatin1String("placeName") &&
                stage.root().boundingRect().contains(area(*one)))
                ++seen;
        }
        EXPECT_EQ(seen, count);
        EXPECT_FALSE(item("places").property("interactive").toBool());
    }
}

TEST_F(ConsentViewTest, ScrollsFortyPlacesByKeyboardToTheLast) {
    gallery::Stage &stage = make(places(40), {500, 520});
    EXPECT_TRUE(stage.root().boundingRect().contains(area(item("allow"))));
    EXPECT_TRUE(stage.root().boundingRect().contains(area(item("refuse"))));
    QQuickItem &list = item("places");
    EXPECT_GT(list.height(), 100.0);
    press(Qt::Key_Tab);
    ASSERT_TRUE(list.parentItem()->hasActiveFocus());
    press(Qt::Key_End);
    EXPECT_TRUE(list.property("atYEnd").toBool());
    press(Qt::Key_Home);
    EXPECT_TRUE(list.property("atYBeginning").toBool());
    press(Qt::Key_PageDown);
    EXPECT_FALSE(list.property("atYBeginning").toBool());
    EXPECT_THAT(answers, IsEmpty());
    press(Qt::Key_Return);
    EXPECT_THAT(answers, ElementsAre(Answer::allowed));
}

TEST_F(ConsentViewTest, ShowsMarkupAsItIsWritten) {
    gallery::Stage &stage =
        make({{QStringLiteral("<b>Bold</b> &amp; <img src=x>"), QStringLiteral("<i>/tmp</i>")}});
    const auto items = gallery::withDescendants(stage.root());
    int texts = 0;
    for (const QQuickItem *one : items) {
        if (!one->inherits("QQuickText"))
            continue;
        ++texts;
        EXPECT_EQ(one->property("textFormat").toInt(), static_cast<int>(Qt::PlainText))
            << qPrintable(one->property("text").toString());
    }
    EXPECT_GT(texts, 5);
}

TEST_F(ConsentViewTest, KeepsEachTextOfAPlaceOnOneLine) {
    gallery::Stage &stage = make({{QStringLiteral("one\ntwo\nthree"), QStringLiteral("a\nb")},
                                  {QString(500, u'm'), QString(500, u'/')}});
    const auto items = gallery::withDescendants(item("places"));
    for (const QQuickItem *one : items) {
        if (!one->inherits("QQuickText") || !one->isVisible())
            continue;
        EXPECT_EQ(one->property("lineCount").toInt(), 1);
        EXPECT_TRUE(stage.root().boundingRect().contains(area(*one)));
    }
}

TEST_F(ConsentViewTest, FitsItsTextsAtItsOwnSize) {
    gallery::Stage &stage = make(places(3));
    const auto items = gallery::withDescendants(stage.root());
    for (const QQuickItem *one : items) {
        if (!one->inherits("QQuickText") || !one->isVisible())
            continue;
        EXPECT_FALSE(one->property("truncated").toBool())
            << qPrintable(one->property("text").toString());
        EXPECT_TRUE(stage.root().boundingRect().contains(area(*one)))
            << qPrintable(one->property("text").toString());
    }
    EXPECT_THAT(stage.warnings(), IsEmpty());
}

TEST_F(ConsentViewTest, NamesItsPartsForScreenReaders) {
    gallery::Stage &stage = make(places(2));
    QStringList found;
    std::function<void(QAccessibleInterface *)> walk = [&](QAccessibleInterface *node) {
        for (int index = 0; node && index < node->childCount(); ++index) {
            QAccessibleInterface *child = node->child(index);
            if (child->role() == QAccessible::Button)
                found += QStringLiteral("button ") + child->text(QAccessible::Name);
            if (child->role() == QAccessible::ListItem)
                found +=
                    child->text(QAccessible::Name) + u' ' + child->text(QAccessible::Description);
            walk(child);
        }
    };
    walk(QAccessible::queryAccessibleInterface(&stage.window()));
    found.sort();
    EXPECT_EQ(found,
              (QStringList{QStringLiteral("Place 1 /srv/1"), QStringLiteral("Place 2 /srv/2"),
                           QStringLiteral("button Allow"), QStringLiteral("button Don't Allow")}));
    EXPECT_EQ(item("title").property("text").toString(),
              QStringLiteral("May Vantrel read your calendars?"));
    EXPECT_TRUE(item("explanation")
                    .property("text")
                    .toString()
                    .contains(QStringLiteral("Everything stays on this machine")));
}

} // namespace
} // namespace vantrel
