// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace vtx {

/// Draws menus by the theme: rows 25 high, the one under the pointer filled with the accent, a
/// check mark at the end of a checked one, and in front the symbol whose name an action has as its
/// data. The toolkit keeps what menus do: keyboard, assistive software, screens' edges.
class MenuStyle final : public QProxyStyle {
public:
    MenuStyle();

    /// One for every menu: a style is a large object.
    [[nodiscard]] static MenuStyle* shared();

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& size, const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* returned) const override;
};

}  // namespace vtx
