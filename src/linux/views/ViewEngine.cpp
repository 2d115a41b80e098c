#include "ViewEngine.h"

#include "DesktopSettings.h"

#include <platform/Log.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>

namespace vantrel {

namespace {

VANTREL_LOG(viewLog, "View")

constexpr QLatin1String reducedMotion("reducedMotion");

void logErrors(const QList<QQmlError> &errors) {
    for (const QQmlError &error : errors)
        qCWarning(viewLog).noquote() << error.toString();
}

bool followsMotion(const QQuickItem &item, const ViewContent &content) {
    return item.metaObject()->indexOfProperty(reducedMotion.data()) >= 0 &&
           !content.properties.contains(reducedMotion);
}

QVariantMap propertiesFor(const QQuickItem &item, const ViewContent &content) {
    QVariantMap properties = content.properties;
    if (followsMotion(item, content))
        properties.insert(reducedMotion, DesktopSettings::ofServer().isMotionReduced());
    return properties;
}

void shareSize(QQuickItem &content, QQuickItem &item) {
    const auto resize = [&content, &item] { item.setSize(content.size()); };
    QObject::connect(&content, &QQuickItem::widthChanged, &item, resize);
    QObject::connect(&content, &QQuickItem::heightChanged, &item, resize);
    resize();
}

} // namespace

ViewEngine::ViewEngine() {
    // The one renderer on every machine: it works where a driver is missing or broken, takes less
    // than half the memory that OpenGL in software does, and looks the same everywhere. It has to
    // be chosen ahead of the first window.
    if (QQuickWindow::sceneGraphBackend() != QLatin1String("software"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

ViewEngine::~ViewEngine() = default;

QQmlEngine &ViewEngine::engine() {
    if (!m_engine) {
        m_engine = std::make_unique<QQmlEngine>();
        m_engine->addImportPath(QStringLiteral("qrc:/qt/qml")); // By default from Qt 6.5 on.
        m_engine->setOutputWarningsToStandardError(false);
        QObject::connect(m_engine.get(), &QQmlEngine::warnings, &logErrors);
    }
    return *m_engine;
}

std::unique_ptr<QQuickItem> ViewEngine::makeItem(const ViewContent &content, QQuickWindow &window,
                                                 ItemSize size) {
    return makeItem(content, *window.contentItem(), size);
}

std::unique_ptr<QQuickItem> ViewEngine::makeItem(const ViewContent &content, QQuickItem &container,
                                                 ItemSize size) {
    QQmlComponent component(&engine());
    const QString source =
        QStringLiteral("import %1\n%2 {}\n").arg(content.module, content.typeName);
    // The name for messages has to look like a local file, or imports are fetched one by one.
    component.setData(source.toUtf8(), QUrl(QStringLiteral("qrc:/view/") + content.typeName));
    std::unique_ptr<QObject> root(component.beginCreate(engine().rootContext()));
    if (!qobject_cast<QQuickItem *>(root.get())) {
        logErrors(component.errors());
        return nullptr;
    }
    std::unique_ptr<QQuickItem> item(qobject_cast<QQuickItem *>(root.release()));
    QQmlEngine::setObjectOwnership(item.get(), QQmlEngine::CppOwnership);
    component.setInitialProperties(item.get(), propertiesFor(*item, content));
    item->setParentItem(&container);
    if (size == ItemSize::ofWindow)
        shareSize(container, *item);
    item->setFocus(true);
    component.completeCreate();
    if (component.isError()) {
        logErrors(component.errors());
        return nullptr;
    }
    return item;
}

void followDesktop(QQuickItem &item, const ViewContent &content) {
    if (followsMotion(item, content))
        item.setProperty(reducedMotion.data(), DesktopSettings::ofServer().isMotionReduced());
}

} // namespace vantrel
