#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace vantrel {

/// A name in running text that may be a host without a scheme.
class BareHost {
public:
    /// Looks for one in a run of letters, digits, dots, hyphens and underscores. Judges the form
    /// and what stands around it, not yet the suffix. The text must outlive the answer.
    static std::optional<BareHost> find(QStringView text, qsizetype start, qsizetype end);

    [[nodiscard]] qsizetype start() const { return m_start; }
    [[nodiscard]] qsizetype end() const { return m_end; }
    [[nodiscard]] QString name() const;

    /// Behind a port and before a path, else the end of the host.
    [[nodiscard]] qsizetype endOfPort() const;

    /// Whether somebody meant it as a link; `hasTail` when a port, path, query or fragment follows.
    [[nodiscard]] bool isLink(bool hasTail) const;

private:
    BareHost(QStringView text, qsizetype start, qsizetype end);

    [[nodiscard]] bool isWellFormed() const;
    [[nodiscard]] bool looksMeant() const;
    [[nodiscard]] QStringView lastLabel() const;

    QStringView m_text;
    qsizetype m_start;
    qsizetype m_end;
};

} // namespace vantrel
