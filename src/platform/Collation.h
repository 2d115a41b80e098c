#pragma once

#include <QLocale>
#include <QString>

#include <memory>

namespace vantrel {

/// The order in which readers of one language look for texts: letters of either case together,
/// accents where the language has them. Rules are those of ICU. Not to be shared by threads.
///
/// Made for one task and dropped: the rules are loaded at the first comparison and stay with ICU,
/// so that a second collation costs next to nothing.
class Collation {
public:
    /// Of the system's locale, the one that is set for sorting (`LC_COLLATE`).
    explicit Collation(const QLocale &locale) : m_locale(locale.collation()) {}

    /// Negative when `left` comes first, positive when `right` does; zero when neither does.
    [[nodiscard]] int localizedCompare(const QString &left, const QString &right) const;

private:
    QLocale m_locale;
    mutable std::shared_ptr<void> m_rules; ///< Null before the first comparison.
};

} // namespace vantrel
