// SPDX-License-Identifier: MIT
#include "ui/kit/Pill.h"

#include <QPainter>
#include <QStyle>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Theme.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace pill {

namespace {
constexpr TextRole role = TextRole::label;

int dotRoom(const PillContent& content) {
    return content.dot == PillDot::shown ? metrics::statusDot + metrics::pillDotGap : 0;
}
}  // namespace

int widthOf(const PillContent& content) {
    if (content.text.isEmpty()) return 0;
    const int words = static_cast<int>(std::ceil(textWidth(content.text, role)));
    return words + dotRoom(content) + 2 * metrics::pillPadding;
}

void draw(QPainter& painter, const QRect& rect, const PillContent& content,
          Qt::LayoutDirection direction) {
    if (content.text.isEmpty()) return;
    QRect shape(0, 0, rect.width(), metrics::pillHeight);
    shape.moveCenter(rect.center());
    constexpr qreal radius = metrics::pillHeight / 2.0;
    const Theme& theme = Theme::current();
    paint::fillRounded(painter, shape, radius, theme.color(content.color, metrics::pillFill));
    paint::outline(painter, shape, radius, theme.color(content.color, metrics::pillBorder),
                   paint::hairline(painter));
    const QRect inner = shape.adjusted(metrics::pillPadding, 0, -metrics::pillPadding, 0);
    if (content.dot == PillDot::shown) {
        const QRectF dot(inner.left(),
                         shape.top() + (metrics::pillHeight - metrics::statusDot) / 2.0,
                         metrics::statusDot, metrics::statusDot);
        const QRect place = QStyle::visualRect(direction, shape, dot.toRect());
        paint::fillRounded(painter, place, metrics::statusDot / 2.0, theme.color(content.color));
    }
    painter.setPen(theme.color(content.color));
    const QRect words =
        QStyle::visualRect(direction, shape, inner.adjusted(dotRoom(content), 0, 0, 0));
    const bool leftToRight = direction == Qt::LeftToRight;
    drawText(painter, words.adjusted(-1, 0, 1, 0), content.text, role,
             (leftToRight ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
}

}  // namespace pill

Pill::Pill(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void Pill::setContent(PillContent content) {
    if (content_ == content) return;
    content_ = std::move(content);
    setAccessibleName(content_.text);
    updateGeometry();
    update();
}

QSize Pill::sizeHint() const { return {pill::widthOf(content_), metrics::pillHeight}; }

QSize Pill::minimumSizeHint() const {
    constexpr int least = 2 * metrics::pillPadding + metrics::statusDot;
    return {std::min(least, sizeHint().width()), metrics::pillHeight};
}

void Pill::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    pill::draw(painter, rect(), content_, layoutDirection());
}

}  // namespace vtx
