#include "Stage.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSGRendererInterface>

namespace vantrel::gallery {

namespace {

/// In milliseconds.
constexpr int lingerLength = 80;
constexpr int longestWait = 10000;
constexpr int turn = 5;

/// The one engine of all stages, as the program keeps one for all panels. Ends with the
/// application.
QQmlEngine &engine() {
    static QPointer<QQmlEngine> engine;
    if (!engine) {
        engine = new QQmlEngine(QCoreApplication::instance());
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    }
    return *engine;
}

/// Items lay themselves out ahead of a frame; here there may be none.
void polish(QQuickItem &item) {
    const auto children = item.childItems();
    for (QQuickItem *child : children)
        polish(*child);
    item.ensurePolished();
}

} // namespace

QList<QQuickItem *> withDescendants(QQuickItem &item) {
    QList<QQuickItem *> items{&item};
    const auto children = item.childItems();
    for (QQuickItem *child : children)
        items += withDescendants(*child);
    return items;
}

void Stage::prepare() {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

Stage::Stage(const ViewContent &content, QSize size, Ground ground) : m_ground(ground) {
    QObject::connect(&engine(), &QQmlEngine::warnings, &m_watch,
                     [this](const QList<QQmlError> &warnings) {
                         for (const QQmlError &warning : warnings)
                             m_warnings += warning.toString();
                     });
    QObject::connect(&m_window, &QQuickWindow::frameSwapped, &m_watch, [this] { ++m_frameCount; });

    QQmlComponent component(&engine());
    const QString source = QStringLiteral("import %1\n%2 {}").arg(content.module, content.typeName);
    component.setData(source.toUtf8(), QUrl(QStringLiteral("qrc:/Stage.qml")));
    m_root.reset(qobject_cast<QQuickItem *>(component.beginCreate(engine().rootContext())));
    if (!m_root)
        qFatal("%s", qUtf8Printable(component.errorString()));
    component.setInitialProperties(m_root.get(), content.properties);
    m_window.resize(size);
    m_root->setParentItem(m_window.contentItem());
    m_root->setSize(size);
    component.completeCreate();
    m_root->setFocus(true);
    polish(*m_root);
}

QQuickItem *Stage::find(const QString &objectName) const {
    const auto items = withDescendants(*m_root);
    for (QQuickItem *item : items) {
        if (item->objectName() == objectName)
            return item;
    }
    return nullptr;
}

void Stage::show() {
    m_window.show();
    m_window.requestActivate();
    waitFor([this] { return m_frameCount > 0 && m_window.isActive(); });
}

bool Stage::waitFor(const std::function<bool()> &isReached) {
    QElapsedTimer waited;
    waited.start();
    while (!isReached()) {
        if (waited.elapsed() > longestWait)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, turn);
    }
    return true;
}

void Stage::linger() {
    QElapsedTimer lingered;
    lingered.start();
    while (lingered.elapsed() < lingerLength)
        QCoreApplication::processEvents(QEventLoop::AllEvents, turn);
}

QImage Stage::picture() {
    if (!m_window.isVisible())
        show();
    QImage picture = m_ground == Ground::filled ? m_window.grabWindow() : pictureSeenThrough();
    // Not set by the software renderer.
    picture.setDevicePixelRatio(m_window.effectiveDevicePixelRatio());
    return picture;
}

/// A window's picture is opaque; what lets its ground through is found by changing the ground.
QImage Stage::pictureSeenThrough() {
    m_window.setColor(Qt::white);
    const QImage onWhite = m_window.grabWindow().convertToFormat(QImage::Format_RGB32);
    m_window.setColor(Qt::black);
    QImage picture = m_window.grabWindow().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        const auto *white = reinterpret_cast<const QRgb *>(onWhite.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int alpha = 255 - (qGreen(white[x]) - qGreen(line[x]));
            line[x] = qRgba(qRed(line[x]), qGreen(line[x]), qBlue(line[x]), alpha);
        }
    }
    return picture;
}

} // namespace vantrel::gallery
