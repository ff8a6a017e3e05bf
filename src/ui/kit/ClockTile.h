// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "ui/kit/KitWidget.h"

namespace vtx {

/// A figure on a ground of its own, with a small text at the other end: a clock and its highest.
/// One item for assistive technology, of the figure with the small text.
class ClockTile : public KitWidget {
public:
    explicit ClockTile(QWidget* parent = nullptr);

    /// `limit` may be empty.
    void setTexts(const QString& clock, const QString& limit);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    [[nodiscard]] int partCount() const override { return 1; }
    [[nodiscard]] AccessiblePart part(int index) const override;
    [[nodiscard]] QRect partRect(int) const override { return rect(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString clock_;
    QString limit_;
};

}  // namespace vtx
