#include "LinkExtent.h"

#include "Characters.h"
#include "Entities.h"

namespace vantrel {

using namespace characters;

namespace {

bool isHexDigit(char16_t c) {
    return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

bool isEscape(QStringView text, qsizetype position, QLatin1String escape) {
    return text.mid(position, escape.size()).compare(escape, Qt::CaseInsensitive) == 0;
}

constexpr QLatin1String escapedLess("%3C");
constexpr QLatin1String escapedGreater("%3E");
constexpr QLatin1String escapedBlank("%20");

} // namespace

LinkExtent::LinkExtent(QStringView text, qsizetype start, qsizetype body)
    : m_text(text), m_start(start), m_body(body), m_end(body) {
    m_opener = at(start - 1);
    m_isAttribute = at(start - 2) == u'=' && (m_opener == u'"' || m_opener == u'\'');
    if (start >= 3 && isEscape(text, start - 3, escapedLess))
        m_opener = u'<';
    findEnd();
    if (m_depth > 0)
        m_end = m_brackets[0].position;
    trimEnd();
}

bool LinkExtent::isTooLong() const {
    return m_end - m_start > longest;
}

char16_t LinkExtent::at(qsizetype position) const {
    return position >= 0 && position < m_text.size() ? m_text[position].unicode() : u'\0';
}

void LinkExtent::findEnd() {
    while (m_end < m_text.size()) {
        const char32_t c = codePointAt(m_text, m_end);
        if (c == U'\n' || c == U'\r') {
            if (!takesLineBreak())
                return;
        } else if (isAscii(c)) {
            if (!takesAscii(static_cast<char16_t>(c)))
                return;
        } else {
            if (!takesLetter(c))
                return;
            m_end += lengthOf(c);
        }
    }
}

/// Moves behind the character, or behind the entity or line break that it starts.
bool LinkExtent::takesAscii(char16_t c) {
    if (!has(c, link))
        return false;
    switch (c) {
    case u'&':
        return takesEntity();
    case u'\'':
        if (m_opener == u'\'')
            return false;
        break;
    case u'(':
    case u')':
    case u'[':
    case u']':
        if (!takesBracket(c))
            return false;
        break;
    case u'%':
        if (!takesEscape())
            return false;
        break;
    case u':':
        if (!takesColon())
            return false;
        break;
    case u'/':
    case u'?':
    case u'#':
        m_isAuthority = false;
        break;
    default:
        break;
    }
    ++m_end;
    return true;
}

bool LinkExtent::takesEntity() {
    const auto entity = entityAt(m_text, m_end);
    if (!entity) {
        ++m_end;
        return true;
    }
    if (!has(entity->character, link) || entity->character == U'\'')
        return false;
    m_end += entity->length;
    m_entityEnd = m_end;
    return true;
}

bool LinkExtent::takesBracket(char16_t c) {
    if (c == u'(' || c == u'[') {
        if (m_depth == deepest)
            return false;
        m_brackets[m_depth++] = {c == u'(' ? u')' : u']', m_end};
        return true;
    }
    if (m_depth == 0 || m_brackets[m_depth - 1].closing != c)
        return false;
    --m_depth;
    return true;
}

bool LinkExtent::takesEscape() {
    if (isEscape(m_text, m_end, escapedLess))
        ++m_openEscapes;
    else if (isEscape(m_text, m_end, escapedGreater) && --m_openEscapes < 0)
        return m_opener != u'<';
    return true;
}

/// Another link begins here if it is glued to a word or to punctuation; behind "=", "/" and the
/// like it is a part of this one.
bool LinkExtent::takesColon() {
    if (at(m_end + 1) != u'/' || at(m_end + 2) != u'/')
        return true;
    const QStringView before = m_text.mid(m_body, m_end - m_body);
    const bool isHttps = before.endsWith(u"https", Qt::CaseInsensitive);
    if (!isHttps && !before.endsWith(u"http", Qt::CaseInsensitive))
        return true;
    const qsizetype inner = m_end - (isHttps ? 5 : 4);
    if (inner - 3 > m_body && isEscape(m_text, inner - 3, escapedLess)) {
        // "https://zoom.us/j/1%20%3Chttps://zoom.us/j/1%3E"
        --m_openEscapes;
        m_end = inner - 3;
        if (m_end - 3 > m_body && isEscape(m_text, m_end - 3, escapedBlank))
            m_end -= 3;
        return false;
    }
    const char16_t last = at(inner - 1);
    const bool isEscaped = inner - 3 >= m_body && at(inner - 3) == u'%' && isHexDigit(last);
    if (inner == m_body || isEscaped)
        return true;
    if (isAsciiLetterOrDigit(last) || isOneOf(last, u",;.!([)]'* \t\n\r")) {
        m_end = inner;
        while (m_depth > 0 && m_brackets[m_depth - 1].position >= m_end)
            --m_depth;
        return false;
    }
    return true;
}

bool LinkExtent::takesLetter(char32_t c) const {
    const char16_t before = at(m_end - 1);
    if (QChar::isMark(c))
        return !isAscii(before) || isAsciiLetterOrDigit(before);
    if (c >= 0xFF00 && c <= 0xFFEF) // full-width forms are prose
        return false;
    switch (lettersOf(c)) {
    case Letters::none:
        return QChar::isDigit(c);
    case Letters::latin:
        return true;
    case Letters::other:
        break;
    }
    if (!isAscii(before))
        return true;
    return m_end == m_body || isOneOf(before, u"/=-_+#?&") ||
           (m_isAuthority && (before == u'.' || before == u'@'));
}

bool LinkExtent::takesLineBreak() {
    if (m_folding == Folding::unknown)
        m_folding = isFoldedUpToCloser() ? Folding::accepted : Folding::refused;
    if (m_folding == Folding::refused)
        return false;
    m_end += lineBreakLength(m_end);
    return true;
}

char16_t LinkExtent::closer() const {
    if (m_opener == u'<')
        return u'>';
    return m_isAttribute ? m_opener : u'\0';
}

/// A line break and the one blank that a folding sender puts behind it.
qsizetype LinkExtent::lineBreakLength(qsizetype position) const {
    qsizetype end = position;
    if (at(end) == u'\r')
        ++end;
    if (at(end) == u'\n')
        ++end;
    if (end > position && (at(end) == u' ' || at(end) == u'\t'))
        ++end;
    return end - position;
}

bool LinkExtent::isFoldedUpToCloser() const {
    const char16_t last = closer();
    if (last == u'\0')
        return false;
    const qsizetype bound = std::min(m_text.size(), m_start + longest);
    for (qsizetype position = m_end; position < bound;) {
        const char16_t c = at(position);
        if (c == last)
            return true;
        const qsizetype lineBreak = lineBreakLength(position);
        if (lineBreak == 0 && !has(c, link))
            return false;
        position += std::max<qsizetype>(lineBreak, 1);
    }
    return false;
}

void LinkExtent::trimEnd() {
    for (; m_end > m_body && m_end != m_entityEnd; --m_end) {
        const char16_t last = at(m_end - 1);
        const bool isMarkup = (last == u'_' || last == u'~') && last == m_opener;
        if (m_end - 3 >= m_body && m_openEscapes < 0 &&
            isEscape(m_text, m_end - 3, escapedGreater)) {
            ++m_openEscapes;
            m_end -= 2;
        } else if (!isMarkup && !isOneOf(last, u".,;:!?'*\r\n \t")) {
            break;
        }
    }
}

QString LinkExtent::address() const {
    const QStringView raw = m_text.mid(m_start, m_end - m_start);
    if (m_entityEnd < 0 && m_folding != Folding::accepted)
        return raw.toString();

    QString address;
    address.reserve(raw.size());
    for (qsizetype position = 0; position < raw.size();) {
        if (const qsizetype lineBreak = lineBreakLength(m_start + position); lineBreak > 0) {
            position += lineBreak;
        } else if (const auto entity = entityAt(raw, position)) {
            address += QChar(static_cast<char16_t>(entity->character));
            position += entity->length;
        } else {
            address += raw[position++];
        }
    }
    return address;
}

} // namespace vantrel
