#pragma once

#include <QByteArray>

#include <gio/gio.h>

#include <memory>

namespace vantrel {

/// Owns one reference to a GObject.
template <typename T>
struct Unreference {
    void operator()(T *object) const { g_object_unref(object); }
};
template <typename T>
using Reference = std::unique_ptr<T, Unreference<T>>;

template <typename T>
[[nodiscard]] Reference<T> anotherReference(T *object) {
    return Reference<T>(static_cast<T *>(g_object_ref(object)));
}

struct UnreferenceVariant {
    void operator()(GVariant *value) const { g_variant_unref(value); }
};
using OwnedVariant = std::unique_ptr<GVariant, UnreferenceVariant>;

/// Where a GLib function leaves its error.
class Failure {
public:
    Failure() = default;
    Failure(const Failure &) = delete;
    Failure &operator=(const Failure &) = delete;
    ~Failure() { g_clear_error(&m_error); }

    [[nodiscard]] GError **out() { return &m_error; }

    /// Leaves of a message that came over the bus what is meant for people.
    void dropRemoteName() {
        if (m_error)
            g_dbus_error_strip_remote_error(m_error);
    }

    [[nodiscard]] explicit operator bool() const { return m_error != nullptr; }
    [[nodiscard]] bool is(GQuark domain, int code) const {
        return g_error_matches(m_error, domain, code);
    }
    [[nodiscard]] QByteArray message() const {
        return m_error ? QByteArray(m_error->message) : QByteArray("no reason given");
    }

private:
    GError *m_error = nullptr;
};

/// Takes over a text that GLib allocated; empty for null.
inline QByteArray takeText(gchar *text) {
    const QByteArray bytes(text);
    g_free(text);
    return bytes;
}

} // namespace vantrel
