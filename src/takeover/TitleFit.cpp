#include "TitleFit.h"

#include <QQuickWindow>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace vantrel {

namespace {

constexpr int mostLinesAtFullSize = 2;

/// Scripts differ in the height of their lines; this is room for two of the tallest.
constexpr double mostHeight = 2.8;

struct Extent {
    int lines = 0;
    double height = 0.0;
};

/// What the title takes up, laid out as QML's Text does it with Text.Wrap.
Extent extent(const QString &title, QFont font, int pixelSize, double width) {
    font.setPixelSize(pixelSize);
    QTextLayout layout(title, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setUseDesignMetrics(QQuickWindow::textRenderType() != QQuickWindow::NativeTextRendering);
    layout.setTextOption(option);
    Extent taken;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        ++taken.lines;
        taken.height += line.height();
    }
    layout.endLayout();
    return taken;
}

/// The largest of the numbers from `low` to `high` that `suits`; `low` when none does. What suits
/// is taken to suit all smaller ones too.
template <typename Predicate>
int largest(int low, int high, Predicate suits) {
    while (low < high) {
        const int middle = low + (high - low + 1) / 2;
        if (suits(middle))
            low = middle;
        else
            high = middle - 1;
    }
    return low;
}

/// The narrowest width that takes no more lines than `width` does.
double balancedWidth(const QString &title, const QFont &font, int pixelSize, double width) {
    const int lines = extent(title, font, pixelSize, width).lines;
    if (lines < 2)
        return width;
    const int whole = static_cast<int>(width);
    const int narrowing = largest(0, whole - 1, [&](int less) {
        return extent(title, font, pixelSize, whole - less).lines <= lines;
    });
    return whole - narrowing;
}

} // namespace

TitleFit TitleFitter::fit(const QString &title, const QFont &font, int smallest, double width,
                          double widest) {
    const int fullSize = font.pixelSize();
    TitleFit fit{fullSize, width, false};
    if (title.isEmpty() || width < 1.0)
        return fit;
    const auto isShort = [&] {
        return extent(title, font, fullSize, fit.width).lines <= mostLinesAtFullSize;
    };
    if (!isShort()) {
        fit.width = widest;
        const auto suits = [&](int pixelSize) {
            const Extent taken = extent(title, font, pixelSize, widest);
            return taken.lines <= mostLines && taken.height <= mostHeight * fullSize;
        };
        if (!isShort())
            fit.pixelSize = largest(std::min(smallest, fullSize), fullSize, suits);
        fit.isCut = !isShort() && !suits(fit.pixelSize);
    }
    if (!fit.isCut)
        fit.width = balancedWidth(title, font, fit.pixelSize, fit.width);
    return fit;
}

} // namespace vantrel
