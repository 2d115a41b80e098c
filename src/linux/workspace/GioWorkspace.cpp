#include "GioWorkspace.h"

#include <platform/Log.h>

#include <QAbstractEventDispatcher>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <memory>

namespace vantrel {

VANTREL_LOG(workspaceLog, "Workspace")

namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};

using AppInfo = std::unique_ptr<GAppInfo, Unref>;
using LaunchContext = std::unique_ptr<GAppLaunchContext, Unref>;

struct FreeError {
    void operator()(GError *error) const { g_error_free(error); }
};

using Error = std::unique_ptr<GError, FreeError>;

AppInfo handlerOf(const Url &url) {
    if (url.scheme().isEmpty())
        return nullptr;
    return AppInfo(g_app_info_get_default_for_uri_scheme(url.scheme().toUtf8().constData()));
}

/// What went wrong, without the URL, which is the calendar's.
void logFailure(GAppInfo *application, const GError *error) {
    qCWarning(workspaceLog, "%s cannot be started: %s", g_app_info_get_id(application),
              error->message);
}

void finishLaunch(GObject *source, GAsyncResult *result, gpointer) {
    GAppInfo *application = G_APP_INFO(source);
    GError *error = nullptr;
    if (!g_app_info_launch_uris_finish(application, result, &error))
        logFailure(application, Error(error).get());
}

/// GIO answers its asynchronous calls on GLib's main context. Qt runs that, unless it was built or
/// told (by QT_NO_GLIB) to do without.
bool hasMainContext() {
    const auto *dispatcher = QAbstractEventDispatcher::instance();
    return dispatcher && dispatcher->inherits("QEventDispatcherGlib");
}

void launch(GAppInfo *application, const Url &url) {
    const QByteArray text = url.absoluteString().toUtf8();
    GList uris{const_cast<char *>(text.constData()), nullptr, nullptr};
    const LaunchContext context(g_app_launch_context_new());
    // Of this process alone; the layer-shell surfaces need it.
    g_app_launch_context_unsetenv(context.get(), "QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT");
    if (hasMainContext()) {
        g_app_info_launch_uris_async(application, &uris, context.get(), nullptr, &finishLaunch,
                                     nullptr);
        return;
    }
    GError *error = nullptr;
    if (!g_app_info_launch_uris(application, &uris, context.get(), &error))
        logFailure(application, Error(error).get());
}

} // namespace

void GioWorkspace::open(const Url &url) {
    if (const AppInfo handler = handlerOf(url))
        launch(handler.get(), url);
    else
        qCWarning(workspaceLog).noquote()
            << "No application opens links of the scheme" << url.scheme();
}

std::optional<ApplicationId> GioWorkspace::applicationToOpen(const Url &url) const {
    const AppInfo handler = handlerOf(url);
    const char *id = handler ? g_app_info_get_id(handler.get()) : nullptr;
    return id ? std::optional(ApplicationId{QString::fromUtf8(id)}) : std::nullopt;
}

void GioWorkspace::open(const Url &url, const ApplicationId &application) {
    const AppInfo chosen(
        G_APP_INFO(g_desktop_app_info_new(application.value.toUtf8().constData())));
    if (chosen)
        launch(chosen.get(), url);
    else
        qCWarning(workspaceLog).noquote() << "There is no application" << application.value;
}

} // namespace vantrel
