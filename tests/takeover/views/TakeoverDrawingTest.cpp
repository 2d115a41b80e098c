#include "ShownView.h"

#include <theme/ThemePalette.h>

#include <QQmlEngine>
#include <QQmlError>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace vantrel {

namespace {

/// Of all channels of all pixels, from 0 to 255.
int largestDifference(const QImage &one, const QImage &other) {
    int largest = one.size() == other.size() ? 0 : 255;
    for (int y = 0; largest < 255 && y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb left = one.pixel(x, y);
            const QRgb right = other.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(left) - qRed(right)),
                                std::abs(qGreen(left) - qGreen(right)),
                                std::abs(qBlue(left) - qBlue(right))});
        }
    }
    return largest;
}

/// What the view draws, when, and in which colours.
class TakeoverDrawingTest : public testing::Test, protected ShownView {};

class TakeoverColorsTest : public testing::TestWithParam<Theme>, protected ShownView {};

} // namespace

TEST_F(TakeoverDrawingTest, RollsTheFiguresAndComesToRest) {
    reducedMotion = false;
    gallery::Stage &stage = make();
    stage.show();
    const auto isAtRest = [&] {
        const auto items = gallery::withDescendants(item("countdown"));
        return std::all_of(items.cbegin(), items.cend(), [](const QQuickItem *one) {
            const QVariant progress = one->property("progress");
            return !progress.isValid() || progress.toDouble() == 1.0;
        });
    };
    EXPECT_TRUE(isAtRest());
    queue.advance(Seconds{1.0});
    EXPECT_TRUE(stage.waitFor([&] { return !isAtRest(); }));
    EXPECT_TRUE(stage.waitFor(isAtRest));
    const QImage rested = stage.picture();
    stage.linger();
    const int before = stage.frameCount();
    stage.linger();
    EXPECT_EQ(stage.frameCount(), before);

    reducedMotion = true;
    // The renderer leaves out the last step of a fade when it is finer than it can draw.
    EXPECT_LE(largestDifference(make().picture(), rested), 1);
}

TEST_F(TakeoverDrawingTest, DrawsNoFrameWhileTheTextStays) {
    queue.jumpWallTo(fakes::at("2026-03-02T09:05:00"));
    gallery::Stage &stage = make();
    stage.show();
    stage.linger();
    const int before = stage.frameCount();
    queue.advance(Seconds{30.0});
    stage.linger();
    EXPECT_EQ(stage.frameCount(), before);
}

TEST_F(TakeoverDrawingTest, DrawsOneFrameForEachSecondWithReducedMotion) {
    gallery::Stage &stage = make();
    stage.show();
    stage.linger();
    const int before = stage.frameCount();
    for (int second = 1; second <= 3; ++second) {
        queue.advance(Seconds{1.0});
        EXPECT_TRUE(stage.waitFor([&] { return stage.frameCount() - before == second; }));
    }
    stage.linger();
    EXPECT_EQ(stage.frameCount() - before, 3);
}

TEST_F(TakeoverDrawingTest, ChangesNothingButTheCountdownEachSecond) {
    gallery::Stage &stage = make();
    const QImage before = stage.picture();
    queue.advance(Seconds{1.0});
    const QImage after = stage.picture();
    const QQuickItem &countdown = item("countdown");
    const QRect place = countdown.mapRectToScene(countdown.boundingRect()).toAlignedRect();
    const double ratio = before.devicePixelRatio();
    QRect changed;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y))
                changed |= QRect(x, y, 1, 1);
        }
    }
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_TRUE(
        QRectF(place.x() * ratio, place.y() * ratio, place.width() * ratio, place.height() * ratio)
            .toAlignedRect()
            .contains(changed));
}

TEST_F(TakeoverDrawingTest, CausesNoWarnings) {
    for (const bool isReduced : {true, false}) {
        reducedMotion = isReduced;
        gallery::Stage &stage = make();
        stage.show();
        queue.advance(Seconds{70.0});
        phaseState.phase.set(TakeoverPhase::joined);
        stage.linger();
        EXPECT_TRUE(stage.warnings().isEmpty())
            << stage.warnings().join(QLatin1Char('\n')).toStdString();
        phaseState.phase.set(TakeoverPhase::urgent);
    }
}

TEST_F(TakeoverDrawingTest, GoesWithoutAWarning) {
    QStringList warnings;
    QQmlEngine *engine = qmlEngine(&make(Theme::dusk).root());
    const QObject body;
    QObject::connect(engine, &QQmlEngine::warnings, &body, [&](const QList<QQmlError> &found) {
        for (const QQmlError &warning : found)
            warnings += warning.toString();
    });
    make(Theme::summit).show();
    make(Theme::dusk);
    EXPECT_TRUE(warnings.isEmpty()) << warnings.join(QLatin1Char('\n')).toStdString();
}

TEST_P(TakeoverColorsTest, AreThePalettes) {
    const QImage picture = make(GetParam()).picture();
    const ThemePalette colors(palette(GetParam()));
    const auto at = [&](const QQuickItem &seen, double x, double y) {
        const QPointF place =
            seen.mapToScene({x * seen.width(), y * seen.height()}) * picture.devicePixelRatio();
        return picture.pixelColor(place.toPoint()).name();
    };
    EXPECT_EQ(at(item("urgentFace"), 0.02, 0.9), colors.surfaceBackground().name());
    EXPECT_EQ(at(item("primaryButton"), 0.15, 0.5), colors.accent().name());
    EXPECT_EQ(at(item("hero"), 0.5, 0.62), colors.accent().name());
    EXPECT_EQ(at(item("hero"), 0.5, 0.1), colors.dimSurface().name());
}

INSTANTIATE_TEST_SUITE_P(Themes, TakeoverColorsTest, testing::ValuesIn(allThemes),
                         [](const auto &row) { return rawValue(row.param).toStdString(); });

} // namespace vantrel
