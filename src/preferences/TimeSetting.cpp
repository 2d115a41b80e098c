#include "TimeSetting.h"

#include <QTime>

#include <utility>

namespace vantrel {

namespace {

/// Languages part the time from what follows it by spaces that no keyboard has.
QString withPlainSpaces(QString text) {
    for (QChar &character : text) {
        if (character.isSpace())
            character = u' ';
    }
    return text.simplified();
}

QTime timeOf(const QString &written, const QLocale &locale) {
    const QString text = withPlainSpaces(written);
    QString usual = withPlainSpaces(locale.timeFormat(QLocale::ShortFormat));
    for (const QString &format :
         {usual, QStringLiteral("h:mm AP"), QStringLiteral("h AP"), QStringLiteral("H:mm"),
          QStringLiteral("Hmm"), QStringLiteral("H")}) {
        const QTime time = locale.toTime(text, format);
        if (time.isValid())
            return time;
    }
    return {};
}

} // namespace

TimeSetting::TimeSetting(const SettingPublisher<std::int64_t> &setting,
                         std::function<void(std::int64_t)> assign, CurrentCalendar currentCalendar)
    : NumberSetting(setting, std::move(assign),
                    [currentCalendar](std::int64_t minute) {
                        return timeOfDayText(minute, currentCalendar());
                    }),
      m_currentCalendar(std::move(currentCalendar)) {}

bool TimeSetting::assignText(const QString &written) const {
    const QTime time = timeOf(written, m_currentCalendar().locale());
    if (time.isValid())
        assign(time.hour() * 60 + time.minute());
    return time.isValid();
}

QString timeOfDayText(std::int64_t minute, const LocalCalendar &calendar) {
    // A day without a change of the clocks, of which the user's zone may have some.
    const LocalCalendar plain(QTimeZone::utc(), calendar.locale(), calendar.clock());
    return plain.shortTime(Instant(std::chrono::minutes(minute)));
}

} // namespace vantrel
