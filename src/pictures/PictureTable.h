// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <memory>
#include <span>
#include <string_view>

class QWidget;

namespace vtx {

class PictureStage;

/// One surface in one state, of which pictures are made.
struct PictureRow {
    std::string_view surface;  ///< the first part of a picture's name
    std::string_view state;    ///< the second part
    QSize size;                ///< logical pixels; empty where `make` gives the widget its size
    /// Brings the stage into the state and makes the surface over it. The stage outlives it.
    std::unique_ptr<QWidget> (*make)(PictureStage& stage);
};

/// All that pictures are made of, in the order in which they are made.
[[nodiscard]] std::span<const PictureRow> pictureTable();

}  // namespace vtx
