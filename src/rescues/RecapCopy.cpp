#include "RecapCopy.h"

namespace vantrel {

namespace {

QString counted(std::int64_t count, const char *one, const char *many) {
    return QStringLiteral("%1 %2").arg(QString::number(count),
                                       QString::fromLatin1(count == 1 ? one : many));
}

std::optional<QString> fromOne(std::int64_t count, const char *one, const char *many) {
    if (count < 1)
        return std::nullopt;
    return counted(count, one, many);
}

} // namespace

RecapCopy::Sentence RecapCopy::tobbleFetched(std::int64_t count) {
    return {QStringLiteral("Tobble fetched you"),
            counted(count, "time", "times") + QStringLiteral(" this week.")};
}

RecapCopy::Sentence RecapCopy::youFetched(std::int64_t count) {
    return {QStringLiteral("You fetched"),
            counted(count, "friend", "friends") + QStringLiteral(".")};
}

std::optional<QString> RecapCopy::flourish(std::int64_t weeklyCount) {
    if (weeklyCount < 1)
        return std::nullopt;
    if (weeklyCount < 5)
        return QStringLiteral("Tobble made the rounds.");
    if (weeklyCount < 15)
        return QStringLiteral("A good week of fetches.");
    return QStringLiteral("Tobble is rolling in honey.");
}

std::optional<QString> RecapCopy::takeoverLine(std::int64_t count) {
    return fromOne(count, "from the takeover", "from the takeover");
}

std::optional<QString> RecapCopy::popoverLine(std::int64_t count) {
    return fromOne(count, "from the popover", "from the popover");
}

std::optional<QString> RecapCopy::snoozeLine(std::int64_t count) {
    return fromOne(count, "snooze", "snoozes");
}

std::optional<QString> RecapCopy::dismissLine(std::int64_t count) {
    return fromOne(count, "dismiss", "dismisses");
}

} // namespace vantrel
