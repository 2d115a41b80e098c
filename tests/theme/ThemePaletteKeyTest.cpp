#include <theme/Theme.h>
#include <theme/ThemeModule.h>
#include <theme/ThemePalette.h>
#include <theme/ThemePaletteKey.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <gtest/gtest.h>

#include <memory>

namespace vantrel {

namespace {

/// Items of a window, each of which may or may not have asked for its palette.
class ThemePaletteKeyTest : public testing::Test {
protected:
    static ThemePaletteKey &key(QObject &object) {
        return *qobject_cast<ThemePaletteKey *>(
            qmlAttachedPropertiesObject<ThemePaletteKey>(&object));
    }

    static bool has(QObject &object, Theme theme) {
        return key(object).palette() == ThemePalette(palette(theme));
    }

    static void set(QObject &object, Theme theme) {
        key(object).setPalette(ThemePalette(palette(theme)));
    }

    ThemePaletteKeyTest() {
        useThemeModule();
        engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
        // The types of a module are known from its first import on.
        make("import QtQml\nimport Vantrel.Theme\nQtObject {}");
        outer.setParentItem(window.contentItem());
        middle.setParentItem(&outer);
        inner.setParentItem(&middle);
    }

    std::unique_ptr<QObject> make(const char *source) {
        QQmlComponent component(&engine);
        component.setData(source, QUrl(QStringLiteral("qrc:/Test.qml")));
        std::unique_ptr<QObject> made(component.create());
        EXPECT_TRUE(made) << component.errorString().toStdString();
        return made;
    }

    QQmlEngine engine;
    QQuickWindow window;
    QQuickItem outer;
    QQuickItem middle;
    QQuickItem inner;
};

} // namespace

TEST_F(ThemePaletteKeyTest, IsHearthWhereNobodySetsOne) {
    EXPECT_TRUE(has(inner, Theme::hearth));
    EXPECT_TRUE(has(window, Theme::hearth));
    EXPECT_TRUE(has(engine, Theme::hearth));
}

TEST_F(ThemePaletteKeyTest, IsThatOfAnAncestorThatSetOneBefore) {
    set(outer, Theme::dusk);
    EXPECT_TRUE(has(inner, Theme::dusk));
}

TEST_F(ThemePaletteKeyTest, IsThatOfAnAncestorThatSetsOneAfterwards) {
    ASSERT_TRUE(has(inner, Theme::hearth));
    set(outer, Theme::dusk);
    EXPECT_TRUE(has(inner, Theme::dusk));
}

TEST_F(ThemePaletteKeyTest, IsThatOfTheNearestAncestor) {
    ASSERT_TRUE(has(inner, Theme::hearth));
    set(outer, Theme::dusk);
    set(middle, Theme::summit);
    EXPECT_TRUE(has(inner, Theme::summit));
    set(outer, Theme::chestnut);
    EXPECT_TRUE(has(inner, Theme::summit));
}

TEST_F(ThemePaletteKeyTest, IsItsOwnWhereItSetOne) {
    set(outer, Theme::dusk);
    set(inner, Theme::summit);
    EXPECT_TRUE(has(inner, Theme::summit));
    EXPECT_TRUE(has(middle, Theme::dusk));
}

TEST_F(ThemePaletteKeyTest, GoesBackToTheOuterOneWhenTheNearestTakesItsOwnBack) {
    set(outer, Theme::dusk);
    set(middle, Theme::summit);
    ASSERT_TRUE(has(inner, Theme::summit));
    key(middle).resetPalette();
    EXPECT_TRUE(has(middle, Theme::dusk));
    EXPECT_TRUE(has(inner, Theme::dusk));
    set(outer, Theme::chestnut);
    EXPECT_TRUE(has(inner, Theme::chestnut));
}

TEST_F(ThemePaletteKeyTest, StaysWithTheNearestWhenItSetsWhatWasInheritedAnyway) {
    set(outer, Theme::dusk);
    ASSERT_TRUE(has(inner, Theme::dusk));
    set(middle, Theme::dusk);
    set(outer, Theme::summit);
    EXPECT_TRUE(has(inner, Theme::dusk));
}

TEST_F(ThemePaletteKeyTest, IsThatOfTheWindow) {
    ASSERT_TRUE(has(inner, Theme::hearth));
    ASSERT_TRUE(has(*window.contentItem(), Theme::hearth));
    set(window, Theme::dusk);
    EXPECT_TRUE(has(inner, Theme::dusk));
    EXPECT_TRUE(has(*window.contentItem(), Theme::dusk));
    QQuickItem later;
    later.setParentItem(&inner);
    EXPECT_TRUE(has(later, Theme::dusk));
}

TEST_F(ThemePaletteKeyTest, FollowsTheItemIntoAnotherBranch) {
    QQuickItem other;
    other.setParentItem(window.contentItem());
    set(outer, Theme::dusk);
    set(other, Theme::summit);
    ASSERT_TRUE(has(inner, Theme::dusk));
    inner.setParentItem(&other);
    EXPECT_TRUE(has(inner, Theme::summit));
}

TEST_F(ThemePaletteKeyTest, FollowsAnAncestorThatAskedForNoneIntoAnotherBranch) {
    QQuickItem other;
    other.setParentItem(window.contentItem());
    set(outer, Theme::dusk);
    set(other, Theme::summit);
    ASSERT_TRUE(has(inner, Theme::dusk));
    middle.setParentItem(&other);
    EXPECT_TRUE(has(inner, Theme::summit));
    set(outer, Theme::chestnut);
    EXPECT_TRUE(has(inner, Theme::summit));
    set(other, Theme::alpineDawn);
    EXPECT_TRUE(has(inner, Theme::alpineDawn));
}

TEST_F(ThemePaletteKeyTest, FollowsTheItemIntoAnotherWindow) {
    QQuickWindow otherWindow;
    set(window, Theme::dusk);
    set(otherWindow, Theme::summit);
    ASSERT_TRUE(has(inner, Theme::dusk));
    outer.setParentItem(otherWindow.contentItem());
    EXPECT_TRUE(has(inner, Theme::summit));
}

TEST_F(ThemePaletteKeyTest, IsHearthAgainOutsideOfAnyTree) {
    set(outer, Theme::dusk);
    ASSERT_TRUE(has(inner, Theme::dusk));
    inner.setParentItem(nullptr);
    EXPECT_TRUE(has(inner, Theme::hearth));
}

TEST_F(ThemePaletteKeyTest, OutlivesTheAncestorThatSetIt) {
    auto parent = std::make_unique<QQuickItem>(window.contentItem());
    QQuickItem child;
    child.setParentItem(parent.get());
    set(*parent, Theme::dusk);
    ASSERT_TRUE(has(child, Theme::dusk));
    parent.reset();
    EXPECT_TRUE(has(child, Theme::hearth));
}

TEST_F(ThemePaletteKeyTest, AnnouncesOnlyChanges) {
    int changes = 0;
    const QObject body;
    QObject::connect(&key(inner), &ThemePaletteKey::paletteChanged, &body, [&] { ++changes; });
    set(outer, Theme::hearth);
    EXPECT_EQ(changes, 0);
    set(outer, Theme::dusk);
    EXPECT_EQ(changes, 1);
    set(outer, Theme::dusk);
    set(middle, Theme::dusk);
    EXPECT_EQ(changes, 1);
}

TEST_F(ThemePaletteKeyTest, IsReadAndBoundInQml) {
    const auto root = make(R"(
        import QtQuick
        import Vantrel.Theme
        Item {
            id: root
            property themePalette chosen
            property bool isChosen: true
            property color seen: leaf.ThemePaletteKey.palette.accent
            property bool isSeenDark: leaf.ThemePaletteKey.palette.isDark
            ThemePaletteKey.palette: root.isChosen ? root.chosen : undefined
            Item { Item { id: leaf } }
        })");
    ASSERT_TRUE(root);
    const auto seen = [&] { return root->property("seen").value<QColor>().name(); };
    EXPECT_EQ(seen(), QStringLiteral("#e8a04c"));

    root->setProperty("chosen", QVariant::fromValue(ThemePalette(palette(Theme::summit))));
    EXPECT_EQ(seen(), QStringLiteral("#5a7b5c"));
    root->setProperty("chosen", QVariant::fromValue(ThemePalette(palette(Theme::dusk))));
    EXPECT_TRUE(root->property("isSeenDark").toBool());
    root->setProperty("isChosen", false);
    EXPECT_FALSE(root->property("isSeenDark").toBool());
}

TEST(ThemePaletteTest, GivesEachColorAndItsOpacity) {
    for (const Theme theme : allThemes) {
        const Palette &plain = palette(theme);
        const ThemePalette seen(plain);
        const auto expectSame = [](const QColor &color, const Color &expected) {
            EXPECT_NEAR(color.redF(), expected.red, 1e-4);
            EXPECT_NEAR(color.greenF(), expected.green, 1e-4);
            EXPECT_NEAR(color.blueF(), expected.blue, 1e-4);
            EXPECT_NEAR(color.alphaF(), expected.alpha, 1e-4);
        };
        expectSame(seen.surfaceBackground(), plain.surfaceBackground);
        expectSame(seen.primaryText(), plain.primaryText);
        expectSame(seen.secondaryText(), plain.secondaryText);
        expectSame(seen.accent(), plain.accent);
        expectSame(seen.accentForeground(), plain.accentForeground);
        expectSame(seen.dimSurface(), plain.dimSurface);
        expectSame(seen.dotStroke(), plain.dotStroke);
        EXPECT_EQ(seen.isDark(), plain.isDark);
    }
}

} // namespace vantrel
