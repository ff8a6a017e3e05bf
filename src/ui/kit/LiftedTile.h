// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>

namespace vtx {

class TileRow;

/// The picture of a row that is being dragged, raised above its window. Neither the pointer nor
/// assistive technology notices it.
class LiftedTile final : public QWidget {
public:
    /// Takes the picture now.
    explicit LiftedTile(TileRow& row);

    /// Puts it where the row's top would be, in the coordinates of the window.
    void moveTo(QPoint rowTopLeft);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap picture_;
};

}  // namespace vtx
