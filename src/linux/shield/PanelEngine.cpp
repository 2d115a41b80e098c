#include "PanelEngine.h"

#include "PlainWindow.h"
#include "ShieldLog.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>

namespace vantrel {

VANTREL_LOG(shieldLog, "Shield")

namespace {

constexpr QLatin1String reducedMotion("reducedMotion");

/// The title among a content's properties, or that of an object among them.
QString titleOf(const ViewContent &content) {
    const QString title = content.properties.value(QStringLiteral("title")).toString();
    if (!title.isEmpty())
        return title;
    for (const QVariant &property : content.properties) {
        if (const auto *object = property.value<QObject *>()) {
            const QString itsTitle = object->property("title").toString();
            if (!itsTitle.isEmpty())
                return itsTitle;
        }
    }
    return {};
}

void logErrors(const QList<QQmlError> &errors) {
    for (const QQmlError &error : errors)
        qCWarning(shieldLog).noquote() << error.toString();
}

/// Hangs an item into a window whose size it shares from then on.
void fill(QQuickWindow &window, QQuickItem &item) {
    item.setParentItem(window.contentItem());
    const auto resize = [&window, &item] { item.setSize(window.contentItem()->size()); };
    QObject::connect(window.contentItem(), &QQuickItem::widthChanged, &item, resize);
    QObject::connect(window.contentItem(), &QQuickItem::heightChanged, &item, resize);
    resize();
    item.setFocus(true);
}

} // namespace

PanelEngine::PanelEngine() {
    // The one renderer on every machine: it works where a driver is missing or broken, takes less
    // than half the memory that OpenGL in software does, and looks the same everywhere. It has to
    // be chosen ahead of the first window.
    if (QQuickWindow::sceneGraphBackend() != QLatin1String("software"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

PanelEngine::~PanelEngine() = default;

QQmlEngine &PanelEngine::engine() {
    if (!m_engine) {
        m_engine = std::make_unique<QQmlEngine>();
        m_engine->addImportPath(QStringLiteral("qrc:/qt/qml")); // By default from Qt 6.5 on.
        m_engine->setOutputWarningsToStandardError(false);
        QObject::connect(m_engine.get(), &QQmlEngine::warnings, &logErrors);
    }
    return *m_engine;
}

std::unique_ptr<QWindow> PanelEngine::makeWindow(const ViewContent &content, QSize size,
                                                 bool isMotionReduced) {
    if (auto view = makeView(content, size, isMotionReduced))
        return view;
    qCCritical(shieldLog).noquote() << content.module + u'.' + content.typeName
                                    << "cannot be made; a plain panel stands in for it";
    return std::make_unique<PlainWindow>(titleOf(content));
}

std::unique_ptr<QWindow> PanelEngine::makeView(const ViewContent &content, QSize size,
                                               bool isMotionReduced) {
    QQmlComponent component(&engine());
    const QString source =
        QStringLiteral("import %1\n%2 {}\n").arg(content.module, content.typeName);
    // The name for messages has to look like a local file, or imports are fetched one by one.
    component.setData(source.toUtf8(), QUrl(QStringLiteral("qrc:/panel/") + content.typeName));
    std::unique_ptr<QObject> root(component.beginCreate(engine().rootContext()));
    auto *item = qobject_cast<QQuickItem *>(root.get());
    if (!item) {
        logErrors(component.errors());
        return nullptr;
    }
    auto window = std::make_unique<QQuickWindow>();
    window->setColor(Qt::black);
    // The window's own item has a size only once the window is shown.
    window->contentItem()->setSize(size);
    QVariantMap properties = content.properties;
    if (item->metaObject()->indexOfProperty(reducedMotion.data()) >= 0)
        properties.insert(reducedMotion, isMotionReduced);
    component.setInitialProperties(item, properties);
    fill(*window, *item);
    component.completeCreate();
    if (component.isError()) {
        logErrors(component.errors());
        return nullptr;
    }
    item->setParent(window->contentItem());
    (void)root.release();
    return window;
}

} // namespace vantrel
