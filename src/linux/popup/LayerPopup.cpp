#include "LayerPopup.h"

#include "LayerScene.h"
#include "PopupCanvas.h"
#include "PopupItem.h"
#include "PopupLog.h"
#include "PopupPlacement.h"

#include <linux/views/ViewEngine.h>

#include <QLocale>

#include <utility>

namespace vantrel {

LayerPopup::LayerPopup(ViewContent content, PopupListener listener, ViewEngine &engine,
                       LayerScene &scene)
    : m_content(std::move(content)),
      m_listener(std::move(listener)),
      m_engine(engine),
      m_scene(scene),
      m_frame(new QQuickItem) {
    m_frame->setFlag(QQuickItem::ItemIsFocusScope);
    m_frame->setClip(true);
}

LayerPopup::~LayerPopup() {
    m_frame->setParentItem(nullptr);
    if (std::exchange(m_isShown, false))
        m_scene.remove(*this);
    if (m_scene.isDelivering())
        m_frame->deleteLater();
    else
        delete m_frame;
}

bool LayerPopup::makeItem() {
    auto item = m_engine.makeItem(m_content, *m_frame, ItemSize::ofContent);
    if (!item) {
        qCCritical(popupLog).noquote()
            << m_content.module + u'.' + m_content.typeName << "cannot be shown";
        return false;
    }
    m_item = item.release();
    m_item->setParent(m_frame);
    const auto arrangeAgain = [this] { arrange(); };
    QObject::connect(m_item, &QQuickItem::implicitWidthChanged, m_frame, arrangeAgain);
    QObject::connect(m_item, &QQuickItem::implicitHeightChanged, m_frame, arrangeAgain);
    setCorners(*m_item, Corners::round);
    return true;
}

void LayerPopup::show(const PopupPlace &place) {
    if (!m_item && !makeItem())
        return;
    // Any listener may destroy the popup.
    const QPointer<QObject> living = &m_life;
    if (m_isShown)
        m_scene.closeAbove(*this);
    if (!living)
        return;
    m_place = place;
    if (m_isShown) {
        arrange();
        return;
    }
    m_isShown = true;
    followDesktop(*m_item, m_content);
    m_scene.push(*this);
    if (m_listener.didShow)
        PopupListener(m_listener).didShow();
    if (living && m_isShown)
        settle();
}

void LayerPopup::settle() {
    PopupCanvas *canvas = m_scene.home();
    if (!canvas || !m_isShown)
        return;
    m_frame->setParentItem(canvas->contentItem());
    arrange();
    takeFocus();
}

QRect LayerPopup::frame() const {
    return m_frame->parentItem()
               ? QRectF(m_frame->mapToGlobal(QPointF()), m_frame->size()).toAlignedRect()
               : QRect();
}

void LayerPopup::arrange() {
    PopupCanvas *canvas = m_scene.home();
    if (!canvas || !m_isShown || !m_item)
        return;
    // The application's own direction follows a translation, of which there may be none.
    const QRect frame = placePopup(m_scene.placeFor(*this, m_place), wantedSize(*m_item),
                                   m_scene.area(), QLocale().textDirection());
    m_frame->setPosition(frame.topLeft() - canvas->position());
    m_frame->setSize(frame.size());
    m_item->setSize(frame.size());
}

void LayerPopup::close() {
    if (!m_isShown)
        return;
    // Any listener may close or destroy the popup.
    const QPointer<QObject> living = &m_life;
    m_scene.closeAbove(*this);
    if (!living || !std::exchange(m_isShown, false))
        return;
    m_scene.remove(*this);
    m_frame->setParentItem(nullptr);
    if (const auto didClose = m_listener.didClose)
        didClose();
}

} // namespace vantrel
