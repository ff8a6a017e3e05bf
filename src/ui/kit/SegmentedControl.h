// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariantAnimation>
#include <optional>
#include <vector>

#include "ui/kit/KitWidget.h"
#include "ui/kit/Motion.h"

namespace vtx {

/// A few choices side by side, one of which holds. One tab stop: arrows, Home and End choose, as
/// does a press. The thumb slides to the new choice while the control is shown. A list of radio
/// buttons for assistive technology, named by setAccessibleName().
class SegmentedControl : public KitWidget {
    Q_OBJECT

public:
    explicit SegmentedControl(QWidget* parent = nullptr);

    void setSegments(std::vector<QString> labels);
    /// Changes what is shown as chosen, without telling. An index beyond the last chooses nothing.
    void setCurrent(int index);
    [[nodiscard]] int current() const { return current_; }
    void setMotion(Motion motion) { motion_ = motion; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] QAccessible::Role accessibleRole() const override {
        return QAccessible::Grouping;
    }
    [[nodiscard]] int partCount() const override { return static_cast<int>(segments_.size()); }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int index) const override;
    [[nodiscard]] int focusedPart() const override { return current_ < 0 ? 0 : current_; }
    void pressPart(int index) override;

Q_SIGNALS:
    /// The user chose another segment. current() is already it.
    void selected(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Segment {
        QString label;
        int width = 0;
    };

    /// Within the control, which keeps room for its focus ring. Where it is wider than its segments
    /// need, they share what is left.
    [[nodiscard]] QRect body() const;
    [[nodiscard]] bool isPart(int index) const { return index >= 0 && index < partCount(); }
    [[nodiscard]] int partAt(QPoint position) const;
    [[nodiscard]] std::optional<int> target(int key) const;
    void setLit(int hovered, int pressed);
    void slideFrom(int index);
    [[nodiscard]] QRectF thumbRect() const;
    void paintSegment(QPainter& painter, int index) const;

    std::vector<Segment> segments_;
    int current_ = -1;
    int hovered_ = -1;
    int pressed_ = -1;
    Motion motion_ = Motion::full;
    QVariantAnimation slide_;
};

}  // namespace vtx
