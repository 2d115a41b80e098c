#pragma once

#include "PreferencesStore.h"

#include <platform/Workspace.h>
#include <system/LaunchAtLoginManager.h>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace vantrel {

/// What the page about the program's ways shows. Main thread only.
class GeneralTabModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Handed to the view by its owner.")
    Q_PROPERTY(bool isStartedAtLogin READ isStartedAtLogin NOTIFY isStartedAtLoginChanged FINAL)
    Q_PROPERTY(QString loginError READ loginError NOTIFY loginErrorChanged FINAL)
    Q_PROPERTY(QStringList joinTargets READ joinTargets CONSTANT FINAL)
    Q_PROPERTY(int joinTarget READ joinTarget NOTIFY joinTargetChanged FINAL)
    Q_PROPERTY(QString shortcut READ shortcut NOTIFY shortcutChanged FINAL)
    Q_PROPERTY(bool canTestShortcut READ canTestShortcut NOTIFY shortcutChanged FINAL)
    Q_PROPERTY(bool showShortcutDetails READ showShortcutDetails WRITE setShowShortcutDetails NOTIFY
                   showShortcutDetailsChanged FINAL)

public:
    /// All of them must outlive the model.
    GeneralTabModel(PreferencesStore &preferences, LaunchAtLoginManager &launchAtLogin,
                    Workspace &workspace);

    [[nodiscard]] bool isStartedAtLogin() const { return m_isStartedAtLogin; }

    /// Why the last change of it failed; empty when it did not.
    [[nodiscard]] QString loginError() const { return m_loginError; }

    Q_INVOKABLE void setStartedAtLogin(bool isStarted);

    /// The choices for where video meetings open.
    [[nodiscard]] QStringList joinTargets() const;

    /// A place in `joinTargets`.
    [[nodiscard]] int joinTarget() const { return m_joinTarget; }
    Q_INVOKABLE void selectJoinTarget(int index) const;

    /// What runs when the user joins; empty for nothing.
    [[nodiscard]] QString shortcut() const { return m_shortcut; }
    Q_INVOKABLE void setShortcut(const QString &name) const;

    [[nodiscard]] bool canTestShortcut() const { return !m_shortcut.trimmed().isEmpty(); }
    Q_INVOKABLE void testShortcut() const;

    [[nodiscard]] bool showShortcutDetails() const { return m_showShortcutDetails; }
    void setShowShortcutDetails(bool shown);

    /// Reads anew from the desktop whether the program is started at login.
    void refresh() { m_launchAtLogin.refresh(); }

Q_SIGNALS:
    void isStartedAtLoginChanged();
    void loginErrorChanged();
    void joinTargetChanged();
    void shortcutChanged();
    void showShortcutDetailsChanged();

private:
    PreferencesStore &m_preferences;
    LaunchAtLoginManager &m_launchAtLogin;
    Workspace &m_workspace;
    bool m_isStartedAtLogin = false;
    QString m_loginError;
    int m_joinTarget = 0;
    QString m_shortcut;
    bool m_showShortcutDetails = false;
    std::vector<Subscription> m_subscriptions;
};

} // namespace vantrel
