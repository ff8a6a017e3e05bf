// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <functional>

#include "ui/shell/StatusItem.h"

namespace vtx {

/// The face of the strip: its ground, outline and states, with the content above them. It tells
/// clicks from drags; whoever owns it decides what they do. Main executor; owned by the window of
/// a status item.
class StripSurface final : public QAbstractButton {
public:
    explicit StripSurface(QWidget* parent);

    std::function<void(StatusItemClick, QPoint)> onClick;
    std::function<void()> onPress;
    std::function<void()> onRelease;
    /// A drag with the left button: how far the pointer is from where the button went down.
    std::function<void(QPoint)> onDrag;
    /// The end of a drag, with the pointer's place on the desktop.
    std::function<void(QPoint)> onDrop;

    /// Takes the content over and deletes the one before.
    void setContent(QWidget* content);
    void setHighlighted(bool highlighted);
    void setTouching(Qt::Edges touching);

    /// The outline of the strip in its own coordinates.
    [[nodiscard]] QPainterPath shape() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void activate(StatusItemClick click, QPoint at);
    [[nodiscard]] double stateOpacity() const;
    [[nodiscard]] QPoint middle() const { return mapToGlobal(rect().center()); }

    QWidget* content_ = nullptr;
    Qt::Edges touching_;
    bool highlighted_ = false;
    /// The button that is held down on the strip, if one is.
    Qt::MouseButton held_ = Qt::NoButton;
    QPoint pressedAt_;
    bool dragging_ = false;
};

}  // namespace vtx
