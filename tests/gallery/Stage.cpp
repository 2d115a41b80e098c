#include "Stage.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QQmlComponent>
#include <QSGRendererInterface>

namespace vantrel::gallery {

namespace {

/// In milliseconds.
constexpr int quietLength = 60;
constexpr int longestWait = 5000;

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

Stage::Stage(const PanelContent &content, QSize size) {
    QObject::connect(&m_engine, &QQmlEngine::warnings, [this](const QList<QQmlError> &warnings) {
        for (const QQmlError &warning : warnings)
            m_warnings += warning.toString();
    });
    QObject::connect(&m_window, &QQuickWindow::frameSwapped, [this] { ++m_frameCount; });
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));

    QQmlComponent component(&m_engine);
    const QString source = QStringLiteral("import %1\n%2 {}").arg(content.module, content.typeName);
    component.setData(source.toUtf8(), QUrl(QStringLiteral("qrc:/Stage.qml")));
    if (component.isReady())
        m_root.reset(
            qobject_cast<QQuickItem *>(component.createWithInitialProperties(content.properties)));
    if (!m_root)
        qFatal("%s", qUtf8Printable(component.errorString()));

    m_window.resize(size);
    m_root->setParentItem(m_window.contentItem());
    m_root->setSize(size);
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
    settle();
}

void Stage::settle() {
    QElapsedTimer total;
    QElapsedTimer quiet;
    total.start();
    quiet.start();
    int seen = m_frameCount;
    while (quiet.elapsed() < quietLength && total.elapsed() < longestWait) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        if (seen != m_frameCount) {
            seen = m_frameCount;
            quiet.restart();
        }
    }
}

QImage Stage::picture() {
    show();
    return m_window.grabWindow();
}

} // namespace vantrel::gallery
