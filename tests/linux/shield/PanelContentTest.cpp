#include "ShieldingPanelsTest.h"

#include <QStringList>

namespace vantrel::tests {
namespace {

QStringList criticalMessages;

void keepCritical(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (type == QtCriticalMsg && QLatin1String(context.category).endsWith(u".Shield"_qs))
        criticalMessages.append(text);
}

/// Each parameter is a content that cannot be made.
class PanelContentTest : public testing::TestWithParam<ViewContent> {
protected:
    PanelContentTest() { criticalMessages.clear(); }
    ~PanelContentTest() override { qInstallMessageHandler(m_formerHandler); }

    QtMainQueue queue;
    Desktop desktop{""};
    QtScreenLayout layout{queue};
    ViewEngine views;
    const LayerShell layerShell;
    QtShieldingPanels panels{queue, views, layerShell, TypingGuard::none()};

    QtMessageHandler m_formerHandler = qInstallMessageHandler(&keepCritical);
};

TEST_P(PanelContentTest, GivesWayToAPlainPanelThatHearsTheKeys) {
    const auto panel = panels.makePanel(layout.screens()[0], PanelRole::interactive, GetParam());
    EXPECT_EQ(criticalMessages.size(), 1);
    ASSERT_TRUE(panel);
    std::vector<Key> heard;
    const auto monitor = panels.monitorKeyDown([&](const KeyPress &press) {
        heard.push_back(press.key);
        return true;
    });
    desktop.show(OtherProgram::Kind::unmanaged, leftMonitor, Qt::red);
    panel->orderFront();
    EXPECT_TRUE(waitUntil([&] {
        const QImage picture = desktop.program().picture(leftMonitor);
        return picture.pixel(0, 0) == qRgb(0, 0, 0) && picture.pixel(799, 599) == qRgb(0, 0, 0);
    }));
    desktop.program().strikeKey(keycode::escape);
    EXPECT_TRUE(waitUntil([&] { return heard == std::vector{Key::escape}; }));
}

TEST_P(PanelContentTest, ShowsTheTitleNonetheless) {
    ViewContent titled = GetParam();
    titled.properties.insert(u"title"_qs, u"Standup"_qs);
    const auto panel = panels.makePanel(layout.screens()[0], PanelRole::echo, titled);
    panel->orderFront();
    // Letters in the middle of a black screen.
    EXPECT_TRUE(waitUntil([&] {
        const QImage picture = desktop.program().picture(QRect(300, 250, 200, 100));
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (qGray(picture.pixel(x, y)) > 200)
                    return true;
            }
        }
        return false;
    }));
}

TEST(PanelSizeTest, IsThereBeforeTheContentIsFinishedAndStays) {
    QtMainQueue queue;
    Desktop desktop{""};
    QtScreenLayout layout{queue};
    ViewEngine views;
    const LayerShell layerShell;
    QtShieldingPanels panels{queue, views, layerShell, TypingGuard::none()};
    const auto panel =
        panels.makePanel(layout.screens()[0], PanelRole::echo,
                         {u"Shield.Tests"_qs, u"Counting"_qs, {{u"title"_qs, u"x"_qs}}});
    panel->orderFront();
    EXPECT_TRUE(waitUntil([&] {
        return QColor(desktop.program().picture(leftMonitor).pixel(400, 300)) == QColor("#008000");
    }));
}

INSTANTIATE_TEST_SUITE_P(
    Broken, PanelContentTest,
    testing::Values(ViewContent{u"No.Such.Module"_qs, u"Plain"_qs, {}},
                    ViewContent{u"Shield.Tests"_qs, u"NoSuchType"_qs, {}},
                    ViewContent{u"Shield.Tests"_qs, u"Broken"_qs, {{u"title"_qs, u"x"_qs}}},
                    ViewContent{u"Shield.Tests"_qs, u"Demanding"_qs, {{u"title"_qs, u"x"_qs}}},
                    ViewContent{u"QtQml"_qs, u"QtObject"_qs, {}}));

} // namespace
} // namespace vantrel::tests
