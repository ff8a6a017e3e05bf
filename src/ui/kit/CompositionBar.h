// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

#include "ui/kit/KitWidget.h"

namespace vtx {

struct CompositionPart {
    /// Of the whole, 0 to 1.
    double share = 0;
    ColorToken color = ColorToken::track;

    bool operator==(const CompositionPart&) const = default;
};

/// What a whole is made of, as parts of one bar. A part of less than a logical pixel is left out,
/// as is one that a rounded end would cut to a sliver; its neighbour takes that end. What is too
/// much is cut off at the end. One picture for assistive technology, with a text from outside; rows
/// with a swatch are its legend.
class CompositionBar : public KitWidget {
public:
    explicit CompositionBar(QWidget* parent = nullptr);

    void setParts(std::vector<CompositionPart> parts);
    /// What is said in place of the picture.
    void setSpoken(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Graphic; }

    /// Where the parts that are shown lie, in a bar of `length`.
    [[nodiscard]] std::vector<QRectF> segments(qreal length) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Segment {
        QRectF rect;
        ColorToken color;
    };
    [[nodiscard]] std::vector<Segment> layOut(qreal length) const;

    std::vector<CompositionPart> parts_;
};

}  // namespace vtx
