// Another program's full-screen window, as a video player or a presentation has it.

#include <QGuiApplication>
#include <QPainter>
#include <QRasterWindow>

namespace {

class FullScreenWindow : public QRasterWindow {
protected:
    void paintEvent(QPaintEvent *) override {
        QPainter(this).fillRect(QRect(QPoint(), size()), Qt::darkBlue);
    }
};

} // namespace

int main(int argc, char **argv) {
    QGuiApplication application(argc, argv);
    FullScreenWindow window;
    window.setTitle(QGuiApplication::arguments().value(1));
    window.showFullScreen();
    window.raise();
    window.requestActivate();
    return QGuiApplication::exec();
}
