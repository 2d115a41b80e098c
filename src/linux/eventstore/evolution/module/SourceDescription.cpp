#include "SourceDescription.h"

#include <linux/eventstore/source/CalendarColors.h>

#include <algorithm>
#include <set>
#include <utility>

namespace vantrel {

namespace {

constexpr int maximumAncestors = 16;

QString uidOf(ESource *source) {
    return QString::fromUtf8(takeText(e_source_dup_uid(source)));
}

QString nameOf(ESource *source) {
    return QString::fromUtf8(takeText(e_source_dup_display_name(source)));
}

QByteArray backendOf(ESource *source) {
    auto *calendar =
        static_cast<ESourceBackend *>(e_source_get_extension(source, E_SOURCE_EXTENSION_CALENDAR));
    return takeText(e_source_backend_dup_backend_name(calendar));
}

StoreSource accountOf(ESourceRegistry *registry, ESource *source) {
    Reference<ESource> top = anotherReference(source);
    for (int step = 0; step < maximumAncestors; ++step) {
        const QByteArray parent = takeText(e_source_dup_parent(top.get()));
        ESource *const above =
            parent.isEmpty() ? nullptr : e_source_registry_ref_source(registry, parent.constData());
        if (!above)
            break;
        top.reset(above);
    }
    return {QString::fromLatin1(evolutionPrefix) + uidOf(top.get()), nameOf(top.get())};
}

StoreCalendarType typeOf(const QByteArray &backend) {
    if (backend == "webcal")
        return StoreCalendarType::subscription;
    return backend == "contacts" ? StoreCalendarType::birthday : StoreCalendarType::local;
}

SourceCalendar describe(ESourceRegistry *registry, ESource *source) {
    SourceCalendar result;
    StoreCalendar &calendar = result.calendar;
    calendar.calendarIdentifier = QString::fromLatin1(evolutionPrefix) + uidOf(source);
    calendar.title = nameOf(source);
    auto *selectable = static_cast<ESourceSelectable *>(
        e_source_get_extension(source, E_SOURCE_EXTENSION_CALENDAR));
    calendar.color =
        colorFromText(QString::fromUtf8(takeText(e_source_selectable_dup_color(selectable))));
    if (!calendar.color)
        calendar.color = defaultColor(calendar.calendarIdentifier);
    calendar.type = typeOf(backendOf(source));
    calendar.allowsContentModifications = calendar.type == StoreCalendarType::local;
    calendar.source = accountOf(registry, source);
    return result;
}

/// Calendars that belong to no account of their own share one of the registry's, so that the server
/// has to tell them apart.
QString placeOf(ESource *source, const StoreSource &account) {
    if (!e_source_has_extension(source, E_SOURCE_EXTENSION_AUTHENTICATION))
        return account.sourceIdentifier;
    auto *server = static_cast<ESourceAuthentication *>(
        e_source_get_extension(source, E_SOURCE_EXTENSION_AUTHENTICATION));
    return account.sourceIdentifier + u' ' +
           QString::fromUtf8(takeText(e_source_authentication_dup_host(server)));
}

std::optional<QByteArray> obstacleOf(ESource *source) {
    switch (e_source_get_connection_status(source)) {
    case E_SOURCE_CONNECTION_STATUS_CONNECTED:
        return QByteArray();
    case E_SOURCE_CONNECTION_STATUS_AWAITING_CREDENTIALS:
        return QByteArray("its server wants another password");
    case E_SOURCE_CONNECTION_STATUS_SSL_FAILED:
        return QByteArray("its server's certificate is not trusted");
    default:
        return {};
    }
}

QStringList identityAddresses(ESourceRegistry *registry) {
    QStringList addresses;
    forEachSource(registry, E_SOURCE_EXTENSION_MAIL_IDENTITY, [&addresses](ESource *source) {
        auto *identity = static_cast<ESourceMailIdentity *>(
            e_source_get_extension(source, E_SOURCE_EXTENSION_MAIL_IDENTITY));
        addresses += plainAddress(takeText(e_source_mail_identity_dup_address(identity)));
        GHashTable *const aliases = e_source_mail_identity_get_aliases_as_hash_table(identity);
        if (!aliases)
            return;
        g_hash_table_foreach(
            aliases,
            [](gpointer address, gpointer, gpointer data) {
                *static_cast<QStringList *>(data) += plainAddress(static_cast<char *>(address));
            },
            &addresses);
        g_hash_table_destroy(aliases);
    });
    addresses.removeAll(QString());
    addresses.removeDuplicates();
    addresses.sort();
    return addresses;
}

/// The accounts that find their calendars by themselves and are to do so.
std::set<QString> accountsWithCalendars(ESourceRegistry *registry) {
    std::set<QString> accounts;
    forEachSource(registry, E_SOURCE_EXTENSION_COLLECTION, [&](ESource *source) {
        auto *collection = static_cast<ESourceCollection *>(
            e_source_get_extension(source, E_SOURCE_EXTENSION_COLLECTION));
        if (e_source_registry_check_enabled(registry, source) &&
            e_source_collection_get_calendar_enabled(collection))
            accounts.insert(accountOf(registry, source).sourceIdentifier);
    });
    return accounts;
}

} // namespace

QString plainAddress(const QByteArray &address) {
    QString plain = QString::fromUtf8(address).trimmed().toLower();
    const auto scheme = QStringLiteral("mailto:");
    return plain.startsWith(scheme) ? plain.mid(scheme.size()) : plain;
}

SourceList listSources(ESourceRegistry *registry) {
    SourceList list;
    list.isExhausted = true;
    forEachSource(registry, E_SOURCE_EXTENSION_COLLECTION,
                  [&list](ESource *) { list.isExhausted = false; });
    std::set<QString> silent = accountsWithCalendars(registry);
    const QStringList addresses = identityAddresses(registry);
    forEachSource(registry, E_SOURCE_EXTENSION_CALENDAR, [&](ESource *source) {
        silent.erase(accountOf(registry, source).sourceIdentifier);
        if (!e_source_registry_check_enabled(registry, source)) {
            list.isExhausted = false;
        } else if (backendOf(source) != "weather") {
            SourceCalendar calendar = describe(registry, source);
            calendar.addresses = addresses;
            const QString place = placeOf(source, calendar.calendar.source);
            list.calendars.push_back({takeText(e_source_dup_uid(source)), place, obstacleOf(source),
                                      std::move(calendar)});
        }
    });
    list.isAwaitingMore = !silent.empty();
    std::sort(list.calendars.begin(), list.calendars.end(),
              [](const auto &left, const auto &right) {
                  return left.calendar.calendar.calendarIdentifier <
                         right.calendar.calendar.calendarIdentifier;
              });
    return list;
}

} // namespace vantrel
