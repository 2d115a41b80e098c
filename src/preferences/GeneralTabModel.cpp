#include "GeneralTabModel.h"

#include <links/JoinOpener.h>
#include <links/JoinTarget.h>

#include <algorithm>

namespace vantrel {

GeneralTabModel::GeneralTabModel(PreferencesStore &preferences, LaunchAtLoginManager &launchAtLogin,
                                 Workspace &workspace)
    : m_preferences(preferences), m_launchAtLogin(launchAtLogin), m_workspace(workspace) {
    m_subscriptions = {launchAtLogin.observeIsEnabled([this](bool isEnabled) {
                           m_isStartedAtLogin = isEnabled;
                           Q_EMIT isStartedAtLoginChanged();
                       }),
                       preferences.joinTargetPublisher().subscribe([this](JoinTarget target) {
                           m_joinTarget = static_cast<int>(
                               std::find(allJoinTargets.begin(), allJoinTargets.end(), target) -
                               allJoinTargets.begin());
                           Q_EMIT joinTargetChanged();
                       }),
                       preferences.shortcutOnJoinPublisher().subscribe([this](const QString &name) {
                           m_shortcut = name;
                           Q_EMIT shortcutChanged();
                       })};
}

void GeneralTabModel::setStartedAtLogin(bool isStarted) {
    const auto failure = m_launchAtLogin.setEnabled(isStarted);
    m_loginError = failure ? tr("Couldn't update Login Items: ") + *failure : QString();
    Q_EMIT loginErrorChanged();
}

QStringList GeneralTabModel::joinTargets() const {
    QStringList labels;
    for (const JoinTarget target : allJoinTargets)
        labels.append(label(target));
    return labels;
}

void GeneralTabModel::selectJoinTarget(int index) const {
    m_preferences.setJoinTarget(allJoinTargets.at(static_cast<std::size_t>(index)));
}

void GeneralTabModel::setShortcut(const QString &name) const {
    m_preferences.setShortcutOnJoin(name);
}

void GeneralTabModel::testShortcut() const {
    JoinOpener::runShortcut(m_workspace, m_shortcut);
}

void GeneralTabModel::setShowShortcutDetails(bool shown) {
    if (m_showShortcutDetails == shown)
        return;
    m_showShortcutDetails = shown;
    Q_EMIT showShortcutDetailsChanged();
}

} // namespace vantrel
