#include <linux/statusitem/HostTexts.h>

#include <gtest/gtest.h>

namespace vantrel::tests {

namespace {

ItemLook look(const std::optional<QString> &title, const QString &toolTip) {
    ItemLook look{QStringLiteral("pawprint"), QStringLiteral("Vantrel"), {}, toolTip};
    if (title)
        look.title = StatusTitle{Color{}, *title};
    return look;
}

} // namespace

TEST(HostTextsTest, NameTheProgramAloneWithoutATitle) {
    const ItemLook plain = look({}, QStringLiteral("Vantrel"));
    EXPECT_EQ(labelText(plain), QString());
    EXPECT_EQ(nameText(plain), QStringLiteral("Vantrel"));
    EXPECT_EQ(hostToolTip(plain), (HostToolTip{{}, {}, QStringLiteral("Vantrel"), {}}));
}

TEST(HostTextsTest, TellWhatTheToolTipAddsToTheProgramsName) {
    EXPECT_EQ(hostToolTip(look({}, QStringLiteral("Vantrel (paused)"))).markup,
              QStringLiteral("<span>Vantrel (paused)</span>"));
}

TEST(HostTextsTest, KeepATitleOnOneLine) {
    const ItemLook broken = look(QStringLiteral("one\ntwo\u2028three\tfour"), {});
    EXPECT_EQ(labelText(broken), QStringLiteral("● one two three four"));
    EXPECT_EQ(nameText(broken), QStringLiteral("one two three four"));
    EXPECT_EQ(detailText(broken), QStringLiteral("one two three four"));
}

} // namespace vantrel::tests
