#include "ShownView.h"

namespace vantrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MenuViewTest : public testing::Test, protected ShownView {
protected:
    ~MenuViewTest() override {
        EXPECT_THAT(stage().warnings(), IsEmpty());
        leave();
    }

    gallery::Stage &make(Qt::LayoutDirection direction = Qt::LeftToRight) {
        const auto choose = [this](const char *name) {
            return [this, name] { chosen.emplace_back(name); };
        };
        model.show({MenuItem{QStringLiteral("First <b>"), {}, choose("first")},
                    MenuItem{QStringLiteral("Second"), QStringLiteral(","), choose("second")},
                    MenuItem{QStringLiteral("Barred"), QStringLiteral("b"), {}}, MenuSeparator{},
                    MenuItem{QStringLiteral("Last"), QStringLiteral("q"), choose("last")}},
                   {ThemePalette(), direction});
        return stand(menuContent(model));
    }

    [[nodiscard]] int current() const { return stage().root().property("current").toInt(); }

    std::vector<std::string> chosen;
    MenuModel model{[](const std::function<void()> &action) { action(); }};
};

} // namespace

TEST_F(MenuViewTest, ShowsItsItemsAndTheirKeys) {
    make();
    EXPECT_EQ(texts(),
              (QStringList{QStringLiteral("First <b>"), QStringLiteral("Second"),
                           QStringLiteral(","), QStringLiteral("Barred"), QStringLiteral("B"),
                           QStringLiteral("Last"), QStringLiteral("Q")}));
    for (const QQuickItem *row : all("MenuRow"))
        EXPECT_TRUE(stage().root().boundingRect().contains(area(*row)));
}

TEST_F(MenuViewTest, TheArrowsPassWhatCannotBeChosen) {
    make();
    std::vector<int> rows;
    for (int step = 0; step < 4; ++step) {
        press(Qt::Key_Down);
        rows.push_back(current());
    }
    EXPECT_THAT(rows, ElementsAre(0, 1, 4, 0));
    press(Qt::Key_Up);
    EXPECT_EQ(current(), 4);
    press(Qt::Key_Home);
    EXPECT_EQ(current(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(current(), 4);
}

TEST_F(MenuViewTest, UpStartsAtTheEnd) {
    make();
    press(Qt::Key_Up);
    EXPECT_EQ(current(), 4);
}

TEST_F(MenuViewTest, ReturnChoosesTheLitItem) {
    make();
    press(Qt::Key_Return);
    EXPECT_THAT(chosen, IsEmpty());
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_THAT(chosen, ElementsAre("second"));
}

TEST_F(MenuViewTest, KeysChooseTheirItems) {
    make();
    press(Qt::Key_Comma);
    press(Qt::Key_Q);
    press(Qt::Key_B); // It cannot be chosen.
    press(Qt::Key_X);
    EXPECT_THAT(chosen, ElementsAre("second", "last"));
}

TEST_F(MenuViewTest, TheFirstLetterLightsAnItem) {
    make();
    press(Qt::Key_F);
    EXPECT_EQ(current(), 0);
    press(Qt::Key_S);
    EXPECT_EQ(current(), 1);
    press(Qt::Key_L);
    EXPECT_EQ(current(), 4);
    press(Qt::Key_F);
    EXPECT_EQ(current(), 0) << "on from the end at the beginning";
    press(Qt::Key_F);
    press(Qt::Key_B);
    press(Qt::Key_X);
    EXPECT_EQ(current(), 0) << "no other begins so, and a barred one is passed over";
    EXPECT_THAT(chosen, IsEmpty());
    press(Qt::Key_Return);
    EXPECT_THAT(chosen, ElementsAre("first"));
}

TEST_F(MenuViewTest, ClicksChoose) {
    make();
    for (const QQuickItem *row : all("MenuRow"))
        click(*row);
    EXPECT_THAT(chosen, testing::UnorderedElementsAre("first", "second", "last"));
}

TEST_F(MenuViewTest, ThePointerLights) {
    make();
    const auto rows = all("MenuRow");
    hover(*rows[1]);
    EXPECT_TRUE(stage().waitFor([&] { return current() == 1; }));
}

TEST_F(MenuViewTest, LightsNothingWhenItIsShownAnew) {
    make();
    press(Qt::Key_Down);
    model.show({MenuItem{QStringLiteral("A much longer title than before"), {}, [] {}}}, {});
    EXPECT_EQ(current(), -1);
    EXPECT_TRUE(texts().contains(QStringLiteral("A much longer title than before")));
    EXPECT_GT(stage().root().implicitWidth(), 200.0);
}

TEST_F(MenuViewTest, IsMirroredWhereReadingGoesToTheLeft) {
    make();
    const QQuickItem *second = all("MenuRow")[1];
    const auto keyOf = [this](QQuickItem *row) {
        QRectF place;
        for (QQuickItem *part : gallery::withDescendants(*row)) {
            if (QByteArray(part->metaObject()->className()).startsWith("KeyCap"))
                place = area(*part);
        }
        return place;
    };
    EXPECT_GT(keyOf(const_cast<QQuickItem *>(second)).center().x(), 90.0);
    make(Qt::RightToLeft);
    EXPECT_LT(keyOf(all("MenuRow")[1]).center().x(), 90.0);
}

TEST_F(MenuViewTest, NamesEveryPartForScreenReaders) {
    make();
    EXPECT_THAT(spoken(), ElementsAre(Spoken{QAccessible::MenuItem, QStringLiteral("First <b>")},
                                      Spoken{QAccessible::MenuItem, QStringLiteral("Second")},
                                      Spoken{QAccessible::MenuItem, QStringLiteral("Barred")},
                                      Spoken{QAccessible::Separator, QString()},
                                      Spoken{QAccessible::MenuItem, QStringLiteral("Last")}));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&stage().root())->role(),
              QAccessible::PopupMenu);
}

} // namespace vantrel
