#pragma once

#include <links/TextScanner.h>

#include <QLocale>
#include <QString>
#include <QStringList>

#include <ostream>

namespace vantrel {

inline std::string printable(const QString &text) {
    return text.toStdString();
}

/// Gives the default locale back when it goes.
class LocaleGuard {
public:
    explicit LocaleGuard(const QLocale &locale) { QLocale::setDefault(locale); }
    ~LocaleGuard() { QLocale::setDefault(m_before); }
    LocaleGuard(const LocaleGuard &) = delete;
    LocaleGuard &operator=(const LocaleGuard &) = delete;

private:
    QLocale m_before;
};

inline QStringList matchesIn(const QString &text, TextScanner::Kind kind,
                             QLocale::Territory territory) {
    TextScanner scanner(text, territory);
    QStringList matches;
    while (const auto match = scanner.next()) {
        if (match->kind == kind)
            matches.append(match->text);
    }
    return matches;
}

inline QStringList linksIn(const QString &text) {
    return matchesIn(text, TextScanner::Kind::link, QLocale::AnyTerritory);
}

inline QStringList numbersIn(const QString &text,
                             QLocale::Territory territory = QLocale::AnyTerritory) {
    return matchesIn(text, TextScanner::Kind::phoneNumber, territory);
}

} // namespace vantrel

inline void PrintTo(const QString &text, std::ostream *out) {
    *out << '"' << text.toStdString() << '"';
}
