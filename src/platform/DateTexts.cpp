#include "DateTexts.h"

#include "IcuLocale.h"

#include <QTimeZone>

#include <unicode/udat.h>
#include <unicode/udatpg.h>

#include <memory>
#include <optional>

namespace vantrel {

namespace {

/// The locale of the environment's times. Qt reads it too but does not tell which one it is.
QLocale environmentsTimeLocale() {
    for (const char *variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        if (const QByteArray name = qgetenv(variable); !name.isEmpty())
            return QLocale(QString::fromLocal8Bit(name));
    }
    return QLocale::c();
}

/// For the locale of POSIX, which has a clock of 24 hours, the English that has one too.
QByteArray languageTag(const QLocale &locale) {
    const QByteArray tag =
        locale.language() == QLocale::C ? "en-150" : locale.bcp47Name().toLatin1();
    return tag + "-u-ca-gregory";
}

/// A time in hours and minutes by a clock that is not the locale's own, in the order and with the
/// signs that are usual there. Empty when ICU's data are missing or damaged.
QString lookedUpPattern(ClockFormat clock, const QLocale &locale) {
    const QString fields =
        clock == ClockFormat::twelveHours ? QStringLiteral("hm") : QStringLiteral("Hm");
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UDateTimePatternGenerator, decltype(&udatpg_close)> patterns(
        udatpg_open(icuLocale(languageTag(locale)).constData(), &error), udatpg_close);
    QString pattern(64, Qt::Uninitialized);
    const int32_t length = udatpg_getBestPattern(
        patterns.get(), reinterpret_cast<const UChar *>(fields.utf16()),
        static_cast<int32_t>(fields.size()), reinterpret_cast<UChar *>(pattern.data()),
        static_cast<int32_t>(pattern.size()), &error);
    pattern.truncate(U_FAILURE(error) ? 0 : length);
    return pattern;
}

/// Looking one up takes longer than all else about a time of day, and a list asks for each row. On
/// one thread there is one user, whose clock and locale hardly ever change.
QString patternOf(ClockFormat clock, const QLocale &locale) {
    struct Known {
        ClockFormat clock;
        QLocale locale;
        QString pattern;
    };
    thread_local std::optional<Known> known;
    if (!known || known->clock != clock || known->locale != locale)
        known = Known{clock, locale, lookedUpPattern(clock, locale)};
    return known->pattern;
}

struct Style {
    UDateFormatStyle time;
    UDateFormatStyle date;
    QString pattern; ///< Where both are `UDAT_PATTERN`.
};

const UChar *unitsOf(const QString &text) {
    return reinterpret_cast<const UChar *>(text.utf16());
}

/// Empty when ICU's data are missing or damaged.
std::optional<QString> formatted(const QDateTime &dateTime, const QLocale &locale,
                                 const Style &style) {
    UErrorCode error = U_ZERO_ERROR;
    const QString zone = QStringLiteral("Etc/GMT");
    const std::unique_ptr<UDateFormat, decltype(&udat_close)> format(
        udat_open(style.time, style.date, icuLocale(languageTag(locale)).constData(), unitsOf(zone),
                  static_cast<int32_t>(zone.size()), unitsOf(style.pattern),
                  static_cast<int32_t>(style.pattern.size()), &error),
        udat_close);
    // The reading of the wall clock is passed off as one in UTC: ICU has time zones of its own,
    // which need not agree with Qt's.
    const QDateTime reading(dateTime.date(), dateTime.time(), QTimeZone::utc());
    const auto instant = static_cast<UDate>(reading.toMSecsSinceEpoch());

    QString text(64, Qt::Uninitialized);
    const int32_t length =
        udat_format(format.get(), instant, reinterpret_cast<UChar *>(text.data()),
                    static_cast<int32_t>(text.size()), nullptr, &error);
    if (U_FAILURE(error) || length > text.size())
        return std::nullopt;
    text.truncate(length);
    return text;
}

} // namespace

DateTexts::DateTexts(const QLocale &locale, ClockFormat clock)
    : m_locale(locale == QLocale::system() ? environmentsTimeLocale() : locale), m_clock(clock) {}

QString DateTexts::weekdayName(const QDateTime &dateTime) const {
    return formatted(dateTime, m_locale, {UDAT_PATTERN, UDAT_PATTERN, QStringLiteral("EEEE")})
        .value_or(m_locale.dayName(dateTime.date().dayOfWeek()));
}

QString DateTexts::mediumDate(const QDateTime &dateTime) const {
    return formatted(dateTime, m_locale, {UDAT_NONE, UDAT_MEDIUM, {}})
        .value_or(m_locale.toString(dateTime.date(), QLocale::ShortFormat));
}

QString DateTexts::shortTime(const QDateTime &dateTime) const {
    Style style{UDAT_SHORT, UDAT_NONE, {}};
    if (m_clock != ClockFormat::ofLocale)
        style = {UDAT_PATTERN, UDAT_PATTERN, patternOf(m_clock, m_locale)};
    return formatted(dateTime, m_locale, style)
        .value_or(m_locale.toString(dateTime.time(), QLocale::ShortFormat));
}

} // namespace vantrel
