#include "DisplayTitle.h"

#include <QList>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace vantrel {

namespace {

/// In UTF-16 units: more than four lines of the narrowest letters at the smallest size.
constexpr qsizetype longestTitle = 500;

/// More than any writing system stacks on one letter.
constexpr int mostMarks = 6;

bool isEmbeddingOrOverride(char32_t character) {
    return character >= 0x202A && character <= 0x202E;
}

bool isMark(char32_t character) {
    const auto category = QChar::category(character);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing;
}

bool breaksLine(char32_t character) {
    return QChar::category(character) == QChar::Other_Control ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

QString cutAtCharacter(const QString &text, qsizetype longest) {
    if (text.size() <= longest)
        return text;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(longest);
    const qsizetype end = finder.isAtBoundary() ? longest : finder.toPreviousBoundary();
    return text.first(end).trimmed() + QChar(0x2026);
}

} // namespace

QString displayTitle(const QString &title) {
    QString shown;
    int marks = 0;
    const auto characters = title.first(std::min(title.size(), 4 * longestTitle)).toUcs4();
    for (const char32_t character : characters) {
        marks = isMark(character) ? marks + 1 : 0;
        if (isEmbeddingOrOverride(character) || marks > mostMarks)
            continue;
        const char32_t drawn = breaksLine(character)           ? U' '
                               : QChar::isSurrogate(character) ? U'\uFFFD'
                                                               : character;
        shown += QStringView(QChar::fromUcs4(drawn));
    }
    return cutAtCharacter(shown.trimmed(), longestTitle);
}

} // namespace vantrel
