#pragma once

#include "LinkScanner.h"
#include "PhoneScanner.h"

#include <QLocale>
#include <QString>

#include <optional>

namespace vantrel {

/// Finds links and phone numbers in running text, in document order. Digits within a link are no
/// phone number. The work grows linearly with the text, whatever it holds.
class TextScanner {
public:
    enum class Kind { link, phoneNumber };

    struct Match {
        Kind kind;
        QString text; ///< The whole address of a link; a number as it is written.
    };

    /// `territory` tells how numbers without a plus sign are written.
    TextScanner(const QString &text, QLocale::Territory territory);

    [[nodiscard]] std::optional<Match> next();

    /// From here on, passes over matches of that kind.
    void ignore(Kind kind);

private:
    [[nodiscard]] std::optional<Match> nextNumber();

    QString m_text; ///< What the scanners look at.
    LinkScanner m_links;
    PhoneScanner m_numbers;
    bool m_wantsLinks = true;
    bool m_wantsNumbers = true;
    std::optional<LinkScanner::Link> m_link; ///< The next link, not reported so far.
    bool m_isLinkKnown = false;
    qsizetype m_position = 0; ///< Up to here all numbers are reported.
};

} // namespace vantrel
