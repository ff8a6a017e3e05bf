// SPDX-License-Identifier: MIT
#include "ui/kit/Card.h"

#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"

namespace vtx {

namespace {
constexpr float emphasisOpacity = 0.35F;
constexpr int radius = metrics::radiusWindow;
constexpr int strokeRoom = 2;
}  // namespace

Card::Card(QWidget* parent) : KitWidget(parent), content_(new QVBoxLayout(this)) {
    constexpr int padding = metrics::cardPadding;
    content_->setContentsMargins(padding, padding, padding, padding);
    content_->setSpacing(0);
}

void Card::setEmphasis(Emphasis emphasis) {
    if (emphasis_ == emphasis) return;
    emphasis_ = emphasis;
    update();
}

void Card::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // A change inside, such as one figure, touches neither corners nor outline.
    if (rect().adjusted(strokeRoom, radius, -strokeRoom, -radius).contains(event->rect())) {
        painter.fillRect(event->rect(), color(ColorToken::card));
        return;
    }
    const QRectF bounds = rect();
    paint::fillRounded(painter, bounds, radius, color(ColorToken::card));
    if (emphasis_ == Emphasis::accent) {
        paint::outline(painter, bounds, radius, color(ColorToken::accent, emphasisOpacity),
                       metrics::strokeEmphasis);
    } else {
        paint::outline(painter, bounds, radius, color(ColorToken::cardBorder),
                       paint::hairline(painter));
    }
}

}  // namespace vtx
