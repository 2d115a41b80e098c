#include "SoftwareCenter.h"

#include "UpdatesContents.h"

#include <platform/Log.h>
#include <platform/MainQueue.h>
#include <platform/Workspace.h>

#include <QStandardPaths>

#include <utility>

namespace vantrel {

namespace {

/// Software centres open the page of a component by its id under this scheme.
std::optional<Url> componentUrl() {
    return Url::fromString(QStringLiteral("appstream://%1").arg(QLatin1String(applicationId)));
}

WindowDescription updatesWindow() {
    return {QStringLiteral("Updates"), {480, 380}, {420, 380}, WindowLevel::floating};
}

RpmInstaller rpmInstaller() {
    return QStandardPaths::findExecutable(QStringLiteral("zypper")).isEmpty()
               ? RpmInstaller::dnf
               : RpmInstaller::zypper;
}

} // namespace

SoftwareCenter::SoftwareCenter(MainQueue &queue, Workspace &workspace, Windows &windows,
                               Palette palette, QString file, QString version,
                               std::vector<InstallationProbe::Query> queries)
    : m_workspace(workspace),
      m_windows(windows),
      m_palette(std::move(palette)),
      m_file(std::move(file)),
      m_viewModel(std::move(version)),
      m_probe(queue, std::move(queries)) {}

void SoftwareCenter::checkForUpdates() {
    const auto url = componentUrl();
    if (url && m_workspace.applicationToOpen(*url)) {
        m_workspace.open(*url);
        return;
    }
    m_probe.start(m_file, [this](const Installation &installation) { tell(installation); });
}

void SoftwareCenter::tell(const Installation &installation) {
    m_viewModel.show(updateAdvice(installation, m_file, rpmInstaller()), m_palette());
    if (!m_window)
        m_window = m_windows.makeWindow(updatesContent(m_viewModel), updatesWindow());
    m_window->show();
}

} // namespace vantrel
