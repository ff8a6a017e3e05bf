// SPDX-License-Identifier: MIT
#include "ui/kit/Banner.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/kit/Button.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/WrappedText.h"

namespace vtx {

namespace {

constexpr int padding = metrics::bannerPadding;
constexpr int titleHeight = 18;

int ceiled(qreal width) { return static_cast<int>(std::ceil(width)); }

// Above entries the body is their heading and steps back; alone it is what is to be read.
TextRole bodyRole(bool isHeading) { return isHeading ? TextRole::caption : TextRole::rowTitle; }

}  // namespace

Banner::Banner(QWidget* parent)
    : KitWidget(parent), button_(new Button(ButtonKind::standard, this)) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    button_->hide();
    connect(button_, &Button::pressed, this, &Banner::pressed);
}

void Banner::setContent(BannerContent content) {
    if (content_ == content) return;
    const int height = heightForWidth(width());
    content_ = std::move(content);
    button_->setText(content_.button);
    placeButton();
    if (heightForWidth(width()) != height) updateGeometry();
    update();
}

Banner::Layout Banner::layOut(int width) const {
    const QRect inner(padding, padding, std::max(1, width - 2 * padding), titleHeight);
    Layout layout{.title = inner, .body = {}, .entries = {}, .button = {}, .height = 0};
    int y = padding + titleHeight;
    if (hasBody()) {
        y += metrics::bannerGap;
        const TextRole role = bodyRole(!content_.entries.empty());
        const int height = wrapped::height(content_.body, role, inner.width());
        layout.body = {padding, y, inner.width(), height};
        y += height;
    }
    if (!content_.entries.empty()) {
        y += metrics::labelToFigure;
        const int count = static_cast<int>(content_.entries.size());
        layout.entries = {padding, y, inner.width(), count * metrics::bannerEntryHeight};
        y += layout.entries.height();
    }
    if (!content_.button.isEmpty()) {
        y += metrics::bannerButtonGap;
        layout.button = {padding, y};
        y += metrics::buttonHeight;
    }
    layout.height = y + padding;
    return layout;
}

void Banner::placeButton() {
    const QSize size = button_->sizeHint();
    const QPoint shape = layOut(width()).button;
    const int reach = metrics::focusReach;
    const int most = width() - 2 * (padding - reach);
    const QRect place(shape - QPoint(reach, reach),
                      QSize(std::min(size.width(), most), size.height()));
    button_->setGeometry(mirrored(place));
    button_->setVisible(!content_.button.isEmpty());
}

void Banner::resizeEvent(QResizeEvent*) { placeButton(); }

int Banner::heightForWidth(int width) const { return layOut(width).height; }

QSize Banner::sizeHint() const {
    constexpr int width = metrics::popoverWidth - 2 * metrics::contentInset;
    return {width, heightForWidth(width)};
}

QSize Banner::minimumSizeHint() const { return {4 * padding, 0}; }

int Banner::partCount() const {
    return 1 + (hasBody() ? 1 : 0) + static_cast<int>(content_.entries.size());
}

AccessiblePart Banner::part(int index) const {
    if (index == 0) {
        return {.name = content_.title, .value = content_.status, .role = QAccessible::StaticText};
    }
    const int entry = index - 1 - (hasBody() ? 1 : 0);
    if (entry < 0) return {.name = content_.body, .value = {}, .role = QAccessible::StaticText};
    const BannerEntry& shown = content_.entries.at(static_cast<std::size_t>(entry));
    return {.name = shown.name, .value = shown.value, .role = QAccessible::ListItem};
}

QRect Banner::partRect(int index) const {
    const Layout layout = layOut(width());
    if (index == 0) return layout.title;
    const int entry = index - 1 - (hasBody() ? 1 : 0);
    if (entry < 0) return layout.body;
    return {layout.entries.left(), layout.entries.top() + entry * metrics::bannerEntryHeight,
            layout.entries.width(), metrics::bannerEntryHeight};
}

void Banner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint::fillRounded(painter, rect(), metrics::radiusTile,
                       color(content_.color, metrics::bannerFill));
    paint::outline(painter, rect(), metrics::radiusTile,
                   color(content_.color, metrics::bannerBorder), metrics::strokeEmphasis);
    const Layout layout = layOut(width());
    paintTitle(painter, layout.title);
    const bool isHeading = !content_.entries.empty();
    painter.setPen(color(isHeading ? ColorToken::text2 : ColorToken::text1));
    wrapped::draw(painter, layout.body, content_.body, bodyRole(isHeading), atStart());
    QRect line(layout.entries.topLeft(), QSize(layout.entries.width(), metrics::bannerEntryHeight));
    for (const BannerEntry& entry : content_.entries) {
        paintEntry(painter, line, entry);
        line.translate(0, line.height());
    }
}

void Banner::paintTitle(QPainter& painter, const QRect& line) const {
    const QRect symbol(line.left(), line.top(), metrics::titleSymbol, line.height());
    symbols::draw(painter, mirrored(symbol), content_.symbol, metrics::titleSymbol,
                  color(content_.color));
    const int lead = content_.symbol.isEmpty() ? 0 : metrics::titleSymbol + metrics::symbolToTitle;
    const int status = std::min(ceiled(textWidth(content_.status, TextRole::chartTitle)),
                                (line.width() - lead) / 2);
    painter.setPen(color(content_.color));
    drawText(painter, mirrored(line.adjusted(line.width() - status, 0, 0, 0)), content_.status,
             TextRole::chartTitle, atEnd());
    const int taken = status > 0 ? status + metrics::labelToValue : 0;
    painter.setPen(color(ColorToken::text1));
    drawText(painter, mirrored(line.adjusted(lead, 0, -taken, 0)), content_.title,
             TextRole::sectionHead, atStart());
}

void Banner::paintEntry(QPainter& painter, const QRect& line, const BannerEntry& entry) const {
    const int value =
        std::min(ceiled(tabularWidth(entry.value, TextRole::rowTitle)), line.width() / 2);
    painter.setPen(color(ColorToken::text2));
    drawValue(painter, mirrored(line.adjusted(line.width() - value, 0, 0, 0)), entry.value,
              TextRole::rowTitle, atEnd());
    painter.setPen(color(ColorToken::text1));
    drawName(painter, mirrored(line.adjusted(0, 0, -value - metrics::labelToValue, 0)), entry.name,
             TextRole::rowTitle, atStart());
}

}  // namespace vtx
