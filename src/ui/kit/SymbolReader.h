// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QPainterPath>
#include <QTransform>
#include <vector>

namespace vtx {

/// One shape of a symbol, in the 24-unit grid, before `transform`.
struct SymbolShape {
    QPainterPath path;
    bool filled = false;
    /// 0 for a shape without outline.
    double strokeWidth = 0;
    QTransform transform;
};

/// Reads the small part of SVG that our symbols are drawn in: path, rect, circle, ellipse, line,
/// polyline and groups, with fill, stroke, stroke width and transform. Nothing for input that is
/// not well formed or uses anything else in a path.
[[nodiscard]] std::vector<SymbolShape> readSymbol(QByteArrayView svg);

}  // namespace vtx
