#include "Output.h"

#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

bool drivesTerminal(QChar character) {
    switch (character.category()) {
    case QChar::Other_Control: // C0 and C1
    case QChar::Other_Format:  // marks, embeddings, overrides and isolates of direction
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        // Joiners hold emoji and some scripts together and drive nothing.
        return character != QChar(0x200c) && character != QChar(0x200d);
    default:
        return false;
    }
}

} // namespace

QString printable(QString text) {
    std::replace_if(text.begin(), text.end(), drivesTerminal, QChar(u' '));
    return text;
}

QByteArray jsonOutput(const QJsonObject &object) {
    const QString plain = QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Indented));
    QString escaped;
    escaped.reserve(plain.size());
    for (const QChar character : plain) {
        // Line breaks stand between the members; within texts they are escaped already.
        if (drivesTerminal(character) && character != u'\n')
            escaped += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        else
            escaped += character;
    }
    return escaped.toUtf8();
}

QString colorText(const Color &color) {
    const auto byte = [](double component) {
        return static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * 255.0));
    };
    const int value = byte(color.red) << 16 | byte(color.green) << 8 | byte(color.blue);
    return QStringLiteral("#%1").arg(value, 6, 16, QLatin1Char('0'));
}

QString isoText(Instant instant, const LocalCalendar &calendar) {
    const QDateTime local = calendar.dateTime(instant);
    const int offset = local.offsetFromUtc();
    const int minutes = std::abs(offset) / 60;
    return local.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) +
           QStringLiteral("%1%2:%3")
               .arg(QLatin1Char(offset < 0 ? '-' : '+'))
               .arg(minutes / 60, 2, 10, QLatin1Char('0'))
               .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

} // namespace vantrel
