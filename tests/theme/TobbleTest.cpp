#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <gtest/gtest.h>

#include <string>

namespace vantrel {

namespace {

class TobbleTest : public testing::TestWithParam<const char *> {
protected:
    QString pose = QLatin1String(GetParam());
    QString plainFile = QStringLiteral(":/qt/qml/Vantrel/Theme/art/%1.svg").arg(pose);
    QString rimmedFile = QStringLiteral(":/qt/qml/Vantrel/Theme/art/%1-rimmed.svg").arg(pose);
};

/// The picture as wide as asked for, on nothing.
QImage drawn(const QString &file, int width) {
    QSvgRenderer renderer(file);
    EXPECT_TRUE(renderer.isValid()) << file.toStdString();
    QImage picture(renderer.defaultSize().scaled(width, width, Qt::KeepAspectRatio),
                   QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    return picture;
}

/// Where he is, and not the faint shadow that he casts.
bool isTobble(const QImage &picture, int x, int y) {
    return picture.pixelColor(x, y).alphaF() > 0.5F;
}

struct Shares {
    double tobble = 0.0;
    double cream = 0.0;
    double chestnut = 0.0;
};

Shares shares(const QImage &picture) {
    Shares found;
    const double pixel = 1.0 / (picture.width() * picture.height());
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (!isTobble(picture, x, y))
                continue;
            found.tobble += pixel;
            const QColor color = picture.pixelColor(x, y);
            if (color.lightnessF() > 0.75F)
                found.cream += pixel;
            else if (color.red() > 120 && color.red() > 2 * color.blue())
                found.chestnut += pixel;
        }
    }
    return found;
}

} // namespace

TEST_P(TobbleTest, IsNotCutByTheEdgeOfThePicture) {
    for (const QString &file : {plainFile, rimmedFile}) {
        const QImage picture = drawn(file, 400);
        for (int x = 0; x < picture.width(); ++x) {
            EXPECT_FALSE(isTobble(picture, x, 0)) << file.toStdString() << ' ' << x;
            EXPECT_FALSE(isTobble(picture, x, picture.height() - 1))
                << file.toStdString() << ' ' << x;
        }
        for (int y = 0; y < picture.height(); ++y) {
            EXPECT_FALSE(isTobble(picture, 0, y)) << file.toStdString() << ' ' << y;
            EXPECT_FALSE(isTobble(picture, picture.width() - 1, y))
                << file.toStdString() << ' ' << y;
        }
    }
}

TEST_P(TobbleTest, FillsThePictureWithACoatOfCreamAndChestnutAtEverySize) {
    for (const int width : {24, 64, 160, 400}) {
        const Shares found = shares(drawn(plainFile, width));
        EXPECT_GT(found.tobble, 0.4) << width;
        EXPECT_GT(found.cream, 0.1) << width;
        EXPECT_GT(found.chestnut, 0.1) << width;
    }
}

TEST_P(TobbleTest, HasARimOfLightAllRoundForDarkGrounds) {
    const QImage plain = drawn(plainFile, 400);
    const QImage rimmed = drawn(rimmedFile, 400);
    ASSERT_EQ(plain.size(), rimmed.size());
    int rim = 0;
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            if (isTobble(plain, x, y)) {
                EXPECT_TRUE(isTobble(rimmed, x, y)) << x << ' ' << y;
            } else if (isTobble(rimmed, x, y)) {
                ++rim;
                EXPECT_GT(rimmed.pixelColor(x, y).lightnessF(), 0.4F) << x << ' ' << y;
            }
        }
    }
    EXPECT_GT(rim, 2000);
}

INSTANTIATE_TEST_SUITE_P(Poses, TobbleTest,
                         testing::Values("tobble-acknowledging", "tobble-content",
                                         "tobble-curious-calendar", "tobble-friday-relaxed",
                                         "tobble-rescue", "tobble-thoughtful"),
                         [](const auto &row) {
                             std::string name = row.param;
                             std::erase(name, '-');
                             return name;
                         });

} // namespace vantrel
