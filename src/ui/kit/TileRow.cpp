// SPDX-License-Identifier: MIT
#include "ui/kit/TileRow.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "ui/kit/Button.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Switch.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

constexpr int rowHeight = metrics::tileRowHeight;
constexpr int buttonHeight = 28;
constexpr float placeFill = 0.08F;
constexpr float placeRing = 0.35F;

Button* makeStep(QWidget* parent, const QString& symbol) {
    auto* made = new Button(ButtonKind::quiet, parent);
    made->setSymbol(symbol);
    made->setRingInside();
    return made;
}

}  // namespace

TileRow::TileRow(QWidget* parent)
    : KitWidget(parent),
      switch_(new Switch(this)),
      up_(makeStep(this, QStringLiteral("chevron.up"))),
      down_(makeStep(this, QStringLiteral("chevron.down"))) {
    setFocusPolicy(Qt::StrongFocus);
    setFixedHeight(rowHeight);
    connect(switch_, &Switch::toggled, this, &TileRow::toggled);
    connect(up_, &Button::pressed, this, [this] { Q_EMIT stepped(TileStep::up); });
    connect(down_, &Button::pressed, this, [this] { Q_EMIT stepped(TileStep::down); });
}

void TileRow::setContent(const TileContent& content) {
    if (content_ == content) return;
    content_ = content;
    setAccessibleName(content.spoken);
    switch_->setAccessibleName(content.label);
    switch_->setVisible(content.isOn.has_value());
    if (content.isOn) switch_->setOn(*content.isOn);
    up_->setAccessibleName(content.upName);
    down_->setAccessibleName(content.downName);
    update();
}

void TileRow::setSteps(bool canGoUp, bool canGoDown) {
    up_->setEnabled(canGoUp);
    down_->setEnabled(canGoDown);
}

Button& TileRow::button(TileStep step) const { return step == TileStep::up ? *up_ : *down_; }

QSize TileRow::sizeHint() const {
    return {metrics::popoverWidth - 2 * metrics::contentInset, rowHeight};
}

void TileRow::resizeEvent(QResizeEvent* event) {
    KitWidget::resizeEvent(event);
    constexpr int wide = metrics::tileButtonWidth;
    const int end = width() - metrics::tileButtonsEnd;
    const int top = (rowHeight - buttonHeight) / 2;
    down_->setGeometry(mirrored({end - wide, top, wide, buttonHeight}));
    up_->setGeometry(mirrored({end - 2 * wide, top, wide, buttonHeight}));
    const QSize size = switch_->sizeHint();
    const int right = end - 2 * wide - metrics::tileButtonsGap + metrics::focusReach;
    switch_->setGeometry(mirrored(
        {right - size.width(), (rowHeight - size.height()) / 2, size.width(), size.height()}));
}

void TileRow::setLifted(bool lifted) {
    if (isLifted_ == lifted) return;
    isLifted_ = lifted;
    switch_->setVisible(!lifted && content_.isOn.has_value());
    up_->setVisible(!lifted);
    down_->setVisible(!lifted);
    update();
}

void TileRow::paintTo(QPainter& painter) {
    const QRect handle(metrics::formInset, 0, metrics::tileHandle, height());
    symbols::draw(painter, mirrored(handle), QStringLiteral("line.3.horizontal"),
                  metrics::tileHandle, color(ColorToken::text3));
    const int end = switch_->isVisibleTo(this) ? switch_->width() : 0;
    const int right = width() - metrics::tileButtonsEnd - 2 * metrics::tileButtonWidth -
                      metrics::tileButtonsGap - end;
    painter.setPen(color(ColorToken::text1));
    drawText(painter,
             mirrored({metrics::tileLabelLeft, 0, right - metrics::tileLabelLeft, height()}),
             content_.label, TextRole::body, atStart());
}

void TileRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect inner = rect().adjusted(2, 2, -2, -3);
    if (isLifted_) {
        paint::fillRounded(painter, inner, metrics::radiusSmall,
                           color(ColorToken::accent, placeFill));
        paint::outline(painter, inner, metrics::radiusSmall, color(ColorToken::accent, placeRing),
                       metrics::strokeEmphasis);
        return;
    }
    if (isHovered_)
        paint::fillRounded(painter, inner, metrics::radiusSmall, color(ColorToken::hover));
    paintTo(painter);
    if (showsFocus()) paint::focusRingInside(painter, inner, metrics::radiusSmall);
}

// From its own controls as well, which leave these keys to it.
void TileRow::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool steps = key == Qt::Key_Up || key == Qt::Key_Down;
    if (!steps || !(event->modifiers() & Qt::AltModifier)) {
        KitWidget::keyPressEvent(event);
        return;
    }
    setFocusByKeyboard(true);
    const TileStep step = key == Qt::Key_Up ? TileStep::up : TileStep::down;
    if (button(step).isEnabled()) Q_EMIT stepped(step);
}

void TileRow::enterEvent(QEnterEvent*) {
    isHovered_ = true;
    update();
}

void TileRow::leaveEvent(QEvent*) {
    isHovered_ = false;
    update();
}

// The list decides whether the pointer drags.
void TileRow::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    event->ignore();
}

}  // namespace vtx
