#include <menubar/MenuModel.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

class MenuModelTest : public testing::Test {
protected:
    [[nodiscard]] QVariant data(int row, MenuModel::Role role) const {
        return model.data(model.index(row), role);
    }

    int chosen = 0;
    MenuModel model{[](const std::function<void()> &action) { action(); }};
};

TEST_F(MenuModelTest, TellsWhatEachLineIs) {
    model.show({MenuItem{QStringLiteral("Quit"), QStringLiteral("q"), [] {}}, MenuSeparator{},
                MenuItem{QStringLiteral("Barred"), {}, {}}},
               {});
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(data(0, MenuModel::TitleRole), QStringLiteral("Quit"));
    EXPECT_EQ(data(0, MenuModel::KeyEquivalentRole), QStringLiteral("q"));
    EXPECT_EQ(data(0, MenuModel::IsEnabledRole), true);
    EXPECT_EQ(data(0, MenuModel::IsSeparatorRole), false);
    EXPECT_EQ(data(1, MenuModel::IsSeparatorRole), true);
    EXPECT_EQ(data(1, MenuModel::IsEnabledRole), false);
    EXPECT_EQ(data(2, MenuModel::IsEnabledRole), false);
}

TEST_F(MenuModelTest, ChoosesByKeyWhateverItsCase) {
    model.show({MenuItem{QStringLiteral("None"), {}, [this] { chosen += 100; }},
                MenuItem{QStringLiteral("Quit"), QStringLiteral("q"), [this] { ++chosen; }}},
               {});
    EXPECT_TRUE(model.chooseByKey(QStringLiteral("q")));
    EXPECT_TRUE(model.chooseByKey(QStringLiteral("Q")));
    EXPECT_FALSE(model.chooseByKey(QStringLiteral("x")));
    EXPECT_FALSE(model.chooseByKey({}));
    EXPECT_EQ(chosen, 2);
}

TEST_F(MenuModelTest, StaysWhereNothingCanBeChosen) {
    model.show({MenuSeparator{}, MenuItem{QStringLiteral("Barred"), {}, {}}}, {});
    EXPECT_EQ(model.rowAfter(-1, 1), -1);
    EXPECT_EQ(model.rowAfter(-1, -1), -1);
    model.choose(0);
    model.choose(1);
    model.choose(7);
    model.choose(-1);
    model.show({}, {});
    EXPECT_EQ(model.rowAfter(-1, 1), -1);
}

} // namespace
} // namespace vantrel
