// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QTimer>
#include <QVariantAnimation>
#include <optional>
#include <vector>

#include "ui/kit/KitWidget.h"
#include "ui/kit/Motion.h"
#include "ui/kit/TileRow.h"

namespace vtx {

/// Tiles in an order that the user changes: by dragging a row with the pointer, by a row's two
/// buttons, or by Alt and the arrows. It changes nothing itself: it tells what is wanted, and shows
/// the tiles that it is given then, each moving to its new place. While a row is dragged its
/// picture follows the pointer and it asks for the place of each row that the pointer comes to, so
/// that letting go, wherever that is, only ends the drag. Near an edge of the page that it is on
/// the page scrolls, as far as there are tiles. A list for assistive technology.
class TileList : public KitWidget {
    Q_OBJECT

public:
    explicit TileList(QWidget* parent = nullptr);
    ~TileList() override;

    void setTiles(const std::vector<TileContent>& tiles);
    void setMotion(Motion motion) { motion_ = motion; }

    [[nodiscard]] TileRow& row(int index) const {
        return *rows_.at(static_cast<std::size_t>(index));
    }
    [[nodiscard]] int rowCount() const { return static_cast<int>(rows_.size()); }
    /// The tile that is being dragged.
    [[nodiscard]] std::optional<QString> draggingItem() const;
    /// Runs while a dragged tile makes the page scroll.
    [[nodiscard]] QTimer& scrolling() { return scrolling_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::List; }

Q_SIGNALS:
    void toggled(const QString& id, bool on);
    void stepped(const QString& id, TileStep step);
    /// The dragged tile came over another one.
    void entered(const QString& dragged, const QString& destination);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct Press {
        TileRow* row;
        QPoint at;
    };

    TileRow* makeRow();
    /// The row that shows this tile, taken out of `from`; a new one where there is none.
    TileRow* takeRow(std::vector<TileRow*>& from, const QString& id);
    void orderFocus();
    void slideToPlaces();
    void placeRows(double progress);
    void beginDrag();
    void follow(QPoint position);
    void endDrag();
    [[nodiscard]] TileRow* rowAt(QPoint position) const;
    /// What can be seen of it on its page, above and below.
    [[nodiscard]] QRect visiblePart() const;
    /// By how much the page is to scroll for a pointer there; negative upwards.
    [[nodiscard]] int scrollStep(QPoint position) const;
    void scroll();

    std::vector<TileRow*> rows_;
    /// Where each row came from, in the same order.
    std::vector<int> origins_;
    QVariantAnimation slide_;
    Motion motion_ = Motion::full;
    std::optional<Press> press_;
    QTimer scrolling_;
    /// Where the pointer was last, on the desktop.
    QPoint pointer_;
    /// The picture under the pointer, which lies over the whole window.
    QPointer<QWidget> lifted_;
};

}  // namespace vtx
