#include "LogText.h"

#include <QFile>

namespace vantrel {

namespace {

constexpr qsizetype longest = 1024;

bool isHarmless(uint character) {
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

QString escaped(uint character) {
    const bool isShort = character <= 0xff;
    return QStringLiteral("\\%1%2")
        .arg(QLatin1Char(isShort ? 'x' : 'u'))
        .arg(character, isShort ? 2 : 4, 16, QLatin1Char('0'));
}

} // namespace

QString logText(const QString &text) {
    QString safe;
    const auto characters = QStringView(text).left(longest).toUcs4();
    for (const uint character : characters) {
        if (isHarmless(character))
            safe += QString::fromUcs4(reinterpret_cast<const char32_t *>(&character), 1);
        else
            safe += escaped(character);
    }
    return text.size() > longest ? safe + QStringLiteral("…") : safe;
}

QString logText(const QByteArray &path) {
    return logText(QFile::decodeName(path));
}

} // namespace vantrel
