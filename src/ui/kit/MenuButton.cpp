// SPDX-License-Identifier: MIT
#include "ui/kit/MenuButton.h"

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

constexpr int reach = metrics::focusReach;
constexpr int padding = metrics::menuButtonPadding;
constexpr int symbolSize = metrics::menuButtonSymbol;
constexpr int symbolGap = metrics::buttonSymbolGap;
constexpr int chevron = metrics::menuButtonChevron;
constexpr float hoverOpacity = 0.15F;
constexpr float pressOpacity = 0.22F;
constexpr TextRole role = TextRole::keyValue;

}  // namespace

MenuButton::MenuButton(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    describe();
}

void MenuButton::setChoices(std::vector<MenuChoice> choices) {
    if (choices_ == choices) return;
    choices_ = std::move(choices);
    describe();
}

void MenuButton::setCurrent(int index) {
    if (current_ == index) return;
    current_ = index;
    describe();
}

void MenuButton::describe() {
    setAccessibleDescription(shown().text);
    updateGeometry();
    update();
}

MenuChoice MenuButton::shown() const {
    const bool isOne = current_ >= 0 && current_ < static_cast<int>(choices_.size());
    return isOne ? choices_[static_cast<std::size_t>(current_)] : MenuChoice{QStringLiteral("—")};
}

QSize MenuButton::sizeHint() const {
    const MenuChoice choice = shown();
    const int words = static_cast<int>(std::ceil(textWidth(choice.text, role)));
    const int symbol = choice.symbol.isEmpty() ? 0 : symbolSize + symbolGap;
    return {2 * padding + symbol + words + symbolGap + chevron + 2 * reach,
            metrics::menuButtonHeight + 2 * reach};
}

QSize MenuButton::minimumSizeHint() const {
    return {std::min(sizeHint().width(), metrics::menuButtonLeast), sizeHint().height()};
}

QRect MenuButton::shape() const { return rect().adjusted(reach, reach, -reach, -reach); }

void MenuButton::pressWhole() {
    if (!isEnabled() || menu_ || choices_.empty()) return;
    menu_ = new ChoiceMenu(choices_, current_, this);
    menu_->onChoice = [this](int index) { choose(index); };
    connect(menu_, &QObject::destroyed, this, qOverload<>(&QWidget::update));
    menu_->popUp({mapToGlobal(shape().topLeft()), shape().size()});
    update();
}

void MenuButton::choose(int index) {
    if (index == current_) return;
    setCurrent(index);
    Q_EMIT chosen(index);
}

void MenuButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect ground = shape();
    const QColor ink = color(isEnabled() ? ColorToken::text1 : ColorToken::disabled);
    const QColor fill = menu_        ? color(ColorToken::text1, pressOpacity)
                        : isHovered_ ? color(ColorToken::text1, hoverOpacity)
                                     : color(ColorToken::track);
    paint::fillRounded(painter, ground, metrics::radiusSmall, fill);
    paint::outline(painter, ground, metrics::radiusSmall, color(ColorToken::cardBorder),
                   paint::hairline(painter));
    QRect content = ground.adjusted(padding, 0, -padding, 0);
    const QRect mark(content.right() + 1 - chevron, content.top(), chevron, content.height());
    symbols::draw(painter, mirrored(mark), QStringLiteral("chevron.up.chevron.down"), chevron,
                  color(isEnabled() ? ColorToken::text2 : ColorToken::disabled));
    content.setRight(mark.left() - symbolGap - 1);
    const MenuChoice choice = shown();
    if (!choice.symbol.isEmpty()) {
        const QRect symbol(content.left(), content.top(), symbolSize, content.height());
        symbols::draw(painter, mirrored(symbol), choice.symbol, symbolSize, ink);
        content.setLeft(symbol.right() + 1 + symbolGap);
    }
    painter.setPen(ink);
    drawText(painter, mirrored(content), choice.text, role, atStart());
    if (showsFocus()) paint::focusRing(painter, ground, metrics::radiusSmall);
}

void MenuButton::mousePressEvent(QMouseEvent* event) {
    KitWidget::mousePressEvent(event);
    event->accept();
    if (event->button() == Qt::LeftButton) pressWhole();
}

void MenuButton::enterEvent(QEnterEvent*) {
    isHovered_ = isEnabled();
    update();
}

void MenuButton::leaveEvent(QEvent*) {
    isHovered_ = false;
    update();
}

void MenuButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
        case Qt::Key_Up:
            setFocusByKeyboard(true);
            if (!event->isAutoRepeat()) pressWhole();
            break;
        default:
            KitWidget::keyPressEvent(event);
    }
}

void MenuButton::changeEvent(QEvent* event) {
    KitWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) update();
}

void MenuButton::hideEvent(QHideEvent* event) {
    isHovered_ = false;
    if (menu_) menu_->close();
    KitWidget::hideEvent(event);
}

}  // namespace vtx
