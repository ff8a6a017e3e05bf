// SPDX-License-Identifier: MIT
#pragma once

#include "ui/kit/KitWidget.h"

namespace vtx {

/// What a slider can be set to, in steps from the least.
struct SliderRange {
    double min = 0;
    double max = 1;
    double step = 0.1;

    bool operator==(const SliderRange&) const = default;
};

/// A value within bounds, set by the knob, by a press anywhere in the strip, or by arrows, Page Up
/// and Down, Home and End. The wheel is left to the page, which scrolls. A slider for assistive
/// technology, named by setAccessibleName(); what its value means is its description.
class Slider : public KitWidget {
    Q_OBJECT

public:
    explicit Slider(QWidget* parent = nullptr);

    void setRange(SliderRange range);
    /// Changes what is shown, without telling. A value beyond the bounds shows at the bound.
    void setValue(double value);
    [[nodiscard]] double value() const { return value_; }
    /// The value in words.
    void setSpokenValue(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Slider; }
    [[nodiscard]] std::optional<AccessibleRange> range() const override;
    void setRangeValue(double value) override;

    [[nodiscard]] QRectF knobRect() const;

Q_SIGNALS:
    /// The user set it. value() is already so.
    void moved(double value);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] QRectF track() const;
    /// How far along its way the value stands, 0 to 1.
    [[nodiscard]] double fraction() const;
    [[nodiscard]] double valueAt(double x) const;
    [[nodiscard]] double snapped(double value) const;
    [[nodiscard]] std::optional<double> target(int key) const;
    void choose(double value);

    SliderRange range_;
    double value_ = 0;
    bool isHovered_ = false;
    /// While held: from the middle of the knob to the pointer.
    std::optional<double> grip_;
};

}  // namespace vtx
