// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTimer>

#include "ui/kit/KitWidget.h"

namespace vtx {

/// A ring that turns once a second with a text beside it, for what is awaited. It turns only while
/// it is shown, and stands still where the desktop's style wants no animation. An alert of its
/// text for assistive technology.
class Spinner : public KitWidget {
    Q_OBJECT

public:
    explicit Spinner(QWidget* parent = nullptr);

    void setText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Animation;
    }

    [[nodiscard]] bool isTurning() const { return timer_.isActive(); }
    /// Where the ring is drawn; a step paints no more than this.
    [[nodiscard]] QRect ring() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] int textWidthNeeded() const;

    QString text_;
    QTimer timer_;
    int step_ = 0;
};

}  // namespace vtx
