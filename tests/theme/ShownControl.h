#pragma once

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <gallery/Stage.h>

#include <memory>

namespace vantrel {

/// One of the theme's controls on a stage of its own, with the hands at it.
class ShownControl {
public:
    ShownControl(const char *type, const QVariantMap &properties, QSize size = {320, 48})
        : m_stage(
              ViewContent{QStringLiteral("Vantrel.Theme"), QString::fromLatin1(type), properties},
              size) {
        m_stage.show();
    }

    [[nodiscard]] gallery::Stage &stage() { return m_stage; }
    [[nodiscard]] QQuickItem &item() const { return m_stage.root(); }

    /// Keeps the signal's emissions from now on; `signal` is wrapped in SIGNAL().
    [[nodiscard]] std::unique_ptr<QSignalSpy> spy(const char *signal) const {
        return std::make_unique<QSignalSpy>(&item(), signal);
    }

    void focus() { item().forceActiveFocus(Qt::TabFocusReason); }
    void press(Qt::Key key) { QTest::keyClick(&m_stage.window(), key); }
    void click(QPointF place) {
        QTest::mouseClick(&m_stage.window(), Qt::LeftButton, Qt::NoModifier, place.toPoint());
    }
    void click() { click(item().boundingRect().center()); }

    [[nodiscard]] QAccessibleInterface &spoken() const {
        return *QAccessible::queryAccessibleInterface(&item());
    }

private:
    gallery::Stage m_stage;
};

} // namespace vantrel
