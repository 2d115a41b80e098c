#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace vantrel {

class BareHost;
class LinkExtent;

/// Finds the links of a text in document order: those with a scheme, and bare hosts such as
/// `zoom.us/j/1`, which are completed to `http://zoom.us/j/1`.
///
/// A bare host is a link if it ends in a suffix under which names are registered (ICANN's part of
/// the public suffix list). Without a path, a query or "www." before it, it must also look meant:
/// `notes.md` and `build.sh` are file names, `9.am` is a time, `end.In` is two sentences. A bare
/// host is seldom the way into a meeting, while a wrong one would hide the link that follows it.
class LinkScanner {
public:
    struct Link {
        qsizetype start;
        qsizetype end;
        QString address; ///< Null for what only looks like a link that one follows: the source of
                         ///< a picture, the name of a namespace, the label of another link, a
                         ///< link of absurd length.
    };

    enum class Search {
        all,
        schemesOnly, ///< Just where links with a scheme stand: no bare hosts, no addresses.
    };

    /// The text must outlive the scanner.
    explicit LinkScanner(QStringView text);

    /// The next link behind the last one.
    [[nodiscard]] std::optional<Link> next(Search search);

private:
    /// Letters, digits, dots, hyphens and underscores in a row, cut where Latin letters and those
    /// of other scripts meet within a label.
    struct Run {
        qsizetype start;
        qsizetype end;
        bool hasDot;
    };

    [[nodiscard]] Run runAt(qsizetype start) const;
    std::optional<Link> linkOf(const Run &run, Search search);
    std::optional<Link> linkWithScheme(const Run &run, Search search);
    std::optional<Link> linkWithoutScheme(const Run &run);
    std::optional<Link> bareLink(const BareHost &host, const LinkExtent *extent);
    std::optional<Link> declarationAt(qsizetype start);
    [[nodiscard]] qsizetype schemeStart(const Run &run) const;
    [[nodiscard]] bool isEmbedded(qsizetype start) const;
    [[nodiscard]] bool isLabel(qsizetype end) const;
    [[nodiscard]] bool isHttpAt(qsizetype position) const;
    [[nodiscard]] char16_t at(qsizetype position) const;

    QStringView m_text;
    qsizetype m_position = 0;
};

} // namespace vantrel
