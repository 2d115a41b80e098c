#include "ShownView.h"

#include <takeover/TitleFit.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace vantrel {

namespace {

enum class Face { urgent, joined, echo };

using Row = std::tuple<QSize, Face>;

QStringList titles() {
    return {
        QStringLiteral("Standup"),
        QStringLiteral("Design review: onboarding, second round with research"),
        QStringLiteral("planning ").repeated(34).first(300),
        QString(300, QLatin1Char('W')),
        QString(120, QLatin1Char('m')),
        QStringLiteral("one ") + QString(120, QLatin1Char('m')) + QStringLiteral(" two"),
        QStringLiteral("مراجعة خطة الربع الثالث مع فريق التصميم والبحث في القاعة الكبرى")
            .repeated(4),
        QStringLiteral("פגישת צוות שבועית: תכנון הרבעון"),
        QStringLiteral("🎉🚀🎂").repeated(40),
        QStringLiteral("季度规划会议与产品设计研究团队").repeated(20),
        QStringLiteral("a\n\n\n\nb\u2028\u2028c\u2029d"),
        QStringLiteral("\u202Ereversed \u2066unclosed"),
        QStringLiteral("z") + QString(400, QChar(0x0301)),
        QString(5000, QLatin1Char('x')),
        QString(),
    };
}

/// The faces on every kind of screen. Each title comes with and without a line of copy, and all
/// palettes take turns: none has a say in the layout.
class TakeoverLayoutTest : public testing::TestWithParam<Row>, protected ShownView {
protected:
    QSize size = std::get<0>(GetParam());
    Face face = std::get<1>(GetParam());

    QList<QQuickItem *> column(gallery::Stage &stage) const {
        static const char *const names[] = {"urgentFace", "joinedFace", "echoFace"};
        const auto *found = stage.find(QLatin1String(names[static_cast<int>(face)]));
        QList<QQuickItem *> shown;
        const auto children = found->childItems();
        for (QQuickItem *child : children) {
            if (child->isVisible() && child->height() > 0 && child->width() > 1)
                shown += child;
        }
        return shown;
    }

    /// A title that was found to fit is drawn whole.
    static void expectMeasured(const QQuickItem &title, const QString &circumstance) {
        const auto fit = title.property("fit").value<TitleFit>();
        const int lines = title.property("lineCount").toInt();
        EXPECT_TRUE(fit.isCut || !title.property("isCut").toBool()) << circumstance.toStdString();
        EXPECT_LE(lines, fit.pixelSize == title.property("fullSize").toInt() ? 2 : 4)
            << circumstance.toStdString();
    }

    void expectFits(gallery::Stage &stage, const QString &circumstance) {
        const QRectF screen(0, 0, size.width(), size.height());
        QRectF before(0, 0, size.width(), 0);
        const auto items = column(stage);
        ASSERT_FALSE(items.isEmpty());
        for (QQuickItem *item : items) {
            const auto parts = gallery::withDescendants(*item);
            QRectF taken;
            for (const QQuickItem *part : parts) {
                if (part->isVisible() && part->opacity() > 0)
                    taken |= part->mapRectToScene(part->boundingRect());
            }
            EXPECT_TRUE(screen.contains(taken))
                << circumstance.toStdString() << ": " << item->objectName().toStdString()
                << " leaves the screen";
            EXPECT_GE(taken.top(), before.bottom() - 0.5)
                << circumstance.toStdString() << ": " << item->objectName().toStdString()
                << " stands over what comes before";
            before = taken;
        }
        if (const QQuickItem *title = stage.find(QStringLiteral("title")))
            expectMeasured(*title, circumstance);
        EXPECT_TRUE(stage.warnings().isEmpty())
            << stage.warnings().join(QLatin1Char('\n')).toStdString();
    }
};

std::string nameOf(const testing::TestParamInfo<Row> &row) {
    static const char *const faces[] = {"Urgent", "Joined", "Echo"};
    const QSize size = std::get<0>(row.param);
    return faces[static_cast<int>(std::get<1>(row.param))] + std::to_string(size.width()) + "x" +
           std::to_string(size.height());
}

} // namespace

TEST_P(TakeoverLayoutTest, FitsWithoutOverlap) {
    std::size_t turn = 0;
    if (face == Face::joined)
        phaseState.phase.set(TakeoverPhase::joined);
    for (const QString &title : titles()) {
        for (const bool hasCopyLine : {true, false}) {
            const Theme theme = allThemes.at(turn++ % allThemes.size());
            const QString circumstance = title.left(20) + QStringLiteral(" in ") + rawValue(theme);
            context.title = title;
            context.copyLine.reset();
            if (hasCopyLine)
                context.copyLine =
                    QStringLiteral("A one-off — easy to forget. Not on Tobble's watch.");
            context.primaryAction = TakeoverContext::PrimaryAction::headingOver();
            if (face == Face::echo) {
                gallery::Stage stage(takeoverEchoContent(title, palette(theme)), size);
                expectFits(stage, circumstance);
            } else {
                expectFits(make(theme, size), circumstance);
            }
        }
    }
}

TEST_P(TakeoverLayoutTest, KeepsTheSizesOfWhatIsPressed) {
    if (face != Face::urgent)
        return;
    make(Theme::hearth, size);
    EXPECT_GE(item("primaryButton").width(), 200.0);
    for (const char *button : {"primaryButton", "snoozeButton", "dismissButton"})
        EXPECT_GE(item(button).height(), 56.0);
}

TEST_P(TakeoverLayoutTest, SetsAShortTitleLarge) {
    if (face == Face::joined)
        phaseState.phase.set(TakeoverPhase::joined);
    std::unique_ptr<gallery::Stage> echo;
    gallery::Stage *stage = nullptr;
    if (face == Face::echo) {
        echo = std::make_unique<gallery::Stage>(
            takeoverEchoContent(context.title, palette(Theme::hearth)), size);
        stage = echo.get();
    } else {
        stage = &make(Theme::hearth, size);
    }
    const char *name = face == Face::joined ? "madeIt" : "title";
    const double fullSize = stage->find(QLatin1String(name))->property("fullSize").toDouble();
    EXPECT_GE(fullSize, 0.04 * size.height());
    EXPECT_LE(fullSize, 0.06 * size.height() + 0.5);
}

INSTANTIATE_TEST_SUITE_P(Screens, TakeoverLayoutTest,
                         testing::Combine(testing::Values(QSize(800, 480), QSize(1024, 600),
                                                          QSize(1366, 768), QSize(1280, 1024),
                                                          QSize(1920, 1080), QSize(5120, 1440),
                                                          QSize(3840, 2160), QSize(1080, 1920)),
                                          testing::Values(Face::urgent, Face::joined, Face::echo)),
                         nameOf);

} // namespace vantrel
