#include "ContentLines.h"

#include <algorithm>
#include <cstring>

namespace vantrel {

namespace {

constexpr int maximumParameters = 100;

bool isLineEnd(char character) {
    return character == '\n' || character == '\r';
}

/// The first of the two characters that stands outside quotes; the size when there is none.
qsizetype findUnquoted(QByteArrayView text, char one, char other) {
    bool isQuoted = false;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const char character = text[index];
        if (character == '"')
            isQuoted = !isQuoted;
        else if (!isQuoted && (character == one || character == other))
            return index;
    }
    return text.size();
}

/// Where the value begins. A quote that nobody closed hides no colon.
qsizetype findColon(QByteArrayView text) {
    const auto colon = findUnquoted(text, ':', ':');
    return colon < text.size() ? colon : text.indexOf(':');
}

/// A line that was cut may end within a UTF-8 sequence: that is left out.
QByteArrayView withoutBrokenCharacter(QByteArrayView line, bool isCut) {
    const auto byte = [&line] { return static_cast<unsigned char>(line.back()); };
    if (!isCut || line.isEmpty() || byte() < 0x80)
        return line;
    while (!line.isEmpty() && byte() >= 0x80 && byte() < 0xC0)
        line.chop(1);
    if (!line.isEmpty() && byte() >= 0xC0)
        line.chop(1);
    return line;
}

} // namespace

bool ContentLine::isNamed(QByteArrayView upperCaseName) const {
    return name.size() == upperCaseName.size() && isWord(name, upperCaseName);
}

QByteArrayView ContentLine::parameter(QByteArrayView upperCaseName) const {
    QByteArrayView rest = parameters;
    for (int count = 0; count < maximumParameters && !rest.isEmpty(); ++count) {
        const auto end = findUnquoted(rest, ';', ';');
        const QByteArrayView one = rest.first(end);
        const auto equals = one.indexOf('=');
        if (equals == upperCaseName.size() && isWord(one.first(equals), upperCaseName))
            return unquoted(one.sliced(equals + 1));
        rest = end < rest.size() ? rest.sliced(end + 1) : QByteArrayView();
    }
    return {};
}

ContentLines::ContentLines(QByteArray &text)
    : m_read(text.data()), m_end(text.data() + text.size()) {
    if (text.startsWith("\xEF\xBB\xBF"))
        m_read += 3;
}

bool ContentLines::next(ContentLine &line) {
    while (m_read < m_end) {
        line.number = m_number + 1;
        const QByteArrayView text = unfold(line.isCut);
        if (text.isEmpty())
            continue;
        const auto colon = findColon(text);
        if (colon <= 0) {
            ++m_skippedLines;
            continue;
        }
        const QByteArrayView head = text.first(colon);
        const auto semicolon = std::max<qsizetype>(head.indexOf(';'), -1);
        line.name = semicolon < 0 ? head : head.first(semicolon);
        line.parameters = semicolon < 0 ? QByteArrayView() : head.sliced(semicolon + 1);
        line.value = text.sliced(colon + 1);
        return true;
    }
    return false;
}

/// Joins the next line with those that continue it, by moving them up within the text.
QByteArrayView ContentLines::unfold(bool &isCut) {
    char *const begin = m_read;
    char *write = begin;
    isCut = false;
    for (bool isContinued = true; isContinued;) {
        char *const end = std::find_if(m_read, m_end, isLineEnd);
        const qsizetype room = maximumLength - (write - begin);
        const qsizetype length = std::min<qsizetype>(end - m_read, room);
        isCut = isCut || end - m_read > room;
        if (write != m_read)
            std::memmove(write, m_read, static_cast<std::size_t>(length));
        write += length;
        m_read = end;
        skipLineEnd();
        isContinued = m_read < m_end && (*m_read == ' ' || *m_read == '\t');
        if (isContinued)
            ++m_read;
    }
    return withoutBrokenCharacter(QByteArrayView(begin, write - begin), isCut);
}

void ContentLines::skipLineEnd() {
    ++m_number;
    if (m_read < m_end && *m_read == '\r')
        ++m_read;
    else if (m_read < m_end && *m_read == '\n') {
        ++m_read;
        return;
    }
    if (m_read < m_end && *m_read == '\n')
        ++m_read;
}

} // namespace vantrel
