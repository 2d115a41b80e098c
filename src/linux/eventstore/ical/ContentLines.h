#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace vantrel {

/// Whether two names or enumerated values are the same: case counts for nothing in them.
[[nodiscard]] inline bool isWord(QByteArrayView text, QByteArrayView word) {
    return text.compare(word, Qt::CaseInsensitive) == 0;
}

/// A value without the quotes around it, if there are any.
[[nodiscard]] inline QByteArrayView unquoted(QByteArrayView text) {
    return text.size() >= 2 && text.startsWith('"') && text.endsWith('"')
               ? text.sliced(1, text.size() - 2)
               : text;
}

/// One line of an iCalendar text (RFC 5545, section 3.1), unfolded: a name, parameters, a value.
/// The parts are views into the text that is being read.
struct ContentLine {
    QByteArrayView name;
    QByteArrayView parameters; ///< From behind the first semicolon up to the colon; may be empty.
    QByteArrayView value;
    int number = 0;     ///< Of the line in the text, counted from 1 before unfolding.
    bool isCut = false; ///< Longer than `ContentLines::maximumLength`; the rest was dropped.

    /// Whether the name is this one, in whatever case.
    [[nodiscard]] bool isNamed(QByteArrayView upperCaseName) const;

    /// The value of the parameter, without its quotes; empty when it is missing. Looks at the
    /// first 100 parameters.
    [[nodiscard]] QByteArrayView parameter(QByteArrayView upperCaseName) const;
};

/// Takes an iCalendar text apart into lines, in time that grows with its length alone, whatever it
/// holds. Lines end with CRLF, LF or CR; a byte order mark is skipped.
class ContentLines {
public:
    static constexpr qsizetype maximumLength = 65'536;

    /// Unfolds within `text`, which must outlive the lines.
    explicit ContentLines(QByteArray &text);

    /// Fills `line` with the next one that has a name and a colon; false at the end. Others are
    /// skipped and counted.
    bool next(ContentLine &line);

    /// How many lines were no content lines, empty ones left out.
    [[nodiscard]] int skippedLines() const { return m_skippedLines; }

private:
    QByteArrayView unfold(bool &isCut);
    void skipLineEnd();

    char *m_read;
    char *m_end;
    int m_number = 0;
    int m_skippedLines = 0;
};

} // namespace vantrel
