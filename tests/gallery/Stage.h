#pragma once

#include <platform/ShieldingPanels.h>

#include <QImage>
#include <QList>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSize>
#include <QString>

#include <memory>

namespace vantrel::gallery {

/// Shows the content of a panel in a window of a given size, with the renderer that the program
/// uses. `prepare` comes before the first one.
class Stage {
public:
    /// Chooses the renderer.
    static void prepare();

    /// Makes and lays out the content, without showing the window. Stops the program when the
    /// content cannot be made, after naming the reason.
    Stage(const PanelContent &content, QSize size);

    [[nodiscard]] QQuickItem &root() const { return *m_root; }
    [[nodiscard]] QQuickWindow &window() { return m_window; }

    /// The item of that object name, wherever it is; null when there is none.
    [[nodiscard]] QQuickItem *find(const QString &objectName) const;

    /// Shows the window, with the keyboard in it, and waits for it to settle.
    void show();

    /// Waits until no frame has come for longer than one frame of an animation takes.
    void settle();

    [[nodiscard]] QImage picture();

    /// How many frames the window has drawn so far.
    [[nodiscard]] int frameCount() const { return m_frameCount; }

    /// What the engine warned of so far.
    [[nodiscard]] const QStringList &warnings() const { return m_warnings; }

private:
    QQmlEngine m_engine;
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_root;
    int m_frameCount = 0;
    QStringList m_warnings;
};

/// `item` and all items within it, each before its children.
[[nodiscard]] QList<QQuickItem *> withDescendants(QQuickItem &item);

} // namespace vantrel::gallery
