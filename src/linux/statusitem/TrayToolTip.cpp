#include "TrayToolTip.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QRasterWindow>
#include <QScreen>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

// Device-independent pixels.
constexpr int widestLine = 480;
constexpr QMargins padding{8, 5, 8, 5};
constexpr int gap = 4; ///< To the item.

const QScreen *screenAt(QPoint place) {
    const QScreen *screen = QGuiApplication::screenAt(place);
    return screen ? screen : QGuiApplication::primaryScreen();
}

/// Below the item, or above it where there is no room, and whole on the screen.
QRect frameFor(QSize size, const QRect &item, const QRect &screen) {
    QRect frame(QPoint(item.center().x() - size.width() / 2, item.bottom() + 1 + gap), size);
    if (frame.bottom() > screen.bottom())
        frame.moveBottom(item.top() - 1 - gap);
    frame.moveLeft(std::max(screen.left(), std::min(frame.left(), screen.right() - size.width())));
    return frame;
}

} // namespace

/// Seen by nobody but the eye: the pointer goes through it, and no window manager knows it.
class ToolTipWindow : public QRasterWindow {
public:
    ToolTipWindow() {
        setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint |
                 Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    }

    void setText(const QString &text, const QRect &item) {
        setTitle(text);
        const QFontMetrics metrics(QGuiApplication::font());
        m_lines.clear();
        int width = 0;
        for (const QString &line : text.split(u'\n')) {
            m_lines.append(metrics.elidedText(line, Qt::ElideRight, widestLine));
            width = std::max(width, metrics.horizontalAdvance(m_lines.last()));
        }
        const QSize size =
            QSize(width, metrics.lineSpacing() * static_cast<int>(m_lines.size())).grownBy(padding);
        setGeometry(frameFor(size, item, screenAt(item.center())->geometry()));
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override {
        const QPalette palette = QGuiApplication::palette();
        const QRect frame(QPoint(), geometry().size());
        const QColor text = palette.color(QPalette::ToolTipText);
        QPainter painter(this);
        painter.fillRect(frame, palette.color(QPalette::ToolTipBase));
        painter.setPen(QColor(text.red(), text.green(), text.blue(), 0x60));
        painter.drawRect(frame.adjusted(0, 0, -1, -1));
        painter.setPen(text);
        painter.setFont(QGuiApplication::font());
        const int height = painter.fontMetrics().lineSpacing();
        QRect line = frame.marginsRemoved(padding);
        line.setHeight(height);
        for (const QString &words : std::as_const(m_lines)) {
            painter.drawText(line, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, words);
            line.translate(0, height);
        }
    }

private:
    QStringList m_lines;
};

TrayToolTip::TrayToolTip(MainQueue &queue) : m_queue(queue) {}

TrayToolTip::~TrayToolTip() = default;

void TrayToolTip::setText(const QString &text) {
    m_text = text;
    if (m_window)
        m_window->setText(m_text, m_place);
}

void TrayToolTip::showAt(const QRect &place) {
    m_place = place;
    if (!m_window)
        m_rest = m_queue.after(rest, [this] { show(); });
}

void TrayToolTip::show() {
    if (m_text.isEmpty())
        return;
    m_window = std::make_unique<ToolTipWindow>();
    m_window->setText(m_text, m_place);
    m_window->show();
}

void TrayToolTip::hide() {
    m_rest.cancel();
    m_window.reset();
}

} // namespace vantrel
