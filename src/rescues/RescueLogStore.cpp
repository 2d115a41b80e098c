#include "RescueLogStore.h"

#include <platform/Log.h>

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace vantrel {

namespace {

VANTREL_LOG(rescueLog, "RescueLog")

constexpr QLatin1String rescuesFromTakeoverName("rescuesFromTakeover");
constexpr QLatin1String rescuesFromPopoverName("rescuesFromPopover");
constexpr QLatin1String snoozesName("snoozes");
constexpr QLatin1String dismissesName("dismisses");
constexpr QLatin1String pingsSentName("pingsSent");

/// Takes counts out of a day's object and remembers whether one of them was none.
class DayReader {
public:
    explicit DayReader(const QJsonObject &day) : m_day(day) {}

    std::int64_t required(QLatin1String name) { return whole(m_day.value(name)); }

    std::int64_t optional(QLatin1String name) {
        return m_day.contains(name) ? whole(m_day.value(name)) : 0;
    }

    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

private:
    std::int64_t whole(const QJsonValue &value) {
        // The second default tells a real 0 from "no whole number of 64 bits".
        if (value.toInteger(0) != value.toInteger(1))
            m_hasFailed = true;
        return value.toInteger(0);
    }

    const QJsonObject &m_day;
    bool m_hasFailed = false;
};

std::optional<DayBucket> decodeDay(const QJsonObject &day) {
    DayReader reader(day);
    const DayBucket bucket{
        .rescuesFromTakeover = reader.required(rescuesFromTakeoverName),
        .rescuesFromPopover = reader.required(rescuesFromPopoverName),
        .snoozes = reader.required(snoozesName),
        .dismisses = reader.required(dismissesName),
        .pingsSent = reader.optional(pingsSentName),
    };
    return reader.hasFailed() ? std::nullopt : std::optional(bucket);
}

QJsonObject encodeDay(const DayBucket &bucket) {
    return {
        {rescuesFromTakeoverName, static_cast<qint64>(bucket.rescuesFromTakeover)},
        {rescuesFromPopoverName, static_cast<qint64>(bucket.rescuesFromPopover)},
        {snoozesName, static_cast<qint64>(bucket.snoozes)},
        {dismissesName, static_cast<qint64>(bucket.dismisses)},
        {pingsSentName, static_cast<qint64>(bucket.pingsSent)},
    };
}

/// Fills `error` and answers nothing when the text is no log.
std::optional<DayBuckets> decode(const QByteArray &text, QString &error) {
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        error =
            QStringLiteral("%1 at offset %2").arg(parseError.errorString()).arg(parseError.offset);
        return std::nullopt;
    }
    if (!document.isObject()) {
        error = QStringLiteral("the top level is no object");
        return std::nullopt;
    }
    DayBuckets byDay;
    const QJsonObject days = document.object();
    for (auto day = days.begin(); day != days.end(); ++day) {
        const auto bucket = decodeDay(day.value().toObject());
        if (!bucket) {
            error = QStringLiteral("the entry \"%1\" lacks a count or holds one that is no integer")
                        .arg(day.key());
            return std::nullopt;
        }
        byDay.emplace(day.key(), *bucket);
    }
    return byDay;
}

} // namespace

RescueLogStore::RescueLogStore(QString fileURL) : m_file(std::move(fileURL)) {}

QString RescueLogStore::defaultFileURL() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                           QStringLiteral("/Vantrel");
    std::error_code error;
    std::filesystem::create_directories(folder.toStdU16String(), error);
    if (!error)
        return folder + QStringLiteral("/rescues.json");
    qCCritical(rescueLog).noquote()
        << "Application Support unavailable; falling back to tmp:"
        << folder + QStringLiteral(": ") + QString::fromStdString(error.message());
    return QDir::tempPath() + QStringLiteral("/Vantrel-rescues.json");
}

DayBuckets RescueLogStore::load() const {
    auto [text, error] = m_file.read();
    std::optional<DayBuckets> byDay;
    if (text)
        byDay = decode(*text, error);
    if (!error.isEmpty())
        qCCritical(rescueLog).noquote() << "Failed to load rescue log; starting fresh:" << error;
    return byDay.value_or(DayBuckets());
}

void RescueLogStore::save(const DayBuckets &byDay) const {
    QJsonObject days;
    for (const auto &[key, bucket] : byDay)
        days.insert(key, encodeDay(bucket));
    if (const auto error = m_file.replace(QJsonDocument(days).toJson(QJsonDocument::Indented)))
        qCCritical(rescueLog).noquote() << "Failed to save rescue log:" << *error;
}

} // namespace vantrel
