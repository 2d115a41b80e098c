#include "TextScanner.h"

namespace vantrel {

TextScanner::TextScanner(const QString &text, QLocale::Territory territory)
    : m_text(text), m_links(m_text), m_numbers(m_text, territory) {}

void TextScanner::ignore(Kind kind) {
    (kind == Kind::link ? m_wantsLinks : m_wantsNumbers) = false;
}

std::optional<TextScanner::Match> TextScanner::next() {
    while (true) {
        if (!m_isLinkKnown) {
            m_link = m_links.next(m_wantsLinks ? LinkScanner::Search::all
                                               : LinkScanner::Search::schemesOnly);
            m_isLinkKnown = true;
        }
        if (m_wantsNumbers) {
            if (auto number = nextNumber())
                return number;
        }
        if (!m_link)
            return std::nullopt;
        const LinkScanner::Link link = *m_link;
        m_position = link.end;
        m_isLinkKnown = false;
        if (m_wantsLinks && !link.address.isNull())
            return Match{Kind::link, link.address};
    }
}

/// Numbers stand in the gap before the next link.
std::optional<TextScanner::Match> TextScanner::nextNumber() {
    const qsizetype end = m_link ? m_link->start : m_text.size();
    const auto number = m_numbers.next(m_position, end);
    if (!number)
        return std::nullopt;
    m_position = number->end;
    return Match{Kind::phoneNumber,
                 QStringView(m_text).mid(number->start, number->end - number->start).toString()};
}

} // namespace vantrel
