#pragma once

#include <QStringView>

namespace vantrel {

/// What the words around some digits say about them. Knows the words that invitations use, in the
/// languages of their senders; looks back no further than one label.
class NumberContext {
public:
    enum class Meaning {
        unknown,
        phone, ///< "Tel.", "Dial", "電話番号" …
        other, ///< "Meeting ID", "Passcode", "Order no.", "会议号" …
    };

    /// The text must outlive this object.
    explicit NumberContext(QStringView text) : m_text(text) {}

    /// By the nearest telling word before the position.
    [[nodiscard]] Meaning meaningBefore(qsizetype position) const;

    /// A currency stands on either side.
    [[nodiscard]] bool isAmount(qsizetype start, qsizetype end) const;

    /// The text holds nothing else.
    [[nodiscard]] bool isWholeText(qsizetype start, qsizetype end) const;

private:
    [[nodiscard]] qsizetype wordStart(qsizetype end) const;
    [[nodiscard]] qsizetype markupStart(qsizetype end) const;
    [[nodiscard]] bool isBehindColon(qsizetype lineBreak) const;
    [[nodiscard]] QStringView wordBefore(qsizetype position) const;
    [[nodiscard]] QStringView wordBehind(qsizetype position) const;
    [[nodiscard]] bool isCurrencyAt(qsizetype position) const;

    QStringView m_text;
};

} // namespace vantrel
