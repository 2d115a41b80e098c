#include "Typography.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

// Beyond these a desktop's setting is a slip or a font without sizes, not a wish.
constexpr double smallestText = 9.0;
constexpr double largestText = 32.0;

/// Debian's Quicksand keeps its medium weight in a family of its own; asked for the medium weight
/// of "Quicksand", Qt draws the regular one.
QString roundedFamily(int weight) {
    QString family = QStringLiteral("Quicksand");
    QString medium = QStringLiteral("Quicksand Medium");
    if (weight == QFont::Medium && QFontDatabase::hasFamily(medium))
        return medium;
    return QFontDatabase::hasFamily(family) ? family : QString();
}

} // namespace

double Typography::size(int step) {
    const double base = QFontInfo(QGuiApplication::font()).pixelSize();
    return std::clamp(base, smallestText, largestText) * std::pow(1.25, step);
}

QFont Typography::reading(double pixelSize, int weight) {
    QFont font = QGuiApplication::font();
    font.setPixelSize(std::max(static_cast<int>(std::lround(pixelSize)), 1));
    font.setWeight(static_cast<QFont::Weight>(weight));
    return font;
}

QFont Typography::rounded(double pixelSize, int weight) {
    QFont font = reading(pixelSize, weight);
    // Large texts need no hinting, and with it they would be measured wider than Quick draws them.
    font.setHintingPreference(QFont::PreferNoHinting);
    const QString family = roundedFamily(weight);
    if (!family.isEmpty())
        font.setFamilies(QStringList{family} + font.families());
    return font;
}

double Typography::advance(const QFont &font, const QString &text) {
    return QFontMetricsF(font).horizontalAdvance(text);
}

double Typography::figureAdvance(const QFont &font) {
    return QFontMetricsF(font).horizontalAdvance(QLatin1Char('0'));
}

} // namespace vantrel
