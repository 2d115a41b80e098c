#pragma once

#include <platform/ShieldingPanels.h>

#include <QImage>
#include <QList>
#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace vantrel::gallery {

/// Shows the content of a panel in a window of a given size, with the renderer that the program
/// uses. `prepare` comes before the first one.
class Stage {
public:
    /// Chooses the renderer.
    static void prepare();

    enum class Ground {
        filled,     ///< With the window's colour.
        seenThrough ///< Not drawn at all where the content draws nothing.
    };

    /// Makes and lays out the content, without showing the window. Stops the program when the
    /// content cannot be made, after naming the reason.
    Stage(const ViewContent &content, QSize size, Ground ground = Ground::filled);

    [[nodiscard]] QQuickItem &root() const { return *m_root; }
    [[nodiscard]] QQuickWindow &window() { return m_window; }

    /// The item of that object name, wherever it is; null when there is none.
    [[nodiscard]] QQuickItem *find(const QString &objectName) const;

    /// Shows the window, with the keyboard in it, and waits for its first frame.
    void show();

    /// Runs the event loop until `isReached`, and answers whether it was within some seconds.
    bool waitFor(const std::function<bool()> &isReached);

    /// Runs the event loop for a moment in which some frames of an animation would come.
    void linger();

    /// What the window shows, or would if it were drawn now. Shows it if need be.
    [[nodiscard]] QImage picture();

    /// How many frames the window has drawn so far.
    [[nodiscard]] int frameCount() const { return m_frameCount; }

    /// What the engine warned of since this stage was made.
    [[nodiscard]] const QStringList &warnings() const { return m_warnings; }

private:
    [[nodiscard]] QImage pictureSeenThrough();

    const Ground m_ground;
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_root;
    int m_frameCount = 0;
    QStringList m_warnings;
    /// Ends what is connected to it before the members above go.
    QObject m_watch;
};

/// `item` and all items within it, each before its children.
[[nodiscard]] QList<QQuickItem *> withDescendants(QQuickItem &item);

} // namespace vantrel::gallery
