// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <memory>

#include "ui/kit/KitWidget.h"

namespace vtx {

/// The small window with a word of explanation. Takes neither focus nor clicks.
class Tooltip final : public KitWidget {
public:
    /// Below the middle of `target`, which is in the coordinates of `owner`; above it where the
    /// screen ends.
    Tooltip(QWidget& owner, const QRect& target, QString text);

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::ToolTip; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString text_;
};

/// Shows a tooltip for the part of a widget under the pointer once the pointer has rested there.
/// A member of that widget.
class HoverTip final : public QObject {
public:
    explicit HoverTip(QWidget& owner);
    ~HoverTip() override;

    /// The pointer came to `target`.
    void pointAt(const QRect& target, const QString& text);
    /// The pointer left, something was pressed, or the widget was hidden.
    void dismiss();

    [[nodiscard]] bool isPending() const { return timer_.isActive(); }
    /// Runs while a tooltip is pending.
    [[nodiscard]] QTimer& timer() { return timer_; }
    [[nodiscard]] bool isShown() const { return tip_ != nullptr; }

private:
    void show();

    QWidget& owner_;
    QRect target_;
    QString text_;
    QTimer timer_;
    std::unique_ptr<Tooltip> tip_;
};

}  // namespace vtx
