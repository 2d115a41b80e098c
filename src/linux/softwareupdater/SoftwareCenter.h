#pragma once

#include "InstallationProbe.h"
#include "UpdatesViewModel.h"

#include <platform/SoftwareUpdater.h>
#include <platform/Windows.h>

#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

class MainQueue;
class Workspace;

/// Opens the desktop's software centre at this program. Where there is none, a small window names
/// the version, where it came from and how that is brought up to date.
class SoftwareCenter : public SoftwareUpdater {
public:
    /// The colours of the window, asked for when it is shown: a `themePalette` of Vantrel.Theme.
    using Palette = std::function<QVariant()>;

    /// What is passed in must outlive it, `queue`, `workspace` and `windows`. `file` is the
    /// program's own, `version` the one that the window names.
    SoftwareCenter(
        MainQueue &queue, Workspace &workspace, Windows &windows, Palette palette, QString file,
        QString version,
        std::vector<InstallationProbe::Query> queries = InstallationProbe::usualQueries());

    void checkForUpdates() override;

private:
    void tell(const Installation &installation);

    Workspace &m_workspace;
    Windows &m_windows;
    const Palette m_palette;
    const QString m_file;
    UpdatesViewModel m_viewModel;
    InstallationProbe m_probe;
    std::unique_ptr<DesktopWindow> m_window; ///< From its first use on.
};

} // namespace vantrel
