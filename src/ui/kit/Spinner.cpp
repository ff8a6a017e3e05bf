// SPDX-License-Identifier: MIT
#include "ui/kit/Spinner.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {
constexpr TextRole role = TextRole::rowTitle;
constexpr int room = metrics::spinner + metrics::spinnerGap;
// Qt counts sixteenths of a degree.
constexpr int turn = 16 * 360;
}  // namespace

Spinner::Spinner(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    timer_.setInterval(metrics::spinnerTurnMs / metrics::spinnerSteps);
    connect(&timer_, &QTimer::timeout, this, [this] {
        step_ = (step_ + 1) % metrics::spinnerSteps;
        update(ring());
    });
}

void Spinner::setText(const QString& text) {
    if (text_ == text) return;
    text_ = text;
    setAccessibleName(text);
    updateGeometry();
    update();
}

int Spinner::textWidthNeeded() const { return static_cast<int>(std::ceil(textWidth(text_, role))); }

QSize Spinner::sizeHint() const {
    const int words = text_.isEmpty() ? 0 : metrics::spinnerGap + textWidthNeeded();
    return {metrics::spinner + words, lineHeight(role)};
}

QSize Spinner::minimumSizeHint() const { return {metrics::spinner, lineHeight(role)}; }

QRect Spinner::ring() const {
    const int content = std::min(sizeHint().width(), width());
    return mirrored({(width() - content) / 2, (height() - metrics::spinner) / 2, metrics::spinner,
                     metrics::spinner});
}

void Spinner::showEvent(QShowEvent*) {
    // The style is asked for its animations: it is where a desktop's wish for less motion arrives.
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0) timer_.start();
}

void Spinner::hideEvent(QHideEvent*) { timer_.stop(); }

void Spinner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr qreal half = metrics::strokeLine / 2;
    const QRectF circle = QRectF(ring()).adjusted(half, half, -half, -half);
    painter.setPen(QPen(color(ColorToken::track), metrics::strokeLine));
    painter.drawEllipse(circle);
    QPen pen(color(ColorToken::accent), metrics::strokeLine);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    painter.drawArc(circle, turn / 4 - turn * step_ / metrics::spinnerSteps, -turn / 4);

    painter.setPen(color(ColorToken::text2));
    const int content = std::min(sizeHint().width(), width());
    const int left = (width() - content) / 2 + room;
    drawText(painter, mirrored({left, 0, content - room, height()}), text_, role, atStart());
}

}  // namespace vtx
