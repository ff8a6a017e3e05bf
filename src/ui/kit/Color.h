// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QtGlobal>

namespace vtx {

/// The two sets of colours. The desktop says which one is shown.
enum class Appearance : quint8 { dark, light };

/// Every colour of the interface by its use. A surface names the use; the theme knows the value.
enum class ColorToken : quint8 {
    window,
    card,
    raised,
    thumb,
    field,
    track,
    hover,
    press,
    cardBorder,
    borderStrong,
    separator,
    grid,
    text1,
    text2,
    text3,
    disabled,
    accent,
    onAccent,
    cpu,
    pCore,
    eCore,
    gpu,
    memory,
    cyan,
    green,
    yellow,
    orange,
    red,
    onRed,
    memoryWired,
    memoryActive,
    memoryCompressed,
    memoryInactive,
    memoryFree,
};

/// The exact value of a token in one appearance. Any thread.
[[nodiscard]] QColor tokenColor(ColorToken token, Appearance appearance);

/// The same colour at `opacity` (0 to 1): tinted fills, rings and state layers.
[[nodiscard]] QColor withOpacity(QColor color, float opacity);

/// The colour that results from laying `layer` over the opaque colour `base`.
[[nodiscard]] QColor over(QColor base, QColor layer);

/// The contrast of two opaque colours, 1 to 21.
[[nodiscard]] double contrastRatio(QColor first, QColor second);

}  // namespace vtx
