#include "Wording.h"

#include <platform/Log.h>

#include <QCoreApplication>
#include <QTranslator>

namespace vantrel {

namespace {

VANTREL_LOG(wordingLog, "Wording")

} // namespace

void installWording() {
    auto *translator = new QTranslator(QCoreApplication::instance());
    if (!translator->load(QStringLiteral(":/translations/vantrel_en_LINUX.qm")))
        qCWarning(wordingLog, "The wording for this platform cannot be read");
    QCoreApplication::installTranslator(translator);
}

} // namespace vantrel
