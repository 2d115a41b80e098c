#pragma once

#include "JoinTarget.h"

#include <platform/Url.h>
#include <platform/Workspace.h>

#include <QString>

#include <optional>

namespace vantrel {

/// Opens the way into a meeting, as it was found. Nothing is reported: what cannot be opened is
/// the workspace's to log. Main thread only.
struct JoinOpener {
    JoinOpener() = delete;

    /// Opens a video link in its target, then runs the shortcut if its name holds more than spaces
    /// and tabs.
    static void open(Workspace &workspace, const Url &url, JoinTarget target,
                     const std::optional<QString> &shortcutName);

    /// Runs the automation of that name, spaces and tabs around it not counted. A name without
    /// anything else, or one that is no valid Unicode, runs nothing. "&" and "=" are sent as they
    /// stand and so split the query.
    static void runShortcut(Workspace &workspace, const QString &name);

    /// Hands over "tel:" and the digits and plus signs of the number, in order.
    static void dial(Workspace &workspace, const QString &rawNumber);

private:
    static void openInDefaultBrowser(Workspace &workspace, const Url &url);
};

} // namespace vantrel
