#include "ZoneRegistry.h"

#include "ZoneRules.h"

#include <linux/eventstore/files/Files.h>

#include <algorithm>
#include <optional>

namespace vantrel {

namespace {

/// Names are looked up as paths below the zone database: none may leave it.
bool isZoneName(QByteArrayView name) {
    return !name.isEmpty() && name.size() <= 64 && !name.startsWith('/') &&
           std::all_of(name.begin(), name.end(), [](char character) {
               return (character >= 'a' && character <= 'z') ||
                      (character >= 'A' && character <= 'Z') ||
                      (character >= '0' && character <= '9') || character == '/' ||
                      character == '_' || character == '-' || character == '+';
           });
}

/// Qt takes a name that the zone database lacks for a POSIX rule and makes a zone of it: the
/// database has to be asked.
bool isInDatabase(const QByteArray &name) {
    for (const char *const folder : {"/usr/share/zoneinfo/", "/usr/lib/zoneinfo/"}) {
        int error = 0;
        if (files::read(folder + name, 4, error) == QByteArray("TZif"))
            return true;
    }
    return false;
}

std::optional<QTimeZone> zoneNamed(const QByteArray &name) {
    if (name == "UTC" || name == "GMT")
        return QTimeZone::utc();
    if (!isZoneName(name) || !isInDatabase(name))
        return std::nullopt;
    QTimeZone zone(name);
    return zone.isValid() ? std::optional(std::move(zone)) : std::nullopt;
}

/// "GMT+08:00", "UTC-5", "+0530": hours ahead of UTC, as ISO 8601 counts them.
std::optional<QTimeZone> zoneOfOffset(QByteArrayView name) {
    if (isWord(name.first(std::min<qsizetype>(name.size(), 3)), "GMT") ||
        isWord(name.first(std::min<qsizetype>(name.size(), 3)), "UTC"))
        name = name.sliced(3);
    if (name.size() < 2 || name.size() > 6 || (name[0] != '+' && name[0] != '-'))
        return std::nullopt;
    QByteArray digits = name.sliced(1).toByteArray().replace(":", "");
    if (digits.size() <= 2)
        digits += "00";
    bool isNumber = false;
    const uint value = digits.toUInt(&isNumber);
    if (!isNumber || value / 100 > 14 || value % 100 > 59)
        return std::nullopt;
    const int seconds = static_cast<int>(value / 100 * 3600 + value % 100 * 60);
    return QTimeZone(name[0] == '-' ? -seconds : seconds);
}

std::optional<QTimeZone> findZone(QByteArrayView name) {
    const QByteArray windowsName = QTimeZone::windowsIdToDefaultIanaId(name.toByteArray());
    if (!windowsName.isEmpty())
        return zoneNamed(windowsName);
    if (auto zone = zoneNamed(name.toByteArray()))
        return zone;
    if (auto zone = zoneOfOffset(name))
        return zone;
    // A vendor's prefix is cut off folder by folder: names hold up to two slashes themselves.
    for (auto slash = name.indexOf('/'); slash >= 0; slash = name.indexOf('/')) {
        name = name.sliced(slash + 1);
        if (auto zone = zoneNamed(name.toByteArray()))
            return zone;
    }
    return std::nullopt;
}

constexpr qsizetype maximumZones = 2000;

} // namespace

std::shared_ptr<const Zone> ZoneRegistry::systemZone(QByteArrayView name) {
    const QByteArray key = name.trimmed().toByteArray();
    const auto known = m_system.constFind(key);
    if (known != m_system.constEnd())
        return *known;
    std::shared_ptr<const Zone> zone;
    if (auto found = findZone(key))
        zone = std::make_shared<const Zone>(std::move(*found));
    if (m_system.size() < maximumZones)
        m_system.insert(key, zone);
    return zone;
}

bool ZoneRegistry::hasSystemZones() {
    return isInDatabase("Europe/London");
}

std::shared_ptr<const Zone> ZoneRegistry::describedZone(const std::vector<ContentLine> &lines) {
    QByteArray key;
    for (const ContentLine &line : lines) {
        key.append(line.name).append(':').append(line.value).append('\n');
    }
    const auto known = m_described.constFind(key);
    if (known != m_described.constEnd())
        return *known;
    std::shared_ptr<const Zone> zone = zoneFromRules(lines);
    if (m_described.size() < maximumZones)
        m_described.insert(key, zone);
    return zone;
}

} // namespace vantrel
