#pragma once

#include "Color.h"
#include "Menu.h"

#include <QRect>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

/// The text beside the icon: a dot in a colour, then the text in the host's own style.
struct StatusTitle {
    Color dot;
    QString text; ///< Plain text, never empty.
    /// As wide as `text` will be while it tells of the same; room for it may be kept. May be empty.
    QString widest{};

    bool operator==(const StatusTitle &) const = default;
};

/// What shows the item at the moment.
enum class StatusItemPlace {
    nowhere, ///< Nothing that would is there.
    host,    ///< A host of status items on the session bus.
    tray     ///< The system tray of an X11 desktop.
};

enum class PointerButton { left, right };

/// One click on the item, as far as the host tells.
struct StatusItemClick {
    PointerButton button = PointerButton::left;
    bool hasControl = false;
    /// Where a popover belongs beside, in the coordinates of `Screen::frame`: the item where its
    /// place is known, else the place of the click; empty where the host tells neither.
    std::optional<QRect> place;
};

/// The program's item in the desktop's status area. Destroying it takes it away. Main thread only.
///
/// What is set is kept and shown as soon as there is an area to show it in, however late. An area
/// that cannot show a title gets it as part of the tooltip and the dot as part of the icon.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// A symbol of the program's, "pawprint.fill" say, tinted as the host tints its icons.
    virtual void setImage(const QString &symbol, const QString &accessibleDescription) = 0;

    /// Empty for none.
    virtual void setTitle(const std::optional<StatusTitle> &title) = 0;

    /// Plain text.
    virtual void setToolTip(const QString &text) = 0;

    [[nodiscard]] virtual StatusItemPlace place() const = 0;
};

/// What a status item tells. Called on the main thread, never from within a call to the item.
struct StatusItemListener {
    std::function<void(const StatusItemClick &)> clicked;
    /// Makes the menu for a host that shows it by itself; asked for each time it is about to open.
    std::function<Menu()> menu;
};

/// The desktop's status area. Main thread only.
class StatusBar {
public:
    virtual ~StatusBar() = default;

    /// Never null: without an area the item waits for one.
    [[nodiscard]] virtual std::unique_ptr<StatusItem> makeItem(StatusItemListener listener) = 0;
};

} // namespace vantrel
