#pragma once

#include "ClickListener.h"

#include <linux/layershell/LayerShell.h>
#include <linux/mainqueue/QtMainQueue.h>
#include <linux/popup/QtPopup.h>
#include <linux/popup/QtPopups.h>
#include <linux/views/ViewEngine.h>

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

#include <desktop/Desktop.h>
#include <gtest/gtest.h>

#include <memory>

namespace vantrel::tests {

/// Real popups on a real X server, under the window manager that the parameter names.
class PopupTest : public testing::TestWithParam<const char *> {
protected:
    [[nodiscard]] std::unique_ptr<Popup> makePopup(int &closingsOfIt) {
        return popups.makePopup(
            {u"Popup.Tests"_qs, u"Card"_qs, {{u"listener"_qs, QVariant::fromValue(&listener)}}},
            {[this] { ++showings; }, [&closingsOfIt] { ++closingsOfIt; }});
    }

    /// Shows it and waits until it can be seen with the keyboard in it.
    QQuickWindow *show(Popup &shown, const PopupPlace &where) {
        shown.show(where);
        QWindow *window = dynamic_cast<QtPopup &>(shown).window();
        EXPECT_TRUE(window && waitUntil([&] {
                        return window->isExposed() && QGuiApplication::focusWindow() == window &&
                               program().focused() == window->winId();
                    }));
        return qobject_cast<QQuickWindow *>(window);
    }

    [[nodiscard]] static QQuickItem &card(const QQuickWindow &window) {
        return *window.contentItem()->childItems().front();
    }

    /// In the pixels of the X server.
    [[nodiscard]] static QPoint pixel(QPointF place) {
        return (place * qGuiApp->devicePixelRatio()).toPoint();
    }

    /// Runs the loop until a further key and a further click have been heard of by the program:
    /// whatever happened before has been dealt with by then.
    void settle(const QQuickWindow &window) {
        const int clicks = card(window).property("clicks").toInt();
        program().click(pixel(QRectF(window.geometry()).center()));
        EXPECT_TRUE(
            waitUntil([&] { return card(window).property("clicks").toInt() == clicks + 1; }));
    }

    OtherProgram &program() { return desktop.program(); }

    Desktop desktop{GetParam()};
    ClickListener listener;
    ViewEngine views;
    LayerShell layerShell;
    QtMainQueue queue;
    QtPopups popups{queue, views, layerShell};
    int showings = 0;
    int closings = 0;
    std::unique_ptr<Popup> popup = makePopup(closings);
    const PopupPlace place{QRect(150, 20, 40, 20)};
};

[[nodiscard]] inline std::string nameOfManager(const testing::TestParamInfo<const char *> &info) {
    return *info.param ? info.param : "none";
}

} // namespace vantrel::tests
