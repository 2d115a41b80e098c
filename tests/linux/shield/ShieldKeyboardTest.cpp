#include "ShieldingPanelsTest.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

namespace vantrel::tests {
namespace {

using Kind = OtherProgram::Kind;

/// Counts the key presses that the X server sends to this program, auto-repeats
/// included.
class DeliveredKeys : public QAbstractNativeEventFilter {
public:
    explicit DeliveredKeys(xcb_keycode_t key) : m_key(key) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
    ~DeliveredKeys() override { QCoreApplication::instance()->removeNativeEventFilter(this); }

    int presses = 0;

    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override {
        const auto *event = static_cast<xcb_generic_event_t *>(message);
        presses += (event->response_type & ~0x80) == XCB_KEY_PRESS && event->pad0 == m_key;
        return false;
    }

private:
    xcb_keycode_t m_key;
};

class ShieldKeyboardTest : public ShieldingPanelsTest {
protected:
    ShieldKeyboardTest() { run({"xset", "r", "rate", "40", "100"}); }

    /// A window of another program that has the keyboard.
    xcb_window_t showFocusedWindow() {
        const xcb_window_t window =
            desktop.show(Kind::ordinary, QRect(100, 100, 300, 200), Qt::red);
        program().focus(window);
        EXPECT_TRUE(waitUntil([&] { return program().focused() == window; }));
        return window;
    }

    std::vector<Key> keys() const {
        std::vector<Key> found;
        for (const KeyPress &press : presses)
            found.push_back(press.key);
        return found;
    }
};

TEST_P(ShieldKeyboardTest, HearsAKeyPressedRightAfterTheyAreInFront) {
    showFocusedWindow();
    showPanels();
    program().strikeKey(keycode::space);
    EXPECT_TRUE(waitUntil([this] { return !presses.empty(); }));
    EXPECT_EQ(keys(), std::vector{Key::space});
}

TEST_P(ShieldKeyboardTest, NamesTheKeysOfATakeover) {
    showPanels();
    for (const xcb_keycode_t key :
         {keycode::escape, keycode::space, keycode::enter, keycode::keypadEnter, keycode::a})
        program().strikeKey(key);
    EXPECT_TRUE(waitUntil([this] { return presses.size() == 5; }));
    EXPECT_EQ(keys(), (std::vector{Key::escape, Key::space, Key::enter, Key::enter, Key::other}));
}

TEST_P(ShieldKeyboardTest, DoesNotTakeAKeyThatWasHeldBeforeForAPress) {
    showFocusedWindow();
    program().pressKey(keycode::space);
    showPanels();
    DeliveredKeys repeats(keycode::space);
    EXPECT_TRUE(waitUntil([&] { return repeats.presses >= 5; })) << "the key does not repeat";
    EXPECT_EQ(presses.size(), 0u);

    program().releaseKey(keycode::space);
    EXPECT_TRUE(hearsAnotherKey()); // A release and a press in one millisecond are an auto-repeat.
    program().strikeKey(keycode::space);
    EXPECT_TRUE(waitUntil([this] { return presses.size() == 2; }));
    EXPECT_EQ(keys(), (std::vector{Key::other, Key::space}));
}

TEST_P(ShieldKeyboardTest, CountsAKeyThatIsHeldOnce) {
    showPanels();
    DeliveredKeys repeats(keycode::space);
    program().pressKey(keycode::space);
    EXPECT_TRUE(waitUntil([&] { return repeats.presses >= 5; })) << "the key does not repeat";
    program().releaseKey(keycode::space);
    EXPECT_TRUE(hearsAnotherKey());
    EXPECT_EQ(keys(), (std::vector{Key::space, Key::other}));
}

TEST_P(ShieldKeyboardTest, GetsTheKeyboardWhenTheProgramThatHasGrabbedItLetsGo) {
    showFocusedWindow();
    ASSERT_TRUE(program().grabKeyboard());
    showPanels();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
    program().strikeKey(keycode::space);
    program().letGoOfKeyboard();
    EXPECT_TRUE(hearsAnotherKey());
    EXPECT_EQ(keys(), std::vector{Key::other}) << "a key of the other program was taken";
    EXPECT_FALSE(program().grabKeyboard()) << "the panel has the focus, but not the keyboard";
}

TEST_P(ShieldKeyboardTest, DoesNotTakeAKeyHeldUnderAnotherProgramsGrabForAPress) {
    ASSERT_TRUE(program().grabKeyboard());
    showPanels();
    program().pressKey(keycode::space);
    program().letGoOfKeyboard();
    DeliveredKeys repeats(keycode::space);
    EXPECT_TRUE(waitUntil([&] { return repeats.presses >= 5; })) << "the key does not repeat";
    EXPECT_EQ(presses.size(), 0u);
}

TEST_P(ShieldKeyboardTest, KeepsTheKeyboardWhenAnotherWindowTakesTheFocus) {
    showPanels();
    const xcb_window_t other = desktop.program().openWindow(Kind::fullScreen, leftMonitor, Qt::red);
    EXPECT_TRUE(waitUntil([&] { return program().isViewable(other); }));
    program().focus(other);
    EXPECT_TRUE(hearsAnotherKey());
    EXPECT_TRUE(waitUntil([&] { return program().focused() != other; }));
}

TEST_P(ShieldKeyboardTest, GivesTheFocusBackToTheWindowThatHadIt) {
    const xcb_window_t other = showFocusedWindow();
    showPanels();
    EXPECT_NE(program().focused(), other);
    interactive->orderOut();
    EXPECT_TRUE(waitUntil([&] { return program().focused() == other; }));
}

TEST_P(ShieldKeyboardTest, GivesTheFocusBackWhenThePanelIsDestroyed) {
    const xcb_window_t other = showFocusedWindow();
    showPanels();
    interactive.reset();
    echo.reset();
    EXPECT_TRUE(waitUntil([&] { return program().focused() == other; }));
}

TEST_P(ShieldKeyboardTest, FreesTheKeyboardForOthersWhenItIsOrderedOut) {
    showPanels();
    EXPECT_FALSE(program().grabKeyboard());
    interactive->orderOut();
    EXPECT_TRUE(program().grabKeyboard());
}

TEST_P(ShieldKeyboardTest, FreesTheKeyboardForOthersWhenThePanelIsDestroyed) {
    showPanels();
    interactive.reset();
    EXPECT_TRUE(program().grabKeyboard());
}

TEST_P(ShieldKeyboardTest, HandsTheKeyboardOnToThePanelThatReplacesIt) {
    const xcb_window_t other = showFocusedWindow();
    showPanels();
    echo = makePanel(1, PanelRole::interactive);
    echo->orderFront();
    interactive.reset();
    EXPECT_FALSE(program().grabKeyboard());
    EXPECT_TRUE(hearsAnotherKey());
    echo.reset();
    EXPECT_TRUE(waitUntil([&] { return program().focused() == other; }));
}

TEST_P(ShieldKeyboardTest, HearsNothingMoreOnceTheSubscriptionIsDropped) {
    showPanels();
    EXPECT_TRUE(hearsAnotherKey());
    monitor.reset();
    DeliveredKeys keysDelivered(keycode::s);
    program().strikeKey(keycode::s);
    EXPECT_TRUE(waitUntil([&] { return keysDelivered.presses == 1; }));
    EXPECT_EQ(presses.size(), 1u);
}

TEST_P(ShieldKeyboardTest, LetsAKeyDestroyThePanelThatHeardIt) {
    showPanels();
    monitor = panels.monitorKeyDown([this](const KeyPress &) {
        interactive.reset();
        echo.reset();
        return true;
    });
    program().strikeKey(keycode::escape);
    EXPECT_TRUE(waitUntil([this] { return !interactive && shows(leftMonitor, Qt::black); }));
}

/// Someone types as the panels come up. Time is manual.
class ShieldTypingTest : public ShieldingPanelsTest {
protected:
    ShieldTypingTest() : ShieldingPanelsTest(manualQueue, TypingGuard()) {
        program().strikeKey(keycode::a);
    }

    /// How often the key is pressed for an answer when it is struck now.
    std::size_t answersTo(xcb_keycode_t key) {
        const std::size_t before = presses.size();
        DeliveredKeys delivered(key);
        program().strikeKey(key);
        EXPECT_TRUE(waitUntil([&] { return delivered.presses == 1; }));
        QCoreApplication::processEvents();
        return presses.size() - before;
    }
};

TEST_P(ShieldTypingTest, TheKeysOfATextAreNoAnswer) {
    showPanels();
    EXPECT_EQ(answersTo(keycode::space), 0u);
    manualQueue.advance(Seconds{0.35});
    EXPECT_EQ(answersTo(keycode::enter), 0u);
    manualQueue.advance(Seconds{0.4});
    EXPECT_EQ(answersTo(keycode::space), 1u);
}

TEST_P(ShieldTypingTest, TheEndOfATextAtALockedScreenIsNoAnswer) {
    desktop.show(Kind::unmanaged, wholeScreen, Qt::darkGray);
    ASSERT_TRUE(program().grabKeyboard());
    showPanels();
    manualQueue.advance(Seconds{60});
    EXPECT_TRUE(waitUntil([this] {
        program().strikeKey(keycode::a);
        program().letGoOfKeyboard();
        manualQueue.advance(Seconds{0.1});
        return !program().grabKeyboard();
    }));
    EXPECT_EQ(answersTo(keycode::enter), 0u);
}

/// What a key writes with a modifier held, on a keyboard layout (setxkbmap's words).
struct Stroke {
    const char *name;
    std::vector<std::string> layout;
    xcb_keycode_t modifier; ///< Zero for none.
    xcb_keycode_t key;
    const char *characters;
};

void PrintTo(const Stroke &stroke, std::ostream *stream) {
    *stream << stroke.name;
}

class CharactersTest : public testing::TestWithParam<Stroke> {
protected:
    ~CharactersTest() override { run({"setxkbmap", "-layout", "us", "-option", ""}); }
};

TEST_P(CharactersTest, AreThoseOfTheKeyAloneAndOfShift) {
    const Stroke &stroke = GetParam();
    std::vector<std::string> command{"setxkbmap", "-option", ""};
    command.insert(command.end(), stroke.layout.begin(), stroke.layout.end());
    ASSERT_EQ(run(command), 0);
    Desktop desktop{""};
    QtMainQueue queue;
    QtScreenLayout layout{queue};
    ViewEngine views;
    const LayerShell layerShell;
    QtShieldingPanels panels{queue, views, layerShell, TypingGuard::none()};
    const auto panel =
        panels.makePanel(layout.screens()[0], PanelRole::interactive,
                         {u"Shield.Tests"_qs, u"Plain"_qs, {{u"title"_qs, u"x"_qs}}});
    std::vector<KeyPress> presses;
    const auto monitor = panels.monitorKeyDown([&](const KeyPress &press) {
        presses.push_back(press);
        return true;
    });
    panel->orderFront();

    if (stroke.modifier)
        desktop.program().pressKey(stroke.modifier);
    desktop.program().strikeKey(stroke.key);
    if (stroke.modifier)
        desktop.program().releaseKey(stroke.modifier);
    const std::size_t wanted = stroke.modifier ? 2 : 1;
    ASSERT_TRUE(waitUntil([&] { return presses.size() == wanted; }));
    EXPECT_EQ(presses.back().charactersIgnoringModifiers, QString::fromUtf8(stroke.characters));
    if (stroke.modifier) {
        EXPECT_EQ(presses.front().charactersIgnoringModifiers, QString());
    }
}

const std::vector<std::string> american{"-layout", "us"};
const std::vector<std::string> german{"-layout", "de"};
const std::vector<std::string> french{"-layout", "fr"};
const std::vector<std::string> dvorak{"-layout", "us", "-variant", "dvorak"};
const std::vector<std::string> russian{"-layout", "ru"};
const std::vector<std::string> greek{"-layout", "gr"};
const std::vector<std::string> arabic{"-layout", "ara"};
const std::vector<std::string> georgian{"-layout", "ge"};
const std::vector<std::string> russianAndAmerican{"-layout", "ru,us"};
const std::vector<std::string> greekAndAmerican{"-layout", "gr,us"};

INSTANTIATE_TEST_SUITE_P(
    Layouts, CharactersTest,
    testing::Values(Stroke{"S", american, 0, keycode::s, "s"},
                    Stroke{"ShiftS", american, keycode::leftShift, keycode::s, "S"},
                    Stroke{"ControlS", american, keycode::leftControl, keycode::s, "s"},
                    Stroke{"AltS", american, keycode::leftAlt, keycode::s, "s"},
                    Stroke{"SuperS", american, keycode::leftSuper, keycode::s, "s"},
                    Stroke{"GermanS", german, 0, keycode::s, "s"},
                    Stroke{"GermanAltGrS", german, keycode::altGr, keycode::s, "s"},
                    Stroke{"GermanUmlaut", german, 0, keycode::semicolon, "\xc3\xb6"},
                    Stroke{"FrenchA", french, 0, keycode::a, "q"},
                    Stroke{"DvorakS", dvorak, 0, keycode::semicolon, "s"},
                    Stroke{"DvorakO", dvorak, 0, keycode::s, "o"},
                    Stroke{"RussianAlone", russian, 0, keycode::s, "s"},
                    Stroke{"RussianAloneWithShift", russian, keycode::leftShift, keycode::s, "s"},
                    Stroke{"GreekAlone", greek, 0, keycode::s, "s"},
                    Stroke{"ArabicAlone", arabic, 0, keycode::s, "s"},
                    Stroke{"GeorgianAlone", georgian, 0, keycode::a, "a"},
                    Stroke{"RussianBesideAmerican", russianAndAmerican, 0, keycode::s, "s"},
                    Stroke{"GreekBesideAmerican", greekAndAmerican, 0, keycode::s, "s"},
                    Stroke{"Escape", american, 0, keycode::escape, ""}),
    [](const auto &instance) { return std::string(instance.param.name); });

} // namespace

VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldKeyboardTest);
VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldTypingTest);

} // namespace vantrel::tests
