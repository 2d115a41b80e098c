#pragma once

#include <QString>
#include <QStringView>

namespace vantrel {

/// Finds where a link in running text ends.
///
/// It ends before anything that no URL may hold; before a closing bracket that was not opened
/// within it, and before an opening one that is not closed; before another link that follows
/// without a space; before prose in another script that is glued to a Latin letter or digit; and
/// before the punctuation of the sentence around it. In angle brackets and in the value of an HTML
/// attribute it may be broken over lines (RFC 3986, appendix C).
class LinkExtent {
public:
    /// `start` is the link's first character, `body` the first one behind "://" or behind a bare
    /// host. The text must outlive this object.
    LinkExtent(QStringView text, qsizetype start, qsizetype body);

    [[nodiscard]] qsizetype end() const { return m_end; }

    /// Longer than any server or browser takes: no link, whatever it is.
    [[nodiscard]] bool isTooLong() const;

    /// The link with HTML entities replaced and line breaks taken out.
    [[nodiscard]] QString address() const;

private:
    static constexpr qsizetype longest = 8192;
    static constexpr qsizetype deepest = 4;

    /// Whether the link may stand in lines, and so where they must end.
    enum class Folding { unknown, refused, accepted };

    void findEnd();
    [[nodiscard]] bool takesAscii(char16_t c);
    [[nodiscard]] bool takesEntity();
    [[nodiscard]] bool takesBracket(char16_t c);
    [[nodiscard]] bool takesEscape();
    [[nodiscard]] bool takesColon();
    [[nodiscard]] bool takesLetter(char32_t c) const;
    [[nodiscard]] bool takesLineBreak();
    [[nodiscard]] bool isFoldedUpToCloser() const;
    [[nodiscard]] qsizetype lineBreakLength(qsizetype position) const;
    [[nodiscard]] char16_t closer() const;
    [[nodiscard]] char16_t at(qsizetype position) const;
    void trimEnd();

    QStringView m_text;
    qsizetype m_start;
    qsizetype m_body;
    qsizetype m_end;
    char16_t m_opener = 0; ///< What stands before the link.
    bool m_isAttribute = false;
    bool m_isAuthority = true;
    Folding m_folding = Folding::unknown;
    qsizetype m_entityEnd = -1; ///< Behind the last entity of the link.
    int m_openEscapes = 0;      ///< "%3C" without their "%3E" so far.

    struct Bracket {
        char16_t closing;
        qsizetype position;
    };
    Bracket m_brackets[deepest];
    qsizetype m_depth = 0;
};

} // namespace vantrel
