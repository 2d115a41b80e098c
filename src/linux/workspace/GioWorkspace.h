#pragma once

#include <platform/Workspace.h>

namespace vantrel {

/// Opens things with the applications that the user chose: desktop entries and `mimeapps.list`
/// (freedesktop's "Association between MIME types and applications"), read and launched by GIO.
///
/// It needs no session bus; with one, an application that can be activated over it is. Launching
/// goes on in the event loop, where a dispatcher on GLib's main context has to run.
class GioWorkspace : public Workspace {
public:
    void open(const Url &url) override;
    [[nodiscard]] std::optional<ApplicationId> applicationToOpen(const Url &url) const override;
    void open(const Url &url, const ApplicationId &application) override;
};

} // namespace vantrel
