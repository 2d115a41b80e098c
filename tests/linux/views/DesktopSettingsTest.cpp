#include <linux/views/DesktopSettings.h>
#include <linux/views/ViewEngine.h>

#include <QQuickItem>
#include <QQuickWindow>

#include <desktop/OtherProgram.h>
#include <desktop/SettingsDaemon.h>
#include <gtest/gtest.h>

namespace vantrel::tests {
namespace {

QByteArray manySettings(QDataStream::ByteOrder order) {
    SettingsList settings(order);
    return settings.text("Net/ThemeName", "Adwaita")
        .color("Some/Color")
        .number("Gtk/EnableAnimations", 0)
        .text("Gtk/FontName", "")
        .number("Xft/DPI", -96)
        .data();
}

TEST(DesktopSettingsTest, FindsANumberAmongOthersInEitherByteOrder) {
    for (const auto order : {QDataStream::LittleEndian, QDataStream::BigEndian}) {
        const DesktopSettings settings(manySettings(order));
        EXPECT_EQ(settings.integer("Gtk/EnableAnimations"), 0);
        EXPECT_EQ(settings.integer("Xft/DPI"), -96);
        EXPECT_EQ(settings.integer("Net/ThemeName"), std::nullopt);
        EXPECT_EQ(settings.integer("Gtk/Nothing"), std::nullopt);
        EXPECT_TRUE(settings.isMotionReduced());
    }
}

TEST(DesktopSettingsTest, LetsThingsMoveUnlessTheDesktopSaysOtherwise) {
    EXPECT_FALSE(DesktopSettings({}).isMotionReduced());
    EXPECT_FALSE(DesktopSettings(SettingsList().data()).isMotionReduced());
    EXPECT_FALSE(
        DesktopSettings(SettingsList().number("Gtk/EnableAnimations", 1).data()).isMotionReduced());
}

TEST(DesktopSettingsTest, SurvivesEveryPieceOfAList) {
    const QByteArray data = manySettings(QDataStream::LittleEndian);
    for (qsizetype length = 0; length < data.size(); ++length)
        EXPECT_EQ(DesktopSettings(data.first(length)).integer("Xft/DPI"), std::nullopt) << length;
}

TEST(DesktopSettingsTest, SurvivesLengthsAndKindsThatCannotBe) {
    for (qsizetype place = 8; place < 24; ++place) {
        QByteArray data = manySettings(QDataStream::LittleEndian);
        data[place] = '\xff';
        (void)DesktopSettings(data).integer("Xft/DPI");
    }
}

TEST(DesktopSettingsTest, AreThoseOfTheDaemonThatRuns) {
    OtherProgram program;
    EXPECT_FALSE(DesktopSettings::ofServer().isMotionReduced());
    {
        const SettingsDaemon daemon(program, manySettings(QDataStream::LittleEndian));
        EXPECT_TRUE(DesktopSettings::ofServer().isMotionReduced());
    }
    EXPECT_FALSE(DesktopSettings::ofServer().isMotionReduced());
}

TEST(ViewMotionTest, FollowsTheDesktopWithEachView) {
    OtherProgram program;
    ViewEngine engine;
    const auto isStill = [&] {
        QQuickWindow window;
        const auto item =
            engine.makeItem({u"Views.Tests"_qs, u"Moving"_qs, {}}, window, ItemSize::ofContent);
        return item && item->property("reducedMotion").toBool();
    };
    EXPECT_FALSE(isStill());
    {
        const SettingsDaemon daemon(program, manySettings(QDataStream::LittleEndian));
        EXPECT_TRUE(isStill());
    }
    EXPECT_FALSE(isStill());
}

TEST(ViewMotionTest, TellsAViewThatIsThereAlready) {
    OtherProgram program;
    ViewEngine engine;
    QQuickWindow window;
    const ViewContent content{u"Views.Tests"_qs, u"Moving"_qs, {}};
    const auto item = engine.makeItem(content, window, ItemSize::ofContent);
    ASSERT_TRUE(item);
    {
        const SettingsDaemon daemon(program, manySettings(QDataStream::LittleEndian));
        followDesktop(*item, content);
        EXPECT_TRUE(item->property("reducedMotion").toBool());
    }
    followDesktop(*item, content);
    EXPECT_FALSE(item->property("reducedMotion").toBool());
}

TEST(ViewMotionTest, LeavesAContentItsOwnChoice) {
    ViewEngine engine;
    QQuickWindow window;
    const ViewContent content{u"Views.Tests"_qs, u"Moving"_qs, {{u"reducedMotion"_qs, true}}};
    const auto item = engine.makeItem(content, window, ItemSize::ofContent);
    ASSERT_TRUE(item);
    followDesktop(*item, content);
    EXPECT_TRUE(item->property("reducedMotion").toBool());
}

} // namespace
} // namespace vantrel::tests
