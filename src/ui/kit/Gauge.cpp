// SPDX-License-Identifier: MIT
#include "ui/kit/Gauge.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/kit/Bars.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {
constexpr TextRole role = TextRole::caption;
constexpr int textTop = metrics::gaugeMarkHeight + metrics::labelToFigure;

double finite(double value) { return std::isfinite(value) ? value : 0; }
}  // namespace

Gauge::Gauge(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Gauge::setContent(GaugeContent content) {
    content.current = finite(content.current);
    content.min = finite(content.min);
    content.max = finite(content.max);
    if (content.target && !std::isfinite(*content.target)) content.target.reset();
    if (content_ == content) return;
    const bool had = hasTexts();
    content_ = std::move(content);
    if (had != hasTexts()) updateGeometry();
    update();
    accessibility::announceValue(*this, 0);
}

bool Gauge::hasTexts() const {
    return !content_.minText.isEmpty() || !content_.targetText.isEmpty() ||
           !content_.maxText.isEmpty();
}

QSize Gauge::sizeHint() const {
    const int texts = hasTexts() ? metrics::labelToFigure + lineHeight(role) : 0;
    return {metrics::cardContentWidth, metrics::gaugeMarkHeight + texts};
}

QSize Gauge::minimumSizeHint() const { return {metrics::gaugeMarkHeight, sizeHint().height()}; }

AccessiblePart Gauge::part(int) const {
    return {.name = content_.label, .value = content_.spoken, .role = QAccessible::ProgressBar};
}

std::optional<double> Gauge::position(double value) const {
    const double range = content_.max - content_.min;
    if (!(range >= 1)) return std::nullopt;
    return bars::fraction((value - content_.min) / range);
}

void Gauge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF bar(0, (metrics::gaugeMarkHeight - metrics::barRegular) / 2.0, width(),
                     metrics::barRegular);
    paint::fillRounded(painter, bar, bar.height() / 2, color(ColorToken::track));
    paintFill(painter, bar);
    paintTarget(painter, bar);
    if (hasTexts()) paintTexts(painter);
}

void Gauge::paintFill(QPainter& painter, const QRectF& bar) const {
    const qreal length =
        bars::filled(position(content_.current).value_or(0), bar.width(), paint::scaleOf(painter));
    if (length <= 0) return;
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    QLinearGradient gradient(leftToRight ? bar.topLeft() : bar.topRight(),
                             leftToRight ? bar.topRight() : bar.topLeft());
    gradient.setColorAt(0, color(ColorToken::cyan));
    gradient.setColorAt(1, color(ColorToken::orange));
    QRectF fill = bar;
    fill.setWidth(length);
    if (!leftToRight) fill.moveRight(bar.right());
    QPainterPath whole;
    whole.addRoundedRect(bar, bar.height() / 2, bar.height() / 2);
    QPainterPath shape;
    shape.addRoundedRect(fill, std::min(length, bar.height()) / 2, bar.height() / 2);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape.intersected(whole), gradient);
}

void Gauge::paintTarget(QPainter& painter, const QRectF& bar) const {
    if (!content_.target) return;
    const std::optional<double> at = position(*content_.target);
    if (!at) return;
    const qreal room = bar.width() - metrics::gaugeMarkWidth;
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    const qreal x = room * (leftToRight ? *at : 1 - *at);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(x, 0, metrics::gaugeMarkWidth, metrics::gaugeMarkHeight),
                     color(ColorToken::text1));
}

void Gauge::paintTexts(QPainter& painter) const {
    const QRect line(0, textTop, width(), lineHeight(role));
    painter.setPen(color(ColorToken::text3));
    drawTabular(painter, line, content_.minText, role, atStart());
    drawTabular(painter, line, content_.maxText, role, atEnd());
    // Centred between whichever of the two is wider.
    const qreal side =
        std::max(tabularWidth(content_.minText, role), tabularWidth(content_.maxText, role)) +
        metrics::labelToValue;
    painter.setPen(color(ColorToken::text2));
    drawValue(painter, QRectF(line).adjusted(side, 0, -side, 0), content_.targetText, role,
              Qt::AlignCenter);
}

}  // namespace vtx
