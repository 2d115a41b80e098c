#include "ShownControl.h"

#include <theme/SidebarTab.h>
#include <theme/ThemeModule.h>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using ::testing::IsEmpty;

class ControlsTest : public testing::Test {
protected:
    ControlsTest() { useThemeModule(); }

    static QVariantMap range(double setting) {
        return {{QStringLiteral("title"), QStringLiteral("Lead time")},
                {QStringLiteral("valueText"), QStringLiteral("1 min before")},
                {QStringLiteral("setting"), setting},
                {QStringLiteral("minimumValue"), 0.0},
                {QStringLiteral("maximumValue"), 300.0},
                {QStringLiteral("stepSize"), 60.0}};
    }

    /// What a control asks for on each of the keys, as it shows `setting`.
    static QList<double> askedBy(const char *type, double setting, const QList<Qt::Key> &keys) {
        ShownControl control(type, range(setting));
        const auto moved = control.spy(SIGNAL(moved(double)));
        control.focus();
        for (const Qt::Key key : keys)
            control.press(key);
        QList<double> asked;
        for (const auto &arguments : *moved)
            asked.append(arguments.at(0).toDouble());
        EXPECT_THAT(control.stage().warnings(), IsEmpty());
        return asked;
    }

    const QVariantMap toggle{{QStringLiteral("title"), QStringLiteral("Only on weekdays")},
                             {QStringLiteral("isOn"), false}};
};

TEST_F(ControlsTest, ASliderGoesBySteps) {
    EXPECT_EQ(
        askedBy("Slider", 60,
                {Qt::Key_Right, Qt::Key_Left, Qt::Key_Up, Qt::Key_Down, Qt::Key_End, Qt::Key_Home}),
        (QList<double>{120, 0, 120, 0, 300, 0}));
}

TEST_F(ControlsTest, ASliderAsksForNothingBeyondItsEnds) {
    EXPECT_EQ(askedBy("Slider", 300, {Qt::Key_Right, Qt::Key_End}), QList<double>());
    EXPECT_EQ(askedBy("Slider", 0, {Qt::Key_Left, Qt::Key_Home}), QList<double>());
}

TEST_F(ControlsTest, ASliderComesBackToItsStepsFromBetweenThem) {
    EXPECT_EQ(askedBy("Slider", 90, {Qt::Key_Right, Qt::Key_Left}), (QList<double>{120, 60}));
}

TEST_F(ControlsTest, ASliderThatShowsMoreThanItsEndComesBackToIt) {
    EXPECT_EQ(askedBy("Slider", 1000, {Qt::Key_Left}), QList<double>{300});
}

TEST_F(ControlsTest, ASliderGoesToWhereItIsPressedAndDragged) {
    ShownControl slider("Slider", range(60));
    const auto moved = slider.spy(SIGNAL(moved(double)));
    slider.click({318, 24});
    ASSERT_EQ(moved->size(), 1);
    EXPECT_EQ(moved->at(0).at(0).toDouble(), 300);
    EXPECT_TRUE(slider.item().hasActiveFocus());
    QTest::mousePress(&slider.stage().window(), Qt::LeftButton, Qt::NoModifier, {130, 24});
    QTest::mouseMove(&slider.stage().window(), {2, 24});
    QTest::mouseRelease(&slider.stage().window(), Qt::LeftButton, Qt::NoModifier, {2, 24});
    EXPECT_EQ(moved->last().at(0).toDouble(), 0);
}

TEST_F(ControlsTest, ASliderTellsAScreenReaderItsValueAndBounds) {
    ShownControl slider("Slider", range(60));
    EXPECT_EQ(slider.spoken().role(), QAccessible::Slider);
    EXPECT_EQ(slider.spoken().text(QAccessible::Name), u"Lead time");
    EXPECT_EQ(slider.spoken().text(QAccessible::Description), u"1 min before");
    QAccessibleValueInterface *value = slider.spoken().valueInterface();
    ASSERT_TRUE(value);
    EXPECT_EQ(value->currentValue().toDouble(), 60);
    EXPECT_EQ(value->minimumValue().toDouble(), 0);
    EXPECT_EQ(value->maximumValue().toDouble(), 300);
    EXPECT_EQ(value->minimumStepSize().toDouble(), 60);
}

TEST_F(ControlsTest, AScreenReaderMovesASliderByAskingOnly) {
    ShownControl slider("Slider", range(60));
    const auto moved = slider.spy(SIGNAL(moved(double)));
    slider.spoken().valueInterface()->setCurrentValue(240.0);
    ASSERT_EQ(moved->size(), 1);
    EXPECT_EQ(moved->at(0).at(0).toDouble(), 240);
    EXPECT_EQ(slider.item().property("value").toDouble(), 60);
    slider.item().setProperty("setting", 240.0);
    EXPECT_EQ(slider.item().property("value").toDouble(), 240);
}

TEST_F(ControlsTest, AStepperGoesBySteps) {
    EXPECT_EQ(askedBy("Stepper", 60,
                      {Qt::Key_Up, Qt::Key_Down, Qt::Key_Right, Qt::Key_Left, Qt::Key_End}),
              (QList<double>{120, 0, 120, 0, 300}));
    EXPECT_EQ(askedBy("Stepper", 300, {Qt::Key_Up}), QList<double>());
}

TEST_F(ControlsTest, AStepperIsPressedOnEitherHalf) {
    ShownControl stepper("Stepper", range(60), {97, 36});
    const auto moved = stepper.spy(SIGNAL(moved(double)));
    stepper.click({20, 18});
    stepper.click({80, 18});
    ASSERT_EQ(moved->size(), 2);
    EXPECT_EQ(moved->at(0).at(0).toDouble(), 0);
    EXPECT_EQ(moved->at(1).at(0).toDouble(), 120);
    EXPECT_EQ(stepper.spoken().role(), QAccessible::SpinBox);
}

TEST_F(ControlsTest, ASwitchAsksAndShowsWhatItIsTold) {
    ShownControl shown("ToggleSwitch", toggle, {44, 36});
    const auto flipped = shown.spy(SIGNAL(flipped(bool)));
    shown.focus();
    shown.press(Qt::Key_Space);
    shown.press(Qt::Key_Return);
    shown.click();
    EXPECT_EQ(*flipped, (QList<QVariantList>{{true}, {true}, {true}}));
    EXPECT_FALSE(shown.spoken().state().checked);
    shown.item().setProperty("isOn", true);
    shown.press(Qt::Key_Space);
    EXPECT_EQ(flipped->last(), QVariantList{false});
    EXPECT_TRUE(shown.spoken().state().checked);
    EXPECT_EQ(shown.spoken().role(), QAccessible::CheckBox);
    EXPECT_EQ(shown.spoken().text(QAccessible::Name), u"Only on weekdays");
    EXPECT_THAT(shown.stage().warnings(), IsEmpty());
}

TEST_F(ControlsTest, ASwitchHearsNoKeyThatIsHeldDown) {
    ShownControl shown("ToggleSwitch", toggle, {44, 36});
    const auto flipped = shown.spy(SIGNAL(flipped(bool)));
    shown.focus();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
    QCoreApplication::sendEvent(&shown.stage().window(), &held);
    EXPECT_TRUE(flipped->isEmpty());
}

TEST_F(ControlsTest, AToggleRowFlipsOnceWhereverItIsPressed) {
    ShownControl row("ToggleRow", toggle, {320, 60});
    const auto flipped = row.spy(SIGNAL(flipped(bool)));
    row.click({30, 30});
    EXPECT_EQ(flipped->size(), 1);
    row.click({300, 30});
    EXPECT_EQ(flipped->size(), 2);
}

TEST_F(ControlsTest, AChoiceIsMadeByClickAndByArrow) {
    ShownControl choice(
        "SegmentedChoice",
        {{QStringLiteral("title"), QStringLiteral("Open in")},
         {QStringLiteral("options"), QStringList{QStringLiteral("App"), QStringLiteral("Browser")}},
         {QStringLiteral("current"), 0}},
        {200, 40});
    const auto chosen = choice.spy(SIGNAL(chosen(int)));
    choice.focus();
    choice.press(Qt::Key_Right);
    EXPECT_EQ(*chosen, QList<QVariantList>{{1}});
    choice.press(Qt::Key_Left);
    EXPECT_EQ(chosen->size(), 1) << "the first one is chosen already";
    choice.click({150, 20});
    EXPECT_EQ(chosen->size(), 2);
    EXPECT_EQ(chosen->last(), QVariantList{1});
    EXPECT_THAT(choice.stage().warnings(), IsEmpty());
}

TEST_F(ControlsTest, ATextFieldTellsOfEachLetterAndFollowsItsSetting) {
    ShownControl field("TextField",
                       {{QStringLiteral("title"), QStringLiteral("Shortcut")},
                        {QStringLiteral("placeholder"), QStringLiteral("Shortcut name")},
                        {QStringLiteral("setting"), QString()}},
                       {240, 40});
    const auto edited = field.spy(SIGNAL(edited(QString)));
    field.focus();
    QTest::keyClick(&field.stage().window(), 'a');
    QTest::keyClick(&field.stage().window(), 'b');
    EXPECT_EQ(*edited, (QList<QVariantList>{{QStringLiteral("a")}, {QStringLiteral("ab")}}));
    field.item().setProperty("setting", QStringLiteral("elsewhere"));
    QTest::keyClick(&field.stage().window(), Qt::Key_End);
    QTest::keyClick(&field.stage().window(), '!');
    EXPECT_EQ(edited->last(), QVariantList{QStringLiteral("elsewhere!")});
}

TEST_F(ControlsTest, ButtonsArePressedByPointerKeyAndScreenReader) {
    for (const char *type : {"FilledButton", "OutlinedButton"}) {
        ShownControl button(type, {{QStringLiteral("text"), QStringLiteral("Go")}}, {90, 40});
        const auto clicked = button.spy(SIGNAL(clicked()));
        button.focus();
        button.press(Qt::Key_Space);
        button.press(Qt::Key_Return);
        button.press(Qt::Key_Enter);
        button.click();
        button.spoken().actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_EQ(clicked->size(), 5) << type;
        EXPECT_EQ(button.spoken().role(), QAccessible::Button);
        EXPECT_EQ(button.spoken().text(QAccessible::Name), u"Go");
        EXPECT_THAT(button.stage().warnings(), IsEmpty());
    }
}

TEST_F(ControlsTest, ASidebarRowSaysWhetherItIsSelected) {
    ShownControl row(
        "SidebarRow",
        {{QStringLiteral("tab"), QVariant::fromValue(SidebarTab{QStringLiteral("General"),
                                                                QStringLiteral("pawprint.fill")})},
         {QStringLiteral("isSelected"), true}},
        {180, 36});
    EXPECT_EQ(row.spoken().role(), QAccessible::PageTab);
    EXPECT_EQ(row.spoken().text(QAccessible::Name), u"General");
    EXPECT_TRUE(row.spoken().state().selected);
    EXPECT_THAT(row.stage().warnings(), IsEmpty());
}

} // namespace
} // namespace vantrel
