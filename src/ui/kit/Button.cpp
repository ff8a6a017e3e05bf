// SPDX-License-Identifier: MIT
#include "ui/kit/Button.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"

namespace vtx {

namespace {

constexpr float solidHover = 0.12F;
constexpr float solidPress = 0.20F;
constexpr float standardHover = 0.15F;
constexpr float standardPress = 0.22F;
constexpr int reach = metrics::focusReach;

TextRole roleOf(bool isSolid) { return isSolid ? TextRole::chartTitle : TextRole::keyValue; }

}  // namespace

Button::Button(ButtonKind kind, QWidget* parent) : KitWidget(parent), kind_(kind) {
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
}

void Button::setText(const QString& text) {
    if (text_ == text) return;
    text_ = text;
    setAccessibleName(text);
    updateGeometry();
    update();
}

void Button::setSymbol(const QString& symbol) {
    if (symbol_ == symbol) return;
    symbol_ = symbol;
    updateGeometry();
    update();
}

void Button::setTip(const QString& tip) {
    tip_ = tip;
    if (hoverTip_) hoverTip_->dismiss();
}

void Button::setRingInside() {
    hasRingInside_ = true;
    update();
}

bool Button::isSolid() const {
    return kind_ == ButtonKind::primary || kind_ == ButtonKind::destructive;
}

int Button::contentWidth() const {
    const int symbol = symbol_.isEmpty() ? 0 : metrics::buttonSymbol;
    if (text_.isEmpty()) return symbol;
    const int words = static_cast<int>(std::ceil(textWidth(text_, roleOf(isSolid()))));
    return words + (symbol > 0 ? symbol + metrics::buttonSymbolGap : 0);
}

// The focus ring stands outside the shape, so the shape keeps that much to the widget's edge.
QSize Button::sizeHint() const {
    const bool isIcon = text_.isEmpty();
    const int width = isIcon ? metrics::sectionButton : contentWidth() + 2 * metrics::buttonPadding;
    const int height = isIcon ? metrics::sectionButton : metrics::buttonHeight;
    return {width + 2 * reach, height + 2 * reach};
}

QSize Button::minimumSizeHint() const {
    return {std::min(sizeHint().width(), 4 * metrics::buttonPadding), sizeHint().height()};
}

QRect Button::shape() const {
    return hasRingInside_ ? rect() : rect().adjusted(reach, reach, -reach, -reach);
}

void Button::pressWhole() {
    if (isEnabled()) Q_EMIT pressed();
}

Button::Look Button::solidLook(ColorToken fill, ColorToken text) const {
    QColor ground = color(fill);
    if (isPressed_) {
        ground = over(ground, withOpacity(Qt::black, solidPress));
    } else if (isHovered_) {
        ground = over(ground, color(ColorToken::text1, solidHover));
    }
    return {ground, color(text), false};
}

Button::Look Button::look() const {
    const bool isQuiet = kind_ == ButtonKind::quiet;
    if (!isEnabled()) {
        const ColorToken ground = isSolid() ? ColorToken::track : ColorToken::hover;
        return {isQuiet ? QColor(Qt::transparent) : color(ground), color(ColorToken::disabled),
                false};
    }
    switch (kind_) {
        case ButtonKind::primary:
            return solidLook(ColorToken::accent, ColorToken::onAccent);
        case ButtonKind::destructive:
            return solidLook(ColorToken::red, ColorToken::onRed);
        case ButtonKind::quiet: {
            const QColor fill = isPressed_   ? color(ColorToken::press)
                                : isHovered_ ? color(ColorToken::hover)
                                             : QColor(Qt::transparent);
            const bool isLit = isHovered_ || isPressed_;
            return {fill, color(isLit ? ColorToken::text1 : ColorToken::text2), false};
        }
        case ButtonKind::standard:
            break;
    }
    const QColor fill = isPressed_   ? color(ColorToken::text1, standardPress)
                        : isHovered_ ? color(ColorToken::text1, standardHover)
                                     : color(ColorToken::track);
    return {fill, color(ColorToken::text1), true};
}

void Button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Look shown = look();
    const QRect ground = shape();
    constexpr qreal radius = metrics::radiusButton;
    paint::fillRounded(painter, ground, radius, shown.fill);
    if (shown.isOutlined) {
        paint::outline(painter, ground, radius, color(ColorToken::cardBorder),
                       paint::hairline(painter));
    }
    if (showsFocus() && hasRingInside_) paint::focusRingInside(painter, ground, radius);
    if (showsFocus() && !hasRingInside_) paint::focusRing(painter, ground, radius);

    const int padding = text_.isEmpty() ? 0 : metrics::buttonPadding;
    const int width = std::min(contentWidth(), ground.width() - 2 * padding);
    QRect content(ground.left() + (ground.width() - width) / 2, ground.top(), width,
                  ground.height());
    if (!symbol_.isEmpty()) {
        const QRect symbol(content.left(), content.top(), metrics::buttonSymbol, content.height());
        symbols::draw(painter, mirrored(symbol), symbol_, metrics::buttonSymbol, shown.text);
        content.adjust(metrics::buttonSymbol + metrics::buttonSymbolGap, 0, 0, 0);
    }
    painter.setPen(shown.text);
    drawText(painter, mirrored(content), text_, roleOf(isSolid()), atStart());
}

void Button::setState(bool hovered, bool pressed) {
    if (isHovered_ == hovered && isPressed_ == pressed) return;
    isHovered_ = hovered;
    isPressed_ = pressed;
    update();
}

void Button::enterEvent(QEnterEvent*) {
    setState(isEnabled(), isPressed_);
    if (tip_.isEmpty()) return;
    if (!hoverTip_) hoverTip_ = std::make_unique<HoverTip>(*this);
    hoverTip_->pointAt(shape(), tip_);
}

void Button::leaveEvent(QEvent*) {
    setState(false, isPressed_);
    if (hoverTip_) hoverTip_->dismiss();
}

void Button::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    if (hoverTip_) hoverTip_->dismiss();
    const bool isInside = shape().contains(event->position().toPoint());
    if (event->button() == Qt::LeftButton && isInside) setState(true, true);
    event->accept();
}

void Button::mouseMoveEvent(QMouseEvent* event) {
    setState(shape().contains(event->position().toPoint()), isPressed_);
}

void Button::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const bool wasPressed = isPressed_;
    const bool isInside = shape().contains(event->position().toPoint());
    setState(isInside, false);
    if (wasPressed && isInside) pressWhole();
}

void Button::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!presses || event->isAutoRepeat()) {
        KitWidget::keyPressEvent(event);
        return;
    }
    setFocusByKeyboard(true);
    pressWhole();
}

void Button::changeEvent(QEvent* event) {
    KitWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange) return;
    isHovered_ = isPressed_ = false;
    update();
}

void Button::hideEvent(QHideEvent*) {
    isHovered_ = isPressed_ = false;
    if (hoverTip_) hoverTip_->dismiss();
}

}  // namespace vtx
