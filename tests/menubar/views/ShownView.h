#pragma once

#include <menubar/PopoverContents.h>

#include <QAccessible>
#include <QCursor>
#include <QTest>

#include <gallery/ShownPopover.h>
#include <gallery/Stage.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <memory>

namespace vantrel {

/// A view of this room on a stage of the size that it asks for, with the hands at it.
class ShownView {
public:
    gallery::Stage &stand(const ViewContent &content) {
        m_stage.reset();
        QCursor::setPos(2000, 2000); // Where no view is.
        QSize size;
        {
            const gallery::Stage measure(content, {360, 560});
            size = QSizeF(measure.root().implicitWidth(), measure.root().implicitHeight()).toSize();
        }
        m_stage = std::make_unique<gallery::Stage>(content, size);
        m_stage->show();
        return *m_stage;
    }

    /// Takes the view away, ahead of what it shows.
    void leave() { m_stage.reset(); }

    [[nodiscard]] gallery::Stage &stage() const { return *m_stage; }

    [[nodiscard]] QQuickItem &item(const char *objectName) const {
        QQuickItem *found = m_stage->find(QLatin1String(objectName));
        if (!found)
            qFatal("There is no item %s", objectName);
        return *found;
    }

    /// Every text that is seen, from the top on.
    [[nodiscard]] QStringList texts() const {
        QList<QQuickItem *> seen;
        const auto items = gallery::withDescendants(m_stage->root());
        for (QQuickItem *one : items) {
            if (one->inherits("QQuickText") && one->isVisible() && isWithin(*one))
                seen += one;
        }
        std::stable_sort(seen.begin(), seen.end(),
                         [this](const QQuickItem *one, const QQuickItem *other) {
                             return area(*one).top() < area(*other).top();
                         });
        QStringList read;
        for (const QQuickItem *one : seen)
            read += one->property("text").toString();
        return read;
    }

    /// The items of one QML type, by its name.
    [[nodiscard]] QList<QQuickItem *> all(const char *type) const {
        QList<QQuickItem *> found;
        const auto items = gallery::withDescendants(m_stage->root());
        for (QQuickItem *one : items) {
            if (QByteArray(one->metaObject()->className()).startsWith(QByteArray(type) + "_"))
                found += one;
        }
        return found;
    }

    [[nodiscard]] QRectF area(const QQuickItem &of) const {
        return {of.mapToItem(&m_stage->root(), QPointF()), of.size()};
    }

    [[nodiscard]] bool isWithin(const QQuickItem &of) const {
        return m_stage->root().boundingRect().intersects(area(of));
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(&m_stage->window(), key, modifiers);
    }

    void click(const QQuickItem &button) const {
        const QPointF middle(button.width() / 2.0, button.height() / 2.0);
        QTest::mouseClick(&m_stage->window(), Qt::LeftButton, Qt::NoModifier,
                          button.mapToScene(middle).toPoint());
    }
    void click(const char *objectName) const { click(item(objectName)); }

    void hover(const QQuickItem &over) const {
        const QPointF middle(over.width() / 2.0, over.height() / 2.0);
        QTest::mouseMove(&m_stage->window(), over.mapToScene(middle).toPoint());
    }

    struct Spoken {
        QAccessible::Role role;
        QString name;

        bool operator==(const Spoken &) const = default;
    };

    /// What a screen reader finds in the window, from the top on.
    [[nodiscard]] QList<Spoken> spoken() const {
        QList<Spoken> found;
        collect(QAccessible::queryAccessibleInterface(&m_stage->root()), found);
        return found;
    }

private:
    static void collect(QAccessibleInterface *node, QList<Spoken> &found) {
        for (int index = 0; node && index < node->childCount(); ++index) {
            QAccessibleInterface *child = node->child(index);
            if (child->state().invisible)
                continue;
            found += {child->role(), child->text(QAccessible::Name)};
            collect(child, found);
        }
    }

    std::unique_ptr<gallery::Stage> m_stage;
};

inline void PrintTo(const ShownView::Spoken &spoken, std::ostream *out) {
    *out << spoken.role << ' ' << qPrintable(spoken.name);
}

/// The popover on a stage.
class ShownPopoverView : public ShownView {
public:
    using Meeting = gallery::ShownPopover::Meeting;

    ShownPopoverView() = default;
    ShownPopoverView(const ShownPopoverView &) = delete;
    ShownPopoverView &operator=(const ShownPopoverView &) = delete;
    ~ShownPopoverView() { leave(); }

    void add(const QString &title, const char *start, const QString &link = {}) {
        popover.add({title, fakes::at(start), 30, {0.2, 0.4, 0.8}, false, link, {}});
    }

    enum class Motion { full, reduced };

    ViewContent content(Motion motion) {
        ViewContent made = upcomingEventsContent(popover.model);
        made.properties.insert(QStringLiteral("reducedMotion"), motion == Motion::reduced);
        return made;
    }

    gallery::Stage &make(EventListMode mode = EventListMode::all) {
        popover.viewModel.setMode(mode);
        popover.viewModel.popoverDidShow();
        return stand(content(Motion::reduced));
    }

    gallery::ShownPopover popover;
    const QString call = QStringLiteral("https://zoom.us/j/98765432100");
};

} // namespace vantrel
