#pragma once

#include "Palette.h"

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// A palette as QML sees it: a value whose members are colours of Qt. The default one is hearth's.
class ThemePalette {
    Q_GADGET
    QML_VALUE_TYPE(themePalette)
    Q_PROPERTY(QColor surfaceBackground READ surfaceBackground CONSTANT FINAL)
    Q_PROPERTY(QColor primaryText READ primaryText CONSTANT FINAL)
    Q_PROPERTY(QColor secondaryText READ secondaryText CONSTANT FINAL)
    Q_PROPERTY(QColor accent READ accent CONSTANT FINAL)
    Q_PROPERTY(QColor accentForeground READ accentForeground CONSTANT FINAL)
    Q_PROPERTY(QColor dimSurface READ dimSurface CONSTANT FINAL)
    Q_PROPERTY(QColor dotStroke READ dotStroke CONSTANT FINAL)
    Q_PROPERTY(bool isDark READ isDark CONSTANT FINAL)

public:
    ThemePalette();
    explicit ThemePalette(const Palette &palette) : m_palette(palette) {}

    [[nodiscard]] QColor surfaceBackground() const { return color(m_palette.surfaceBackground); }
    [[nodiscard]] QColor primaryText() const { return color(m_palette.primaryText); }
    [[nodiscard]] QColor secondaryText() const { return color(m_palette.secondaryText); }
    [[nodiscard]] QColor accent() const { return color(m_palette.accent); }
    [[nodiscard]] QColor accentForeground() const { return color(m_palette.accentForeground); }
    [[nodiscard]] QColor dimSurface() const { return color(m_palette.dimSurface); }
    [[nodiscard]] QColor dotStroke() const { return color(m_palette.dotStroke); }
    [[nodiscard]] bool isDark() const { return m_palette.isDark; }

    bool operator==(const ThemePalette &) const = default;

private:
    [[nodiscard]] static QColor color(const Color &color);

    Palette m_palette;
};

} // namespace vantrel
