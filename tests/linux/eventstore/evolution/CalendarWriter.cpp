// Changes the calendars of a session as another program would, one change a call:
//
//   calendar_writer put CALENDAR FILE           creates or modifies the file's events; one with a
//                                               recurrence id changes that occurrence alone
//   calendar_writer remove CALENDAR UID [RID]   removes all of it, or one occurrence
//   calendar_writer churn CALENDAR FILE         creates the file's first event and removes it, many
//                                               times without a pause; in the end it is there
//   calendar_writer add-source UID NAME         a local calendar
//   calendar_writer remove-source UID
//   calendar_writer disable-source UID
//   calendar_writer refresh CALENDAR            has a remote one fetch from its server
//   calendar_writer put-contact FILE            creates or modifies a person of the built-in
//   address
//                                               book, a vCard with a UID
//   calendar_writer remove-contact UID
//   calendar_writer list CALENDAR QUERY         prints how many there are

#include <libebook/libebook.h>
#include <libecal/libecal.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

GError *failure = nullptr;

bool succeed(bool isDone) {
    if (isDone && !failure)
        return true;
    std::fprintf(stderr, "calendar_writer: %s\n", failure ? failure->message : "failed");
    return false;
}

ECalClient *open(ESourceRegistry *registry, const char *uid) {
    ESource *source = e_source_registry_ref_source(registry, uid);
    if (!source) {
        std::fprintf(stderr, "calendar_writer: no source %s\n", uid);
        return nullptr;
    }
    EClient *client = e_cal_client_connect_sync(source, E_CAL_CLIENT_SOURCE_TYPE_EVENTS,
                                                static_cast<guint32>(-1), nullptr, &failure);
    g_object_unref(source);
    return succeed(client) ? reinterpret_cast<ECalClient *>(client) : nullptr;
}

bool putEvent(ECalClient *client, ICalComponent *event) {
    ICalProperty *recurrence =
        i_cal_component_get_first_property(event, I_CAL_RECURRENCEID_PROPERTY);
    if (recurrence) {
        g_object_unref(recurrence);
        return succeed(e_cal_client_modify_object_sync(
            client, event, E_CAL_OBJ_MOD_THIS, E_CAL_OPERATION_FLAG_NONE, nullptr, &failure));
    }
    ICalComponent *known = nullptr;
    if (e_cal_client_get_object_sync(client, i_cal_component_get_uid(event), nullptr, &known,
                                     nullptr, nullptr)) {
        g_object_unref(known);
        return succeed(e_cal_client_modify_object_sync(
            client, event, E_CAL_OBJ_MOD_ALL, E_CAL_OPERATION_FLAG_NONE, nullptr, &failure));
    }
    return succeed(e_cal_client_create_object_sync(client, event, E_CAL_OPERATION_FLAG_NONE,
                                                   nullptr, nullptr, &failure));
}

bool put(ECalClient *client, const char *file) {
    gchar *text = nullptr;
    if (!succeed(g_file_get_contents(file, &text, nullptr, &failure)))
        return false;
    ICalComponent *calendar = i_cal_component_new_from_string(text);
    g_free(text);
    ICalComponent *zone = i_cal_component_get_first_component(calendar, I_CAL_VTIMEZONE_COMPONENT);
    for (; zone; zone = i_cal_component_get_next_component(calendar, I_CAL_VTIMEZONE_COMPONENT)) {
        ICalTimezone *described = i_cal_timezone_new();
        if (i_cal_timezone_set_component(described, i_cal_component_clone(zone)) &&
            !succeed(e_cal_client_add_timezone_sync(client, described, nullptr, &failure)))
            return false;
    }
    // Masters before their overrides.
    for (const bool isOverride : {false, true}) {
        ICalComponent *event =
            i_cal_component_get_first_component(calendar, I_CAL_VEVENT_COMPONENT);
        for (; event;
             event = i_cal_component_get_next_component(calendar, I_CAL_VEVENT_COMPONENT)) {
            ICalProperty *recurrence =
                i_cal_component_get_first_property(event, I_CAL_RECURRENCEID_PROPERTY);
            if ((recurrence != nullptr) == isOverride && !putEvent(client, event))
                return false;
            g_clear_object(&recurrence);
        }
    }
    return true;
}

bool churn(ECalClient *client, const char *file) {
    constexpr int rounds = 100;
    gchar *text = nullptr;
    if (!succeed(g_file_get_contents(file, &text, nullptr, &failure)))
        return false;
    ICalComponent *calendar = i_cal_component_new_from_string(text);
    g_free(text);
    ICalComponent *event = i_cal_component_get_first_component(calendar, I_CAL_VEVENT_COMPONENT);
    for (int round = 0; round < rounds; ++round) {
        if (!putEvent(client, event) ||
            !succeed(e_cal_client_remove_object_sync(client, i_cal_component_get_uid(event),
                                                     nullptr, E_CAL_OBJ_MOD_ALL,
                                                     E_CAL_OPERATION_FLAG_NONE, nullptr, &failure)))
            return false;
    }
    return putEvent(client, event);
}

bool list(ECalClient *client, const char *query) {
    GSList *events = nullptr;
    if (!succeed(e_cal_client_get_object_list_sync(client, query, &events, nullptr, &failure)))
        return false;
    std::printf("%u\n", g_slist_length(events));
    return true;
}

bool addSource(ESourceRegistry *registry, const char *uid, const char *name) {
    ESource *source = e_source_new_with_uid(uid, nullptr, &failure);
    if (!succeed(source))
        return false;
    e_source_set_display_name(source, name);
    e_source_set_parent(source, "local-stub");
    auto *calendar =
        static_cast<ESourceBackend *>(e_source_get_extension(source, E_SOURCE_EXTENSION_CALENDAR));
    e_source_backend_set_backend_name(calendar, "local");
    return succeed(e_source_registry_commit_source_sync(registry, source, nullptr, &failure));
}

bool changeSource(ESourceRegistry *registry, const char *uid, bool isRemoved) {
    ESource *source = e_source_registry_ref_source(registry, uid);
    if (!source)
        return false;
    if (isRemoved)
        return succeed(e_source_remove_sync(source, nullptr, &failure));
    e_source_set_enabled(source, FALSE);
    return succeed(e_source_write_sync(source, nullptr, &failure));
}

EBookClient *openAddressBook(ESourceRegistry *registry) {
    ESource *source = e_source_registry_ref_builtin_address_book(registry);
    EClient *client =
        e_book_client_connect_sync(source, static_cast<guint32>(-1), nullptr, &failure);
    g_object_unref(source);
    return succeed(client) ? reinterpret_cast<EBookClient *>(client) : nullptr;
}

bool putContact(EBookClient *book, const char *file) {
    gchar *text = nullptr;
    if (!book || !succeed(g_file_get_contents(file, &text, nullptr, &failure)))
        return false;
    EContact *contact = e_contact_new_from_vcard(text);
    EContact *known = nullptr;
    const auto *uid = static_cast<const char *>(e_contact_get_const(contact, E_CONTACT_UID));
    const bool isKnown = e_book_client_get_contact_sync(book, uid, &known, nullptr, nullptr);
    return succeed(isKnown
                       ? e_book_client_modify_contact_sync(
                             book, contact, E_BOOK_OPERATION_FLAG_NONE, nullptr, &failure)
                       : e_book_client_add_contact_sync(book, contact, E_BOOK_OPERATION_FLAG_NONE,
                                                        nullptr, nullptr, &failure));
}

bool removeContact(EBookClient *book, const char *uid) {
    return book && succeed(e_book_client_remove_contact_by_uid_sync(
                       book, uid, E_BOOK_OPERATION_FLAG_NONE, nullptr, &failure));
}

bool changeCalendar(ESourceRegistry *registry, const std::string &verb, int argc, char **argv) {
    ECalClient *client = open(registry, argv[2]);
    if (!client)
        return false;
    if (verb == "put")
        return put(client, argv[3]);
    if (verb == "churn")
        return churn(client, argv[3]);
    if (verb == "list")
        return list(client, argv[3]);
    if (verb == "refresh")
        return succeed(e_client_refresh_sync(E_CLIENT(client), nullptr, &failure));
    const bool isOne = argc > 4;
    return succeed(e_cal_client_remove_object_sync(client, argv[3], isOne ? argv[4] : nullptr,
                                                   isOne ? E_CAL_OBJ_MOD_THIS : E_CAL_OBJ_MOD_ALL,
                                                   E_CAL_OPERATION_FLAG_NONE, nullptr, &failure));
}

} // namespace

int main(int argc, char **argv) {
    const std::string verb = argc > 2 ? argv[1] : "";
    ESourceRegistry *registry = e_source_registry_new_sync(nullptr, &failure);
    if (!succeed(registry))
        return 1;
    bool isDone = false;
    if (verb == "add-source" && argc > 3)
        isDone = addSource(registry, argv[2], argv[3]);
    else if (verb == "remove-source" || verb == "disable-source")
        isDone = changeSource(registry, argv[2], verb == "remove-source");
    else if (verb == "put-contact")
        isDone = putContact(openAddressBook(registry), argv[2]);
    else if (verb == "remove-contact")
        isDone = removeContact(openAddressBook(registry), argv[2]);
    else if (argc > 3 || verb == "refresh")
        isDone = changeCalendar(registry, verb, argc, argv);
    return isDone ? 0 : 1;
}
