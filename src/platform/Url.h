#pragma once

#include <QString>

#include <optional>

namespace vantrel {

/// A URL that keeps its text exactly as it was found, and names the parts of it that the program
/// asks for. Nothing is normalised: letters keep their case, escapes stay escapes.
class Url {
public:
    /// Empty when the text is no valid URL (RFC 3986, with non-ASCII letters allowed as in
    /// RFC 3987), is empty, holds white space or control characters, or a backslash where the
    /// host is looked for.
    static std::optional<Url> fromString(const QString &text);

    [[nodiscard]] const QString &absoluteString() const { return m_text; }

    /// As written, without the colon; empty for a relative reference.
    [[nodiscard]] const QString &scheme() const { return m_scheme; }

    /// As written, without user, port and brackets; empty when there is none.
    [[nodiscard]] const QString &host() const { return m_host; }

    bool operator==(const Url &other) const { return m_text == other.m_text; }

private:
    QString m_text;
    QString m_scheme;
    QString m_host;
};

} // namespace vantrel
