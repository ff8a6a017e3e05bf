// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>
#include <vector>

namespace vtx::test {

/// Delivers everything that is posted, painting included.
inline void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/// Shows `widget` in an active window.
inline void show(QWidget& widget) {
    widget.show();
    QApplication::setActiveWindow(widget.window());
    settle();
}

/// What `widget` looks like at `scale` device pixels to a logical one.
inline QImage picture(QWidget& widget, qreal scale) {
    const QSizeF size = QSizeF(widget.size()) * scale;
    QImage image(size.toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

inline void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent down(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers);
    QApplication::sendEvent(&widget, &up);
}

/// Sends one mouse event; a move with a button is a drag.
inline void mouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button) {
    const bool moves = type == QEvent::MouseMove;
    const bool released = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, QPointF(at), QPointF(widget.mapToGlobal(at)),
                      moves ? Qt::NoButton : button, released ? Qt::NoButton : button,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

inline void hover(QWidget& widget, QPoint at) {
    mouse(widget, QEvent::MouseMove, at, Qt::NoButton);
}

inline void click(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    mouse(widget, QEvent::MouseButtonPress, at, button);
    mouse(widget, QEvent::MouseButtonRelease, at, button);
}

/// Records what a widget is asked to paint.
class PaintRecorder final : public QObject {
public:
    explicit PaintRecorder(QWidget& widget) { widget.installEventFilter(this); }

    std::vector<QRegion> painted;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            painted.push_back(static_cast<QPaintEvent*>(event)->region());
        }
        return false;
    }
};

}  // namespace vtx::test
