// SPDX-License-Identifier: MIT
#include "ui/kit/SectionHead.h"

#include <QPainter>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Type.h"

namespace vtx {

SectionHead::SectionHead(const QString& title, QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setTitle(title);
}

void SectionHead::setTitle(const QString& title) {
    if (title_ == title) return;
    title_ = title;
    setAccessibleName(title);
    updateGeometry();
    update();
}

QSize SectionHead::sizeHint() const {
    const qreal width = textWidth(title_, TextRole::sectionHead);
    return {static_cast<int>(std::ceil(width)) + 2 * metrics::sectionHeadInset,
            metrics::sectionHeadHeight};
}

void SectionHead::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(color(ColorToken::text1));
    constexpr int inset = metrics::sectionHeadInset;
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    drawText(painter, rect().adjusted(inset, 0, -inset, 0), title_, TextRole::sectionHead,
             (leftToRight ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
}

}  // namespace vtx
