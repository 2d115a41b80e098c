#include "NumberContext.h"

#include "Characters.h"
#include "NumberCues.h"

#include <algorithm>

namespace vantrel {

using namespace characters;

namespace {

constexpr qsizetype farthest = 64;
constexpr int mostWords = 4;
constexpr qsizetype longestWord = 24;

bool isCurrency(QStringView word) {
    return !word.isEmpty() && cueOf(word) == Cue::currency;
}

bool isBlank(QChar c) {
    return c.isSpace() || c.category() == QChar::Other_Format;
}

} // namespace

NumberContext::Meaning NumberContext::meaningBefore(qsizetype position) const {
    const qsizetype bound = std::max<qsizetype>(0, position - farthest);
    int words = 0;
    bool isNumbered = false;
    while (position > bound && words < mostWords) {
        const QChar c = m_text[position - 1];
        if (c.isLetter() || c.isMark()) {
            const qsizetype start = wordStart(position);
            const QStringView word = m_text.mid(start, position - start);
            const Cue cue = cueOf(word);
            if (cue == Cue::phone)
                return Meaning::phone;
            if (cue == Cue::other || (cue == Cue::subject && isNumbered))
                return Meaning::other;
            isNumbered = isNumbered || cue == Cue::number;
            ++words;
            position = start;
        } else if (c == u'>' || c == u';') {
            position = markupStart(position);
        } else if (c == u'\n' || c == u'\r') {
            if (words > 0 || !isBehindColon(position))
                break;
            --position;
        } else if (c == u',' || c == u'|' || c.isDigit()) {
            break;
        } else {
            --position;
        }
    }
    return Meaning::unknown;
}

/// A word is of one kind of letters: in "会议ID" there are two.
qsizetype NumberContext::wordStart(qsizetype end) const {
    qsizetype start = end - 1;
    const Letters kind = lettersOf(m_text[start].unicode());
    while (start > 0 && end - start < longestWord) {
        const QChar c = m_text[start - 1];
        if (!c.isMark() && (!c.isLetter() || lettersOf(c.unicode()) != kind))
            break;
        --start;
    }
    return start;
}

/// Before the HTML tag or entity that ends here, if one does.
qsizetype NumberContext::markupStart(qsizetype end) const {
    constexpr qsizetype longestEntity = 8;
    const bool isTag = m_text[end - 1] == u'>';
    const qsizetype bound = std::max<qsizetype>(0, end - (isTag ? farthest : longestEntity));
    for (qsizetype position = end - 2; position >= bound; --position) {
        if (m_text[position] == (isTag ? u'<' : u'&'))
            return position;
    }
    return end - 1;
}

/// A label may stand on the line before.
bool NumberContext::isBehindColon(qsizetype lineBreak) const {
    const qsizetype bound = std::max<qsizetype>(0, lineBreak - 8);
    qsizetype position = lineBreak;
    while (position > bound && isBlank(m_text[position - 1]))
        --position;
    return position > 0 && (m_text[position - 1] == u':' || m_text[position - 1] == QChar(0xFF1A));
}

QStringView NumberContext::wordBefore(qsizetype position) const {
    if (position > 0 && m_text[position - 1] == u'.')
        --position;
    if (position == 0 || !m_text[position - 1].isLetter())
        return {};
    const qsizetype start = wordStart(position);
    return m_text.mid(start, position - start);
}

QStringView NumberContext::wordBehind(qsizetype position) const {
    qsizetype end = position;
    while (end < m_text.size() && end - position < longestWord && m_text[end].isLetter())
        ++end;
    return m_text.mid(position, end - position);
}

bool NumberContext::isCurrencyAt(qsizetype position) const {
    return position >= 0 && position < m_text.size() &&
           m_text[position].category() == QChar::Symbol_Currency;
}

bool NumberContext::isAmount(qsizetype start, qsizetype end) const {
    while (start > 0 && (m_text[start - 1] == u' ' || m_text[start - 1] == QChar::Nbsp))
        --start;
    while (end < m_text.size() && (m_text[end] == u' ' || m_text[end] == QChar::Nbsp))
        ++end;
    return isCurrencyAt(start - 1) || isCurrencyAt(end) || isCurrency(wordBefore(start)) ||
           isCurrency(wordBehind(end));
}

bool NumberContext::isWholeText(qsizetype start, qsizetype end) const {
    const auto isBlankOnly = [](QStringView part) {
        return part.size() <= farthest && std::all_of(part.cbegin(), part.cend(), isBlank);
    };
    return isBlankOnly(m_text.left(start)) && isBlankOnly(m_text.mid(end));
}

} // namespace vantrel
