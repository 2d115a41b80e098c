#pragma once

#include "OwnedFolder.h"
#include "SymbolArt.h"

#include <platform/Color.h>

#include <QString>

#include <optional>

namespace vantrel {

/// The item's icons as files, for hosts that take an icon by its name: a folder of their own in the
/// user's runtime folder, which goes with this object; see `OwnedFolder`.
///
/// Each file lies in it twice, loose and as part of a theme, since hosts differ in where they look.
/// Where nothing can be written the names are empty, and hosts take the pixmaps.
class IconFolder {
public:
    explicit IconFolder(SymbolArt art);

    /// Where the icon of that name lies; empty where nothing can be written. Each has a folder of
    /// its own: GTK's hosts do not find what is added to one that they have read within 5 s.
    [[nodiscard]] QString path(const QString &name) const;

    /// The name of the symbol in a form that hosts tint, with a dot at its lower right that keeps
    /// its colour.
    [[nodiscard]] QString iconName(const QString &symbol, const std::optional<Color> &dot);

private:
    [[nodiscard]] QString named(const QString &name, const QByteArray &drawing) const;

    SymbolArt m_art;
    OwnedFolder m_folder;
};

} // namespace vantrel
