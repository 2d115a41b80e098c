#include "PlainWindow.h"

#include <QPainter>

#include <utility>

namespace vantrel {

PlainWindow::PlainWindow(QString title) : m_title(std::move(title)) {}

void PlainWindow::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const QRect area(QPoint(), size());
    painter.fillRect(area, Qt::black);
    painter.setPen(Qt::white);
    QFont font = painter.font();
    font.setPixelSize(std::max(12, height() / 20));
    painter.setFont(font);
    const int margin = width() / 10;
    painter.drawText(area.adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, m_title);
}

} // namespace vantrel
