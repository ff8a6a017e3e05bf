// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QStringView>
#include <optional>

namespace vtx {

/// The path that the `d` attribute of an SVG path describes; none where it is damaged.
[[nodiscard]] std::optional<QPainterPath> parsePathData(QStringView data);

}  // namespace vtx
