#include "ScreenId.h"

#include <QGuiApplication>
#include <QScreen>

namespace vantrel {

QString screenId(const QScreen &screen) {
    return screen.name() + u'/' + screen.serialNumber();
}

QScreen *findScreen(const QString &id) {
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screenId(*screen) == id)
            return screen;
    }
    return nullptr;
}

} // namespace vantrel
