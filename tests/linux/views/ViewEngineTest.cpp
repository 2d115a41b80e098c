#include <linux/views/ViewEngine.h>

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <gtest/gtest.h>

namespace vantrel::tests {
namespace {

class ViewEngineTest : public testing::Test {
protected:
    std::unique_ptr<QQuickItem> make(const QString &type, const QVariantMap &properties,
                                     ItemSize size = ItemSize::ofContent) {
        return engine.makeItem({u"Views.Tests"_qs, type, properties}, window, size);
    }

    ViewEngine engine;
    QQuickWindow window;
};

TEST_F(ViewEngineTest, HangsAnItemOfItsOwnSizeIntoTheWindow) {
    window.contentItem()->setSize({300, 200});
    const auto item = make(u"Sized"_qs, {{u"title"_qs, u"x"_qs}});
    ASSERT_TRUE(item);
    EXPECT_EQ(item->parentItem(), window.contentItem());
    EXPECT_EQ(item->size(), QSizeF(120, 40));
    EXPECT_TRUE(item->hasFocus());
}

TEST_F(ViewEngineTest, GivesTheWindowsSizeBeforeTheItemIsComplete) {
    window.contentItem()->setSize({300, 200});
    const auto item = make(u"Sized"_qs, {{u"title"_qs, u"x"_qs}}, ItemSize::ofWindow);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->property("completedWidth").toDouble(), 300.0);
    window.contentItem()->setSize({500, 250});
    EXPECT_EQ(item->size(), QSizeF(500, 250));
}

TEST_F(ViewEngineTest, MakesNothingOfWhatCannotBeMade) {
    EXPECT_FALSE(make(u"NoSuchType"_qs, {}));
    EXPECT_FALSE(make(u"Faulty"_qs, {}));
    EXPECT_FALSE(make(u"Sized"_qs, {})); // Without the title it asks for.
    EXPECT_FALSE(engine.makeItem({u"QtQml"_qs, u"QtObject"_qs, {}}, window, ItemSize::ofContent));
    EXPECT_FALSE(engine.makeItem({u"No.Such"_qs, u"Sized"_qs, {}}, window, ItemSize::ofContent));
    EXPECT_TRUE(window.contentItem()->childItems().isEmpty());
    EXPECT_TRUE(make(u"Sized"_qs, {{u"title"_qs, u"x"_qs}}));
}

TEST_F(ViewEngineTest, SharesOneEngineAmongAllItems) {
    QQuickWindow other;
    const auto first = make(u"Sized"_qs, {{u"title"_qs, u"x"_qs}});
    const auto second = engine.makeItem({u"Views.Tests"_qs, u"Sized"_qs, {{u"title"_qs, u"y"_qs}}},
                                        other, ItemSize::ofContent);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(qmlEngine(first.get()), qmlEngine(second.get()));
}

TEST_F(ViewEngineTest, DrawsInSoftware) {
    EXPECT_EQ(QQuickWindow::sceneGraphBackend(), u"software"_qs);
}

} // namespace
} // namespace vantrel::tests
