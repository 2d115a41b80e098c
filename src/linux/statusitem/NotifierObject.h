#pragma once

#include "IconFolder.h"
#include "IconPixmap.h"
#include "ItemLook.h"
#include "SymbolArt.h"

#include <QDBusObjectPath>
#include <QObject>
#include <QPoint>

#include <functional>

namespace vantrel {

/// The item as the bus has it, in the shape of org.kde.StatusNotifierItem.xml: it says what is to
/// be shown and hands calls on.
class NotifierObject : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ id CONSTANT)
    Q_PROPERTY(QString Title READ title NOTIFY NewTitle)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)
    Q_PROPERTY(QString IconThemePath READ iconThemePath NOTIFY NewIconThemePath)
    Q_PROPERTY(QString IconName READ iconName NOTIFY NewIcon)
    Q_PROPERTY(QString IconAccessibleDesc READ iconAccessibleDesc NOTIFY NewIcon)
    Q_PROPERTY(vantrel::IconPixmaps IconPixmap READ iconPixmap NOTIFY NewIcon)
    Q_PROPERTY(QString OverlayIconName READ none CONSTANT)
    Q_PROPERTY(vantrel::IconPixmaps OverlayIconPixmap READ noPixmaps CONSTANT)
    Q_PROPERTY(QString AttentionIconName READ none CONSTANT)
    Q_PROPERTY(vantrel::IconPixmaps AttentionIconPixmap READ noPixmaps CONSTANT)
    Q_PROPERTY(QString AttentionMovieName READ none CONSTANT)
    Q_PROPERTY(vantrel::HostToolTip ToolTip READ toolTip NOTIFY NewToolTip)
    Q_PROPERTY(QString XAyatanaLabel READ label NOTIFY XAyatanaNewLabel)
    Q_PROPERTY(QString XAyatanaLabelGuide READ guide NOTIFY XAyatanaNewLabel)
    Q_PROPERTY(uint XAyatanaOrderingIndex READ orderingIndex CONSTANT)

public:
    struct Listener {
        std::function<void(QPoint pixel)> activated;
        std::function<void()> clicked;                ///< Where the pointer is.
        std::function<void(QPoint pixel)> menuWanted; ///< By a host that does not show it itself.
    };

    static constexpr char path[] = "/StatusNotifierItem";
    static constexpr char menuPath[] = "/MenuBar";

    NotifierObject(SymbolArt art, Listener listener);

    /// Tells hosts of what differs from before.
    void show(const ItemLook &look);

    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }
    [[nodiscard]] QString id() const { return QStringLiteral("vantrel"); }
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }
    [[nodiscard]] int windowId() const { return 0; }
    [[nodiscard]] bool itemIsMenu() const { return false; }
    [[nodiscard]] QDBusObjectPath menu() const { return QDBusObjectPath(QLatin1String(menuPath)); }
    [[nodiscard]] QString iconThemePath() const { return m_icons.path(m_iconName); }
    [[nodiscard]] QString iconName() const { return m_iconName; }
    [[nodiscard]] QString iconAccessibleDesc() const { return m_look.accessibleDescription; }
    [[nodiscard]] IconPixmaps iconPixmap() const { return m_iconPixmaps; }
    [[nodiscard]] QString none() const { return {}; }
    [[nodiscard]] IconPixmaps noPixmaps() const { return {}; }
    [[nodiscard]] HostToolTip toolTip() const;
    [[nodiscard]] QString label() const;
    [[nodiscard]] QString guide() const;
    [[nodiscard]] uint orderingIndex() const { return 0; }

    void Activate(int x, int y) { m_listener.activated({x, y}); }
    void SecondaryActivate(int x, int y) { m_listener.menuWanted({x, y}); }
    void XAyatanaSecondaryActivate(uint) { m_listener.clicked(); }
    void ContextMenu(int x, int y) { m_listener.menuWanted({x, y}); }
    void Scroll(int, const QString &) {}

Q_SIGNALS:
    void NewTitle();
    void NewIconThemePath(const QString &path);
    void NewIcon();
    void NewToolTip();
    void XAyatanaNewLabel(const QString &label, const QString &guide);

private:
    SymbolArt m_art;
    Listener m_listener;
    IconFolder m_icons;
    ItemLook m_look;
    QString m_iconName;
    IconPixmaps m_iconPixmaps;
};

} // namespace vantrel
