#include "AboutTabModel.h"

#include <QCoreApplication>

namespace vantrel {

QString AboutTabModel::version() const {
    return QStringLiteral("Version %1").arg(QCoreApplication::applicationVersion());
}

void AboutTabModel::setShowingResetConfirm(bool showing) {
    if (m_showingResetConfirm == showing)
        return;
    m_showingResetConfirm = showing;
    Q_EMIT showingResetConfirmChanged();
}

void AboutTabModel::reset() {
    m_preferences.resetAll();
    setShowingResetConfirm(false);
}

} // namespace vantrel
