#include "PanelWindow.h"

#include "PlainWindow.h"
#include "ShieldLog.h"

#include <linux/views/ViewEngine.h>

#include <QQuickItem>
#include <QQuickWindow>

namespace vantrel {

VANTREL_LOG(shieldLog, "Shield")

namespace {

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

} // namespace

std::unique_ptr<QWindow> makePanelWindow(ViewEngine &engine, const ViewContent &content,
                                         QSize size) {
    auto window = std::make_unique<QQuickWindow>();
    window->setColor(Qt::black);
    // The window's own item has a size only once the window is shown.
    window->contentItem()->setSize(size);
    if (auto item = engine.makeItem(content, *window, ItemSize::ofWindow)) {
        item.release()->setParent(window->contentItem());
        return window;
    }
    qCCritical(shieldLog).noquote() << content.module + u'.' + content.typeName
                                    << "cannot be made; a plain panel stands in for it";
    return std::make_unique<PlainWindow>(titleOf(content));
}

} // namespace vantrel
