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

/// Hinting and rounding make a text at its true size a little wider than a scaled measure of it.
constexpr double slack = 1.01;

/// A title as it is measured: shaped once, at its full size, and broken into lines at many widths.
/// Shaping is what costs, in particular for emoji, which are pictures; a smaller size on a given
/// width breaks where the full size does on a width that is larger in proportion.
class MeasuredTitle {
public:
    struct Extent {
        int lines = 0;
        double height = 0.0;
    };

    MeasuredTitle(const QString &title, const QFont &font)
        : m_layout(title, font), m_fullSize(font.pixelSize()) {
        // As QML's Text does it with Text.Wrap.
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        option.setUseDesignMetrics(QQuickWindow::textRenderType() !=
                                   QQuickWindow::NativeTextRendering);
        m_layout.setTextOption(option);
    }

    [[nodiscard]] int fullSize() const { return m_fullSize; }

    [[nodiscard]] Extent extent(int pixelSize, double width) {
        const double scale = static_cast<double>(pixelSize) / m_fullSize;
        Extent taken;
        m_layout.beginLayout();
        for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
            line.setLineWidth(width / scale / slack);
            ++taken.lines;
            taken.height += line.height() * scale;
        }
        m_layout.endLayout();
        return taken;
    }

private:
    QTextLayout m_layout;
    int m_fullSize;
};

/// Few sizes and widths are tried, in halving steps: each try costs one pass over the title.
constexpr int steps = 32;

/// The number of the furthest step, from 0 to `steps`, that `suits`; 0 when none does. What suits
/// is taken to suit at all earlier steps too.
template <typename Predicate>
int furthestStep(Predicate suits) {
    int low = 0;
    int high = steps;
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
double balancedWidth(MeasuredTitle &title, int pixelSize, double width) {
    const int lines = title.extent(pixelSize, width).lines;
    if (lines < 2)
        return width;
    // A title that fills its lines takes at least so much of each.
    const double narrowest = width * (lines - 1) / lines;
    const auto widthAt = [&](int step) { return width - (width - narrowest) * step / steps; };
    return widthAt(furthestStep(
        [&](int step) { return title.extent(pixelSize, widthAt(step)).lines <= lines; }));
}

} // namespace

TitleFit TitleFitter::fit(const QString &title, const QFont &font, int smallest, double width,
                          double widest) {
    TitleFit fit{font.pixelSize(), width, false};
    if (title.isEmpty() || width < 1.0)
        return fit;
    MeasuredTitle measured(title, font);
    const auto isShortOn = [&](double lineWidth) {
        return measured.extent(measured.fullSize(), lineWidth).lines <= mostLinesAtFullSize;
    };
    if (!isShortOn(width))
        fit.width = widest;
    if (!isShortOn(fit.width)) {
        const int fullSize = measured.fullSize();
        const int least = std::min(smallest, fullSize);
        const auto sizeAt = [&](int step) { return least + (fullSize - least) * step / steps; };
        const auto suits = [&](int step) {
            const auto taken = measured.extent(sizeAt(step), widest);
            return taken.lines <= mostLines && taken.height <= mostHeight * fullSize;
        };
        const int step = furthestStep(suits);
        fit.pixelSize = sizeAt(step);
        fit.isCut = step == 0 && !suits(0);
    }
    if (!fit.isCut)
        fit.width = balancedWidth(measured, fit.pixelSize, fit.width);
    return fit;
}

} // namespace vantrel
